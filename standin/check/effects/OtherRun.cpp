#include "standin/check/effects/OtherRun.h"

#include "standin/process/Child.h"

#include <stdexcept>

namespace standin::check
{
std::vector<std::uint8_t> InOtherRun(const std::function<std::vector<std::uint8_t>()>& work)
{
    process::Child child(
        [&work]
        {
            try
            {
                const std::vector<std::uint8_t> bytes = work();
                process::WriteAll(process::reportDescriptor, {bytes.begin(), bytes.end()});
                return 0;
            }
            catch (...)
            {
                return 1;
            }
        });
    child.Wait();
    if (child.ExitCode() != 0)
        throw std::runtime_error("the effect did not get through the other run");
    return {child.Told().begin(), child.Told().end()};
}
} // namespace standin::check
