#include "bench/Page.h"

#include <array>
#include <ctime>
#include <fstream>
#include <juce_core/juce_core.h>
#include <sstream>
#include <stdexcept>
#include <sys/utsname.h>
#include <thread>

namespace standin
{
namespace
{
std::string replaceBetween(const std::string& text, const std::string& mark, const std::string& content)
{
    const std::string begin = "<!-- " + mark + " -->\n";
    const std::string end = "<!-- end of " + mark + " -->";
    const auto from = text.find(begin);
    const auto to = text.find(end);
    if (from == std::string::npos || to == std::string::npos)
        throw std::runtime_error("the page has no place for the " + mark);
    return text.substr(0, from + begin.size()) + content + text.substr(to);
}

std::string processorName()
{
    std::ifstream file("/proc/cpuinfo");
    for (std::string line; std::getline(file, line);)
        if (line.rfind("model name", 0) == 0)
            return line.substr(line.find(':') + 2);
    return "an unknown processor";
}

std::string today()
{
    const std::time_t now = std::time(nullptr);
    char text[16] = {};
    (void)std::strftime(text, sizeof text, "%Y-%m-%d", std::gmtime(&now));
    return text;
}

std::string describeMachine()
{
    utsname system{};
    (void)uname(&system);
    std::ostringstream text;
    text << "Measured on " << today() << " on " << processorName() << ", "
         << std::thread::hardware_concurrency() << " processors, " << system.sysname << " " << system.machine
         << ", compiled by "
#ifdef __clang__
         << "clang "
#else
         << "GCC "
#endif
         << __VERSION__ << " with the flags of the `release` preset, JUCE " << JUCE_MAJOR_VERSION << "."
         << JUCE_MINOR_VERSION << "." << JUCE_BUILDNUMBER << ", on an X server without a screen.\n";
    return text.str();
}

std::string timeText(double nanoseconds)
{
    constexpr std::array<const char*, 3> units = {"ns", "µs", "ms"};
    std::size_t unit = 0;
    for (; unit + 1 < units.size() && nanoseconds >= 1000; ++unit)
        nanoseconds /= 1000;
    std::ostringstream text;
    text.precision(3);
    text << nanoseconds << " " << units[unit];
    return text.str();
}

std::string numberText(double number)
{
    std::ostringstream text;
    text.precision(3);
    text << number;
    return text.str();
}

std::string rowText(const Result& result)
{
    std::ostringstream row;
    row << "| " << result.name << " | " << (result.count < 0 ? "" : std::to_string(result.count)) << " | "
        << timeText(result.time) << " | " << (result.floor > 0 ? timeText(result.floor) : "") << " | "
        << (result.floor > 0 ? numberText(result.Ratio()) : "") << " | " << result.calls << " | "
        << result.taken.allocations << " | " << result.taken.bytes << " |\n";
    return row.str();
}

std::string tablesOf(const std::vector<Result>& results)
{
    std::string text;
    std::string group;
    for (const Result& result : results)
    {
        if (result.group != group)
        {
            group = result.group;
            text += "\n### " + group + "\n\n" +
                    "| What | N | Time | Floor | Ratio | Host calls | Allocations | Bytes |\n"
                    "|---|---:|---:|---:|---:|---:|---:|---:|\n";
        }
        text += rowText(result);
    }
    return text + "\n";
}
} // namespace

void WritePage(const std::string& file, const std::vector<Result>& results)
{
    std::ostringstream was;
    was << std::ifstream(file).rdbuf();
    std::string page = replaceBetween(was.str(), "machine", describeMachine());
    page = replaceBetween(page, "figures", tablesOf(results));
    std::ofstream(file) << page;
}
} // namespace standin
