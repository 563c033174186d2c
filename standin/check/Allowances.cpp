// What the rules of the operations let a fault do to the project, each with its reason.

#include "standin/check/ProjectVerdict.h"

namespace standin::check
{
namespace
{
constexpr const char* repeats =
    "after a failed read the texts that were read last stand for the rest of the list";
constexpr const char* off = "an effect that was not read counts as switched off";
constexpr const char* noAnswer = "an effect that could not be asked answers no group";
constexpr const char* noPlace = "an effect whose identity is not known is not put in its place";
constexpr const char* undeleted = "the order of the panel is written without the effect that was not deleted";
constexpr const char* otherTree =
    "what passes for another layer's tree is compared in full, and the order of the rows is written";
constexpr const char* misreadTree =
    "rows that were read wrongly are taken for an edit, and their order is written with it";
constexpr const char* lost = "a row whose effect was not recognised is made anew, and is not selected";
constexpr const char* refused =
    "where an edit was refused, the rows keep a name or a selection that the layer does not know";
constexpr const char* misread =
    "a row that was read under another name is not found again by it, and is not selected";
constexpr const char* emptied =
    "a tree that was emptied, or is another layer's, has no selection to bring back";
constexpr const char* scan = "the search for a place goes on with the effect that was read last";
} // namespace

const std::vector<Allowance>& Allowances()
{
    static const std::vector<Allowance> rows = {
        {"AEGP_GetLayerNumEffects", Fate::nameRepeated, repeats},
        {"AEGP_GetLayerEffectByIndex", Fate::nameRepeated, repeats},
        {"AEGP_GetInstalledKeyFromLayerEffect", Fate::nameRepeated, repeats},
        {"AEGP_GetEffectMatchName", Fate::nameRepeated, repeats},
        {"AEGP_GetNewEffectStreamByIndex", Fate::nameRepeated, repeats},
        {"AEGP_GetNewParentStreamRef", Fate::nameRepeated, repeats},
        {"AEGP_GetEffectFlags", Fate::nameRepeated, repeats},
        {"AEGP_GetStreamName", Fate::nameRepeated, repeats},
        {"AEGP_GetStreamName", Fate::nameGarbled, "the text is taken as the host left it"},

        {"AEGP_GetLayerNumEffects", Fate::switchedOff, off},
        {"AEGP_GetLayerEffectByIndex", Fate::switchedOff, off},
        {"AEGP_GetInstalledKeyFromLayerEffect", Fate::switchedOff, off},
        {"AEGP_GetEffectMatchName", Fate::switchedOff, off},
        {"AEGP_GetNewEffectStreamByIndex", Fate::switchedOff, off},
        {"AEGP_GetNewParentStreamRef", Fate::switchedOff, off},
        {"AEGP_GetEffectFlags", Fate::switchedOff, off},
        {"AEGP_GetStreamName", Fate::switchedOff, off},
        {"AEGP_GetEffectFlags", Fate::switchedOffAlone, "flags of zero that come without an error are taken"},

        {"AEGP_ConvertLayerToCompTime", Fate::leftGroup, noAnswer},
        {"AEGP_GetLayerNumEffects", Fate::leftGroup, noAnswer},
        {"AEGP_GetLayerEffectByIndex", Fate::leftGroup, noAnswer},
        {"AEGP_GetEffectFlags", Fate::leftGroup, noAnswer},
        {"AEGP_EffectCallGeneric", Fate::leftGroup, noAnswer},

        {"AEGP_ConvertLayerToCompTime", Fate::orderMixed, noPlace},
        {"AEGP_GetLayerNumEffects", Fate::orderMixed, noPlace},
        {"AEGP_GetLayerEffectByIndex", Fate::orderMixed, noPlace},
        {"AEGP_GetEffectFlags", Fate::orderMixed, noPlace},
        {"AEGP_EffectCallGeneric", Fate::orderMixed, noPlace},
        {"AEGP_ReorderEffect", Fate::orderMixed,
         "a move that fails counts as done, and nothing is moved back"},
        {"AEGP_StartUndoGroup", Fate::orderMixed, undeleted},
        {"AEGP_DeleteLayerEffect", Fate::orderMixed, undeleted},
        {"AcquireSuite", Fate::orderMixed, undeleted},
        {"operator new", Fate::orderMixed, undeleted},

        {"AEGP_IsShown", Fate::orderOfRows, otherTree},
        {"AEGP_GetActiveItem", Fate::orderOfRows, otherTree},
        {"AEGP_GetActiveLayer", Fate::orderOfRows, otherTree},
        {"AEGP_GetLayerID", Fate::orderOfRows, otherTree},
        {"AEGP_GetItemID", Fate::orderOfRows, otherTree},
        {"AEGP_GetInstalledKeyFromLayerEffect", Fate::orderOfRows, misreadTree},
        {"AEGP_GetEffectMatchName", Fate::orderOfRows, misreadTree},
        {"AEGP_GetNewEffectStreamByIndex", Fate::orderOfRows, misreadTree},
        {"AEGP_GetNewParentStreamRef", Fate::orderOfRows, misreadTree},
        {"AEGP_GetStreamName", Fate::orderOfRows, misreadTree},

        {"AEGP_ConvertLayerToCompTime", Fate::hiddenWrongly, lost},
        {"AEGP_GetLayerNumEffects", Fate::hiddenWrongly, lost},
        {"AEGP_GetLayerEffectByIndex", Fate::hiddenWrongly, lost},
        {"AEGP_GetEffectFlags", Fate::hiddenWrongly, lost},
        {"AEGP_EffectCallGeneric", Fate::hiddenWrongly, lost},
        {"operator new", Fate::hiddenWrongly,
         "a rebuild that ends half-way leaves no selection to bring back"},
        {"AEGP_IsShown", Fate::hiddenWrongly, emptied},
        {"AEGP_GetActiveItem", Fate::hiddenWrongly, emptied},
        {"AEGP_GetActiveLayer", Fate::hiddenWrongly, emptied},
        {"AEGP_GetLayerID", Fate::hiddenWrongly, emptied},
        {"AEGP_GetItemID", Fate::hiddenWrongly, emptied},
        {"AEGP_SetDynamicStreamFlag", Fate::hiddenWrongly, "the flag is cleared before it is set"},
        {"AEGP_GetInstalledKeyFromLayerEffect", Fate::hiddenWrongly, misread},
        {"AEGP_GetEffectMatchName", Fate::hiddenWrongly,
         "a main effect that was not recognised counts as one of the others"},
        {"AEGP_GetNewEffectStreamByIndex", Fate::hiddenWrongly, misread},
        {"AEGP_GetNewParentStreamRef", Fate::hiddenWrongly, misread},
        {"AEGP_GetStreamName", Fate::hiddenWrongly, misread},
        {"AEGP_StartUndoGroup", Fate::hiddenAfterRefusal, refused},
        {"AEGP_SetStreamName", Fate::hiddenAfterRefusal, refused},
        {"AEGP_ReorderEffect", Fate::hiddenAfterRefusal, refused},
        {"AEGP_DeleteLayerEffect", Fate::hiddenAfterRefusal, refused},
        {"AcquireSuite", Fate::hiddenAfterRefusal, refused},
        {"AEGP_SetDynamicStreamFlag", Fate::parameterHidden,
         "the first parameter is hidden and shown to open the effect"},
        {"AEGP_GetLayerNumEffects", Fate::outsiderHidden,
         "an effect that is not in the list that was read counts as one of the others"},

        {"AEGP_ConvertLayerToCompTime", Fate::newElsewhere, noPlace},
        {"AEGP_EffectCallGeneric", Fate::newElsewhere, noPlace},
        {"AEGP_GetEffectFlags", Fate::newElsewhere, noPlace},
        {"AEGP_GetLayerNumEffects", Fate::newElsewhere, scan},
        {"AEGP_GetLayerEffectByIndex", Fate::newElsewhere, scan},
        {"AEGP_GetInstalledKeyFromLayerEffect", Fate::newElsewhere, scan},
        {"AEGP_GetEffectMatchName", Fate::newElsewhere, scan},
        {"AEGP_DisposeEffect", Fate::newElsewhere, scan},
        {"AEGP_ReorderEffect", Fate::newElsewhere, "an effect that cannot be moved stays at the end"},
    };
    return rows;
}

const char* TextOf(Fate fate)
{
    switch (fate)
    {
    case Fate::nameRepeated:
        return "repeats the name of one above it, or has none";
    case Fate::nameGarbled:
        return "has a name that came together with an error";
    case Fate::switchedOff:
        return "is switched off with all objects below it";
    case Fate::switchedOffAlone:
        return "is switched off alone";
    case Fate::leftGroup:
        return "has left its group";
    case Fate::hiddenWrongly:
        return "is hidden or shown";
    case Fate::hiddenAfterRefusal:
        return "is hidden or shown after an edit was refused";
    case Fate::parameterHidden:
        return "has its first parameter hidden";
    case Fate::outsiderHidden:
        return "is hidden or shown although it is from outside";
    case Fate::orderMixed:
        return "stands in a mixed order";
    case Fate::orderOfRows:
        return "stands in the order of the rows";
    case Fate::newElsewhere:
        return "was added at another place";
    }
    return "";
}
} // namespace standin::check
