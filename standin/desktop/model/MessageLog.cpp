#include "standin/desktop/model/MessageLog.h"

namespace standin::desktop
{
void MessageLog::Add(MessageKind kind, const std::string& text)
{
    ++revision;
    if (!messages.empty() && messages.back().kind == kind && messages.back().text == text)
    {
        ++messages.back().times;
        return;
    }
    messages.push_back({kind, text, 1});
    if (messages.size() > limit)
        messages.pop_front();
}

void MessageLog::Clear()
{
    ++revision;
    messages.clear();
}
} // namespace standin::desktop
