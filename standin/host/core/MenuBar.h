#pragma once
// The menu items that plug-ins have put into the host's menus.

#include <string>
#include <vector>

#include "standin/host/core/Abi.h"

namespace standin
{
struct MenuItem
{
    A_long command = 0;
    std::string name;
    A_char menu = 0;
    bool enabled = false;
    bool ticked = false;
};

class MenuBar
{
public:
    A_long MakeCommand() { return nextCommand++; }
    /// Whether MakeCommand gave this number.
    bool IsOwn(A_long command) const { return command >= firstCommand && command < nextCommand; }
    /// All commands at once, those that were handed out, and those of the host.
    bool MayBeHooked(A_long command) const;

    void Insert(MenuItem item);
    MenuItem* Find(A_long command);
    const MenuItem* FindByName(const std::string& name) const;
    /// Turns every item off and unticks it, as the host does before each update.
    void Reset();
    /// Sorted by name.
    const std::vector<MenuItem>& Items() const { return items; }

private:
    static constexpr A_long firstCommand = 1001;
    A_long nextCommand = firstCommand;
    std::vector<MenuItem> items;
};
} // namespace standin
