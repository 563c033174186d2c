#include "standin/check/StackOrders.h"

#include <algorithm>
#include <functional>

namespace standin::check
{
namespace
{
constexpr int nobody = 0;

/// Which places of a list a fault has struck.
using Struck = std::function<bool(std::size_t)>;

bool never(std::size_t) { return false; }

StackOrder without(StackOrder order, const Struck& struck)
{
    StackOrder left;
    for (std::size_t i = 0; i < order.size(); ++i)
        if (!struck(i))
            left.push_back(order[i]);
    return left;
}

void moveEntry(StackOrder& order, std::size_t from, std::size_t to)
{
    const int id = order[from];
    order.erase(order.begin() + static_cast<std::ptrdiff_t>(from));
    order.insert(order.begin() + static_cast<std::ptrdiff_t>(std::min(to, order.size())), id);
}

/// What is known of the stack: those of `wanted`, as far as they were recognised.
StackOrder known(const StackOrder& stack, const StackOrder& wanted, const Struck& unread)
{
    StackOrder belief = stack;
    for (std::size_t i = 0; i < belief.size(); ++i)
        if (unread(i) || std::find(wanted.begin(), wanted.end(), belief[i]) == wanted.end())
            belief[i] = nobody;
    return belief;
}

/// A move down is believed to end one place higher than the host puts the effect.
StackOrder reorder(StackOrder stack, const StackOrder& wanted, const Struck& unread, const Struck& refused)
{
    StackOrder belief = known(stack, wanted, unread);
    for (std::size_t place = 0; place < wanted.size(); ++place)
    {
        const auto found = std::find(belief.begin(), belief.end(), wanted[place]);
        if (found == belief.end())
            continue;
        const auto from = static_cast<std::size_t>(found - belief.begin());
        if (!refused(place) && place < stack.size())
            moveEntry(stack, from, place);
        moveEntry(belief, from, from < place ? place - 1 : place);
    }
    return stack;
}

/// Those of `ids`, in this order.
StackOrder sortedAs(const StackOrder& order, const StackOrder& ids)
{
    return without(order, [&](std::size_t i) { return std::count(ids.begin(), ids.end(), order[i]) == 0; });
}

/// Each place alone, and each with all that follow.
std::vector<Struck> strokes(std::size_t places)
{
    std::vector<Struck> all;
    for (std::size_t at = 0; at < places; ++at)
    {
        all.emplace_back([at](std::size_t i) { return i == at; });
        all.emplace_back([at](std::size_t i) { return i >= at; });
    }
    return all;
}
} // namespace

std::set<StackOrder> OrdersOfFaultyReorder(const StackOrder& stack, const StackOrder& wanted)
{
    std::set<StackOrder> orders = {stack};
    const auto add = [&](const StackOrder& order)
    {
        orders.insert(order);
        orders.insert(reorder(order, sortedAs(order, wanted), never, never));
    };
    add(reorder(stack, wanted, never, never));
    for (const Struck& stroke : strokes(stack.size()))
    {
        add(reorder(stack, without(wanted, stroke), never, never));
        add(reorder(stack, wanted, stroke, never));
        add(reorder(stack, wanted, never, stroke));
    }
    return orders;
}

std::set<StackOrder> OrdersOfFaultyDeletion(const StackOrder& stack, const std::set<int>& doomed,
                                            const StackOrder& wanted)
{
    std::set<StackOrder> orders;
    const auto add = [&](const StackOrder& order)
    {
        orders.insert(order);
        orders.insert(reorder(order, wanted, never, never));
    };
    StackOrder inOrder;
    for (const int id : stack)
        if (doomed.count(id) != 0)
            inOrder.push_back(id);
    std::vector<Struck> overlooked = strokes(inOrder.size());
    overlooked.emplace_back(never);
    for (const Struck& stroke : overlooked)
    {
        StackOrder moved = stack;
        add(moved);
        std::size_t top = 0;
        for (const int id : without(inOrder, stroke))
        {
            const auto at = std::find(moved.begin(), moved.end(), id) - moved.begin();
            moveEntry(moved, static_cast<std::size_t>(at), top++);
            add(moved);
        }
    }
    return orders;
}

StackOrder OrderOfRows(const StackOrder& stack, const std::map<int, int>& groups)
{
    constexpr int highestGroup = 10;
    std::vector<StackOrder> rows;
    std::map<int, std::size_t> rowOfGroup;
    StackOrder others;
    for (const int id : stack)
    {
        const auto group = groups.find(id);
        if (group == groups.end())
        {
            others.push_back(id);
            continue;
        }
        const bool isGrouped = group->second >= 1 && group->second <= highestGroup;
        const auto row =
            isGrouped ? rowOfGroup.emplace(group->second, rows.size()).first->second : rows.size();
        if (row == rows.size())
            rows.emplace_back();
        rows[row].push_back(id);
    }
    StackOrder order;
    for (const StackOrder& row : rows)
        order.insert(order.end(), row.begin(), row.end());
    order.insert(order.end(), others.begin(), others.end());
    return order;
}
} // namespace standin::check
