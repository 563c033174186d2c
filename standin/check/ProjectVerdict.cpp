#include "standin/check/ProjectVerdict.h"

#include "standin/check/StackOrders.h"
#include "standin/host/core/HostParts.h"
#include "standin/host/suites/Arguments.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <set>

namespace standin::check
{
namespace
{
using Stack = std::vector<SeenEffect>;

SeenEffect see(const Project& project, const EffectInstance& effect)
{
    SeenEffect seen;
    seen.id = effect.id;
    seen.key = effect.key;
    const InstalledEffect* installed = project.InstalledOf(effect);
    seen.ofFamily = installed != nullptr && installed->matchName.rfind("QVK VORT", 0) == 0;
    seen.name = project.NameOf(effect);
    seen.group = effect.family.group;
    seen.flags = effect.flags;
    seen.hidden = effect.groupHidden;
    for (const Parameter& parameter : effect.parameters)
        seen.hiddenParameters.push_back(parameter.hidden);
    return seen;
}

const SeenEffect* find(const Stack& stack, int id)
{
    const auto found =
        std::find_if(stack.begin(), stack.end(), [id](const SeenEffect& effect) { return effect.id == id; });
    return found == stack.end() ? nullptr : &*found;
}

StackOrder idsOf(const Stack& stack, const std::function<bool(const SeenEffect&)>& which)
{
    StackOrder ids;
    for (const SeenEffect& effect : stack)
        if (which(effect))
            ids.push_back(effect.id);
    return ids;
}

bool any(const SeenEffect&) { return true; }

/// Those of `order` that the stack holds.
StackOrder among(const StackOrder& order, const Stack& stack)
{
    StackOrder ids;
    for (const int id : order)
        if (find(stack, id) != nullptr)
            ids.push_back(id);
    return ids;
}

class Judge
{
public:
    Judge(const Stack& stackBefore, const Stack& stackWanted, const Stack& stackAfter,
          const std::set<std::string>& failedFunctions, ProjectFates& theFates)
        : before(stackBefore),
          wanted(stackWanted),
          after(stackAfter),
          failed(failedFunctions),
          fates(theFates)
    {
    }

    void Run()
    {
        presence();
        order();
        for (const SeenEffect& effect : after)
            fields(effect);
    }

private:
    void violate(const std::string& what)
    {
        if (fates.violation.empty())
            fates.violation = what;
    }

    /// Null if no row does.
    const Allowance* rowAllowing(Fate fate) const
    {
        for (const Allowance& row : Allowances())
            if (row.fate == fate && failed.count(row.function) != 0)
                return &row;
        return nullptr;
    }

    /// Notes the row that allows it, or the violation.
    void meet(Fate fate, const std::string& what)
    {
        if (const Allowance* row = rowAllowing(fate))
            fates.needed.push_back(row);
        else
            violate(what);
    }

    /// Only what was to go may be gone, and only what was to come may have come.
    void presence()
    {
        for (const SeenEffect& effect : before)
            if (find(after, effect.id) == nullptr && find(wanted, effect.id) != nullptr)
                violate("the effect \"" + effect.name + "\" is gone");
        for (const SeenEffect& effect : wanted)
            if (find(before, effect.id) == nullptr)
                due.insert(effect.key);
        for (const SeenEffect& effect : after)
        {
            if (find(before, effect.id) != nullptr)
                continue;
            const auto expected = due.find(effect.key);
            if (expected == due.end())
                violate("nobody has asked for the effect \"" + effect.name + "\"");
            else
                due.erase(expected);
        }
    }

    void order()
    {
        const StackOrder old = idsOf(before, any);
        const StackOrder found = among(idsOf(after, any), before);
        const bool isOldOrWanted = found == among(old, after) || found == among(idsOf(wanted, any), after);
        if (!isOldOrWanted && !isMixedByRule(found, old))
            return violate(
                "the order is neither the old one nor the new one, and no step that fails gives it");
        if (!isOldOrWanted)
            meet(isOfRows(found) ? Fate::orderOfRows : Fate::orderMixed,
                 "the order is neither the old one nor the new one");
        if (isOldOrWanted)
            placesOfNew();
    }

    /// Where only some of the new effects have come, they stand as in the new order without the others.
    void placesOfNew()
    {
        std::vector<A_long> expected;
        for (const SeenEffect& effect : wanted)
        {
            const auto missing = find(before, effect.id) == nullptr ? due.find(effect.key) : due.end();
            if (missing != due.end())
                due.erase(missing);
            else if (find(before, effect.id) == nullptr || find(after, effect.id) != nullptr)
                expected.push_back(effect.key);
        }
        std::vector<A_long> keys;
        bool areThereNew = false;
        for (const SeenEffect& effect : after)
        {
            const bool isNew = find(before, effect.id) == nullptr;
            areThereNew = areThereNew || isNew;
            if (isNew || find(wanted, effect.id) != nullptr)
                keys.push_back(effect.key);
        }
        if (areThereNew && keys != expected)
            meet(Fate::newElsewhere, "a new effect stands at a wrong place");
    }

    bool isMixedByRule(const StackOrder& found, const StackOrder& old) const
    {
        std::set<int> doomed;
        for (const SeenEffect& effect : before)
            if (find(wanted, effect.id) == nullptr)
                doomed.insert(effect.id);
        const StackOrder objects = idsOf(wanted, [](const SeenEffect& effect) { return effect.ofFamily; });
        StackOrder left;
        std::copy_if(old.begin(), old.end(), std::back_inserter(left),
                     [&](int id) { return doomed.count(id) == 0; });
        std::set<StackOrder> orders = OrdersOfFaultyReorder(left, among(objects, before));
        if (!doomed.empty())
            orders.merge(OrdersOfFaultyDeletion(old, doomed, among(objects, before)));
        const std::map<int, int> groups = groupsOfObjects();
        return std::any_of(orders.begin(), orders.end(),
                           [&](const StackOrder& each)
                           {
                               const StackOrder mixed = among(each, after);
                               return mixed == found || OrderOfRows(mixed, groups) == found;
                           });
    }

    std::map<int, int> groupsOfObjects() const
    {
        std::map<int, int> groups;
        for (const SeenEffect& effect : after)
            if (effect.ofFamily)
                groups[effect.id] = effect.group;
        return groups;
    }

    /// Whether it is the old or the new order as the rows show it, and a row allows that.
    bool isOfRows(const StackOrder& found) const
    {
        if (rowAllowing(Fate::orderOfRows) == nullptr)
            return false;
        const std::map<int, int> groups = groupsOfObjects();
        return found == OrderOfRows(among(idsOf(before, any), after), groups) ||
               found == OrderOfRows(among(among(idsOf(wanted, any), before), after), groups);
    }

    void fields(const SeenEffect& effect)
    {
        const SeenEffect* const former = find(before, effect.id);
        const SeenEffect* const intended = find(wanted, effect.id);
        const SeenEffect target = former == nullptr     ? newOf(effect)
                                  : intended != nullptr ? *intended
                                                        : *former;
        const SeenEffect old = former == nullptr ? asApplied(target) : *former;
        const std::string who = "the effect \"" + old.name + "\"";
        if (effect.name != old.name && effect.name != target.name)
            name(effect, who + " is called \"" + effect.name + "\"");
        if (effect.group != old.group && effect.group != target.group)
            meetIf(effect.group == 0, Fate::leftGroup, who + " is in group " + std::to_string(effect.group));
        if (effect.flags != old.flags && effect.flags != target.flags)
            meetIf(effect.flags == (old.flags & ~effectActive),
                   areAllBelowOff(effect) ? Fate::switchedOff : Fate::switchedOffAlone,
                   who + " has the flags " + std::to_string(effect.flags));
        if (effect.hidden != old.hidden && effect.hidden != target.hidden)
            meet(hidingOf(effect, old, target), who + (effect.hidden ? " is hidden" : " is shown"));
        parameters(effect, old, target, who);
    }

    Fate hidingOf(const SeenEffect& effect, const SeenEffect& old, const SeenEffect& target) const
    {
        if (!effect.ofFamily)
            return Fate::outsiderHidden;
        const bool isNameRefused = effect.name == old.name && old.name != target.name;
        const bool isDeletionRefused =
            std::any_of(after.begin(), after.end(),
                        [this](const SeenEffect& each)
                        { return find(before, each.id) != nullptr && find(wanted, each.id) == nullptr; });
        const bool isRefusal = isNameRefused || isDeletionRefused;
        return isRefusal && rowAllowing(Fate::hiddenAfterRefusal) != nullptr ? Fate::hiddenAfterRefusal
                                                                             : Fate::hiddenWrongly;
    }

    /// The new effect that was wanted in its place. The ids of new effects go by the order of their coming.
    SeenEffect newOf(const SeenEffect& effect) const
    {
        for (const SeenEffect& each : wanted)
            if (each.key == effect.key && find(before, each.id) == nullptr)
                return each;
        return effect;
    }

    static SeenEffect asApplied(SeenEffect effect)
    {
        effect.hidden = false;
        effect.hiddenParameters.assign(effect.hiddenParameters.size(), false);
        return effect;
    }

    void name(const SeenEffect& effect, const std::string& what)
    {
        if (effect.name == garbageText)
            return meet(Fate::nameGarbled, what);
        meetIf(effect.name.empty() || isNameOfOneAbove(effect), Fate::nameRepeated, what);
    }

    /// Above it in the order in which it was read, which was the old one or is the present one.
    bool isNameOfOneAbove(const SeenEffect& effect) const
    {
        const auto bearsIt = [&](int id)
        {
            const SeenEffect* other = find(after, id);
            return other != nullptr && other->name == effect.name;
        };
        for (const StackOrder& order : {idsOf(before, any), idsOf(after, any)})
            if (std::any_of(order.begin(), std::find(order.begin(), order.end(), effect.id), bearsIt) &&
                std::find(order.begin(), order.end(), effect.id) != order.end())
                return true;
        return false;
    }

    bool areAllBelowOff(const SeenEffect& effect) const
    {
        const auto at = std::find_if(after.begin(), after.end(),
                                     [&](const SeenEffect& each) { return each.id == effect.id; });
        return std::all_of(at, after.end(),
                           [](const SeenEffect& each)
                           { return !each.ofFamily || (each.flags & effectActive) == 0; });
    }

    void parameters(const SeenEffect& effect, const SeenEffect& old, const SeenEffect& target,
                    const std::string& who)
    {
        for (std::size_t i = 0; i < effect.hiddenParameters.size(); ++i)
            if (effect.hiddenParameters[i] != old.hiddenParameters[i] &&
                effect.hiddenParameters[i] != target.hiddenParameters[i])
                meetIf(i == 1 && effect.ofFamily, Fate::parameterHidden,
                       "parameter " + std::to_string(i) + " of " + who + " is hidden or shown");
    }

    void meetIf(bool isThisFate, Fate fate, const std::string& what)
    {
        isThisFate ? meet(fate, what) : violate(what);
    }

    const Stack& before;
    const Stack& wanted;
    const Stack& after;
    const std::set<std::string>& failed;
    ProjectFates& fates;
    std::multiset<A_long> due; ///< The keys of what was to come and has not.
};

std::set<std::string> failedFunctions(const std::vector<CallRecord>& calls)
{
    std::set<std::string> functions;
    for (const CallRecord& call : calls)
        if (call.struck || (call.function == "AcquireSuite" && call.error != errNone))
            functions.insert(call.function);
    return functions;
}
} // namespace

SeenProject SeeProject(Host& host)
{
    SeenProject seen;
    seen.rest = host.State();
    for (Layer& layer : seen.rest.layers)
    {
        Stack& stack = seen.layers[layer.id];
        for (const EffectInstance& effect : layer.effects)
            stack.push_back(see(host.ProjectView(), effect));
        layer.effects.clear();
    }
    return seen;
}

std::vector<std::string> UndoableLines(const SeenProject& project)
{
    std::vector<std::string> lines;
    for (const auto& [layer, stack] : project.layers)
        for (const SeenEffect& effect : stack)
            lines.push_back(std::to_string(layer) + " " + std::to_string(effect.id) + " " + effect.name +
                            " " + std::to_string(effect.group) + " " + std::to_string(effect.flags));
    return lines;
}

ProjectFates JudgeProject(const ComparedProject& compared, const std::vector<CallRecord>& calls,
                          bool isOutOfMemory)
{
    ProjectFates fates;
    if (compared.after.rest != compared.before.rest && compared.after.rest != compared.wanted.rest)
        fates.violation = "something other than the effects has changed in the project";
    std::set<std::string> failed = failedFunctions(calls);
    if (isOutOfMemory)
        failed.insert("operator new");
    for (const auto& [layer, stack] : compared.after.layers)
        if (compared.before.layers.count(layer) != 0 && compared.wanted.layers.count(layer) != 0)
            Judge(compared.before.layers.at(layer), compared.wanted.layers.at(layer), stack, failed, fates)
                .Run();
    return fates;
}
} // namespace standin::check
