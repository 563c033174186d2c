#include "tests/appkit/Catching.h"

#include <stdexcept>

namespace standin
{
int CatchInteger(const std::function<void()>& action)
{
    try
    {
        action();
    }
    catch (int thrown)
    {
        return thrown;
    }
    return 0;
}

bool ThrowsOutOfRange(const std::function<void()>& action)
{
    try
    {
        action();
    }
    catch (const std::out_of_range&)
    {
        return true;
    }
    return false;
}
} // namespace standin
