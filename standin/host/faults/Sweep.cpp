#include "standin/host/faults/Sweep.h"

namespace standin
{
std::string SweptFault::Text() const
{
    if (ordinal == 0)
        return "no fault";
    const char* lasting = length == FaultLength::once              ? "once"
                          : length == FaultLength::functionForGood ? "for good"
                                                                   : "with everything after it";
    return "call " + std::to_string(ordinal) + " fails " + lasting + " with " + std::to_string(error) + ": " +
           call;
}
} // namespace standin
