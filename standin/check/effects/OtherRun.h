#pragma once
// Work in another run of the host.

#include <cstdint>
#include <functional>
#include <vector>

namespace standin::check
{
/// Does the work in a process of its own and gives what it gave. Called before this process has loaded the
/// module, so that neither of the two knows anything of the other. Throws std::runtime_error if the process
/// does not get through.
std::vector<std::uint8_t> InOtherRun(const std::function<std::vector<std::uint8_t>()>& work);
} // namespace standin::check
