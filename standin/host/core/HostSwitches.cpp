#include "standin/host/core/HostSwitches.h"

#include <algorithm>

namespace standin
{
const std::vector<HostSwitch>& HostSwitches()
{
    static const std::vector<HostSwitch> all{
        {"new-effects-land-at-the-start", "ApplyPlace::start",
         [](HostOptions& o) { o.applyPlace = ApplyPlace::start; }},
        {"new-effects-land-behind-the-selected", "ApplyPlace::afterSelected",
         [](HostOptions& o) { o.applyPlace = ApplyPlace::afterSelected; }},
        {"undo-deletes-the-older-twin", "TwinUndo::deletesOlderTwin",
         [](HostOptions& o) { o.twinUndo = TwinUndo::deletesOlderTwin; }},
        {"names-are-short", "NameLimit::published",
         [](HostOptions& o) { o.nameLimit = NameLimit::published; }},
        {"an-empty-name-resets", "EmptyName::resetsToDefault",
         [](HostOptions& o) { o.emptyName = EmptyName::resetsToDefault; }},
        {"identities-come-at-the-next-idle", "IdentityBirth::atNextIdle",
         [](HostOptions& o) { o.identityBirth = IdentityBirth::atNextIdle; }},
        {"group-minus-one-is-stored", "GroupMinusOne::isStored",
         [](HostOptions& o) { o.groupMinusOne = GroupMinusOne::isStored; }},
        {"group-changes-are-no-undo-steps", "GroupUndo::isNotUndoable",
         [](HostOptions& o) { o.groupUndo = GroupUndo::isNotUndoable; }},
        {"duplicates-copy-the-identity", "DuplicateIdentity::isCopied",
         [](HostOptions& o) { o.duplicateIdentity = DuplicateIdentity::isCopied; }},
        {"closing-destroys-the-view", "ClosedPanel::destroysView",
         [](HostOptions& o) { o.closedPanel = ClosedPanel::destroysView; }},
        {"containers-die-first", "DeathOrder::containersFirst",
         [](HostOptions& o) { o.deathOrder = DeathOrder::containersFirst; }},
        {"a-tab-behind-is-not-shown", "TabBehind::isNotShown",
         [](HostOptions& o) { o.tabBehind = TabBehind::isNotShown; }},
        {"the-panel-keeps-the-active-window", "FocusInPanel::keepsActivePanel",
         [](HostOptions& o) { o.focusInPanel = FocusInPanel::keepsActivePanel; }},
        {"the-panel-activates-nothing", "FocusInPanel::activatesNothing",
         [](HostOptions& o) { o.focusInPanel = FocusInPanel::activatesNothing; }},
        {"unchanged-groups-leave-an-entry", "UnchangedGroup::leavesPhantomEntry",
         [](HostOptions& o) { o.unchangedGroup = UnchangedGroup::leavesPhantomEntry; }},
        {"groups-without-a-change-are-empty", "EmptyGroup::changesNothing",
         [](HostOptions& o) { o.emptyGroup = EmptyGroup::changesNothing; }},
        {"open-groups-live-on", "GroupAtReturn::livesOn",
         [](HostOptions& o) { o.groupAtReturn = GroupAtReturn::livesOn; }},
        {"unset-panel-functions-are-reported", "UnsetPanelFunctions::areFinding",
         [](HostOptions& o) { o.unsetPanelFunctions = UnsetPanelFunctions::areFinding; }},
        {"failed-plug-ins-keep-their-hooks", "FailedEntry::leavesHooks",
         [](HostOptions& o) { o.failedEntry = FailedEntry::leavesHooks; }},
        {"deleting-keeps-the-selection", "DeletedSelection::leavesLayers",
         [](HostOptions& o) { o.deletedSelection = DeletedSelection::leavesLayers; }},
        {"keys-update-no-menus", "KeyUpdate::doesNothing",
         [](HostOptions& o) { o.keyUpdate = KeyUpdate::doesNothing; }},
        {"command-zero-never-comes", "CommandZero::neverComes",
         [](HostOptions& o) { o.commandZero = CommandZero::neverComes; }},
        {"dialogs-stop-the-idle", "IdleInDialogs::stops",
         [](HostOptions& o) { o.idleInDialogs = IdleInDialogs::stops; }},
        {"alerts-wait-for-an-answer", "AlertReturn::isWhenAnswered",
         [](HostOptions& o) { o.alertReturn = AlertReturn::isWhenAnswered; }},
        {"forced-english-gives-default-names", "ForcedEnglish::givesDefaultNames",
         [](HostOptions& o) { o.forcedEnglish = ForcedEnglish::givesDefaultNames; }},
        {"un-hiding-always-opens", "UnhidingTwirl::alwaysOpens",
         [](HostOptions& o) { o.unhidingTwirl = UnhidingTwirl::alwaysOpens; }},
        {"un-hiding-always-folds", "UnhidingTwirl::alwaysFolds",
         [](HostOptions& o) { o.unhidingTwirl = UnhidingTwirl::alwaysFolds; }},
        {"the-host-takes-the-focus", "FocusAtClicks::isTaken",
         [](HostOptions& o) { o.focusAtClicks = FocusAtClicks::isTaken; }},
        {"the-host-counts-x-errors", "XErrors::areCounted",
         [](HostOptions& o) { o.xErrors = XErrors::areCounted; }},
        {"a-failed-acquire-leaves-the-pointer", "FailedAcquire::leavesPointerAlone",
         [](HostOptions& o) { o.failedAcquire = FailedAcquire::leavesPointerAlone; }},
        {"the-walk-ends-with-an-error", "WalkEnd::isError",
         [](HostOptions& o) { o.walkEnd = WalkEnd::isError; }},
        {"deleted-effects-cannot-be-disposed-of", "DisposeDeleted::isRefused",
         [](HostOptions& o) { o.disposeDeleted = DisposeDeleted::isRefused; }},
        {"parameters-take-names", "ParameterRename::isTaken",
         [](HostOptions& o) { o.parameterRename = ParameterRename::isTaken; }},
        {"suites-fail-at-death", "SuitesAtDeath::fail",
         [](HostOptions& o) { o.suitesAtDeath = SuitesAtDeath::fail; }},
        {"unused-suites-are-reported", "UnusedAcquire::isFinding",
         [](HostOptions& o) { o.unusedAcquire = UnusedAcquire::isFinding; }},
        {"every-call-idles", "IdleInCalls::always",
         [](HostOptions& o) { o.idleInCalls = IdleInCalls::always; }},
    };
    return all;
}

const HostSwitch* FindHostSwitch(const std::string& word)
{
    const auto& all = HostSwitches();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const HostSwitch& each) { return word == each.word; });
    return found == all.end() ? nullptr : &*found;
}
} // namespace standin
