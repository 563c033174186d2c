#include "standin/host/sensors/Sensors.h"

namespace standin
{
void Sensors::Report(const char* id, const std::string& sentence)
{
    Finding finding;
    finding.id = id;
    finding.sentence = sentence;
    if (!running.empty())
    {
        finding.call = running.back().head;
        finding.function = running.back().function;
    }
    findings.Add(std::move(finding));
}
} // namespace standin
