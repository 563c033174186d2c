#include "standin/host/core/MenuBar.h"

#include <algorithm>

namespace standin
{
bool MenuBar::MayBeHooked(A_long command) const
{
    const bool isHosts =
        command == commandUndo || command == commandRedo || command == commandPurgeImageCaches;
    return command == 0 || isHosts || IsOwn(command);
}

void MenuBar::Insert(MenuItem item)
{
    const auto behind =
        std::upper_bound(items.begin(), items.end(), item,
                         [](const MenuItem& a, const MenuItem& b) { return a.name < b.name; });
    items.insert(behind, std::move(item));
}

MenuItem* MenuBar::Find(A_long command)
{
    const auto found = std::find_if(items.begin(), items.end(),
                                    [=](const MenuItem& item) { return item.command == command; });
    return found == items.end() ? nullptr : &*found;
}

const MenuItem* MenuBar::FindByName(const std::string& name) const
{
    const auto found =
        std::find_if(items.begin(), items.end(), [&](const MenuItem& item) { return item.name == name; });
    return found == items.end() ? nullptr : &*found;
}

void MenuBar::Reset()
{
    for (MenuItem& item : items)
        item.enabled = item.ticked = false;
}
} // namespace standin
