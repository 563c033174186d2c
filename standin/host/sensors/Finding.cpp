#include "standin/host/sensors/Finding.h"

namespace standin
{
std::string Finding::Text() const
{
    std::string text = id + ": " + sentence;
    if (!call.empty())
        text += " [" + call + "]";
    if (!origin.empty())
        text += " (" + origin + ")";
    return text;
}
} // namespace standin
