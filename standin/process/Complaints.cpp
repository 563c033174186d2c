#include "standin/process/Complaints.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <vector>

namespace standin::process
{
std::string ComplaintsIn(const std::string& printed)
{
    std::vector<std::string> complaints;
    std::istringstream lines(printed);
    for (std::string line; std::getline(lines, line);)
    {
        const bool isComplaint = line.find("JUCE Assertion failure") != std::string::npos ||
                                 line.find("Leaked objects detected") != std::string::npos;
        if (isComplaint && std::find(complaints.begin(), complaints.end(), line) == complaints.end())
            complaints.push_back(line);
    }
    std::string text;
    for (const std::string& complaint : complaints)
        text += (text.empty() ? "" : "\n") + complaint;
    return text;
}

void LeaveWithLeakReports()
{
    std::exit(0); // NOLINT(concurrency-mt-unsafe)
}
} // namespace standin::process
