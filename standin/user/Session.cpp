#include "standin/user/Session.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace standin::user
{
void Session::Settle()
{
    collect();
    std::size_t seen = heard.calls.size();
    const auto isBusy = [&]
    {
        collect();
        const auto news =
            heard.calls.begin() + static_cast<std::ptrdiff_t>(std::exchange(seen, heard.calls.size()));
        return std::any_of(news, heard.calls.end(), &DoesWork);
    };
    if (!IdleUntilStill(PanelArea(), isBusy))
        throw std::runtime_error("the panel never comes to rest");
}

void Session::ClickHost()
{
    Click(HostPlace());
    collect();
}

const std::vector<std::string>& Session::Printed()
{
    collect();
    return heard.printed;
}

const std::vector<std::string>& Session::Calls()
{
    collect();
    return heard.calls;
}

const std::vector<std::string>& Session::HostKeys()
{
    collect();
    return heard.keys;
}

void Session::Forget()
{
    collect();
    // With their room: how much they needed depends on how busy the machine was.
    for (auto* texts : {&heard.printed, &heard.calls, &heard.keys})
        std::vector<std::string>().swap(*texts);
}
} // namespace standin::user
