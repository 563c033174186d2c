#include "standin/host/faults/AllocationPlan.h"

#include "standin/host/sensors/AtWork.h"

namespace standin
{
namespace
{
thread_local std::size_t left = 0;
thread_local bool hasFailed = false;
} // namespace

void FailAllocation(std::size_t nth)
{
    left = nth;
    hasFailed = false;
}

bool HasAllocationFailed() { return hasFailed; }

bool MustAllocationFail()
{
    if (left == 0 || WhoIsAtWork() == AtWork::host || --left > 0)
        return false;
    hasFailed = true;
    return true;
}
} // namespace standin
