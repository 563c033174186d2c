#include "standin/host/sensors/Finding.h"

namespace standin
{
std::string Finding::Text() const
{
    std::string text = id + ": " + sentence;
    const std::string inHook = hook.empty() ? "" : "in the " + hook;
    if (!call.empty() || !hook.empty())
        text += " [" + call + (call.empty() || hook.empty() ? "" : ", ") + inHook + "]";
    if (!origin.empty())
        text += " (" + origin + ")";
    return text;
}
} // namespace standin
