#include "standin/host/sensors/CallTrace.h"

#include <algorithm>
#include <utility>

namespace standin
{
std::string CallRecord::Text() const
{
    if (error != errNone)
        return head + " = " + std::to_string(error);
    return answers.empty() ? head : head + " -> " + answers;
}

CallTrace::CallTrace(std::size_t recordLimit) : limit(recordLimit) {}

std::size_t CallTrace::Begin(CallRecord record)
{
    record.ordinal = ++count;
    if (limit != 0 && records.size() >= 2 * limit)
        records.erase(records.begin(), records.end() - static_cast<std::ptrdiff_t>(limit));
    records.push_back(std::move(record));
    return count;
}

void CallTrace::End(std::size_t ordinal, A_Err error, std::string answers, bool struck)
{
    const auto found =
        std::find_if(records.rbegin(), records.rend(),
                     [ordinal](const CallRecord& record) { return record.ordinal == ordinal; });
    if (found == records.rend())
        return; // Cleared while the call ran.
    found->error = error;
    found->answers = std::move(answers);
    found->struck = struck;
}

std::vector<std::string> CallTrace::Texts(SuiteTraffic traffic) const
{
    std::vector<std::string> texts;
    for (const CallRecord& record : records)
    {
        const bool isTraffic =
            record.suite.empty() && (record.function == "AcquireSuite" || record.function == "ReleaseSuite");
        if (!isTraffic || traffic == SuiteTraffic::included)
            texts.push_back(record.Text());
    }
    return texts;
}

bool DoesWork(const std::string& call)
{
    constexpr const char* working[] = {"AEGP_GetLayerParentComp", "AEGP_StartUndoGroup", "AEGP_ApplyEffect",
                                       "AEGP_SetEffectFlags",     "AEGP_ReorderEffect",  "AEGP_DoCommand",
                                       "AEGP_SetStreamName"};
    return std::any_of(std::begin(working), std::end(working),
                       [&](const char* name) { return call.find(name) != std::string::npos; });
}
} // namespace standin
