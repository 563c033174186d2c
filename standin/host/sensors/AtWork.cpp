#include "standin/host/sensors/AtWork.h"

#include <utility>

namespace standin
{
namespace
{
thread_local AtWork atWork = AtWork::host;
} // namespace

AtWork WhoIsAtWork() { return atWork; }

Working::Working(AtWork who) : before(std::exchange(atWork, who)) {}
Working::~Working() { atWork = before; }
} // namespace standin
