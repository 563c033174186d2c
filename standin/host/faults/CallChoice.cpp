#include "standin/host/faults/CallChoice.h"

#include <utility>

namespace standin
{
CallChoice::CallChoice(std::string theFunction, std::size_t nth, CallSpan theSpan)
    : function(std::move(theFunction)), countdown(nth), span(theSpan)
{
}

CallChoice::CallChoice(std::string theSuite, A_long theVersion, std::string theFunction, std::size_t nth,
                       CallSpan theSpan)
    : suite(std::move(theSuite)),
      version(theVersion),
      function(std::move(theFunction)),
      countdown(nth),
      span(theSpan)
{
}

bool CallChoice::matches(const CallPoint& call) const
{
    return (function.empty() || function == call.function) && (!suite || *suite == call.suite) &&
           (version == 0 || version == call.version);
}

bool CallChoice::Picks(const CallPoint& call)
{
    if (lasting)
        return span == CallSpan::everythingForGood ||
               (lasting->suite == call.suite && lasting->version == call.version &&
                lasting->function == call.function);
    if (countdown == 0 || !matches(call) || --countdown > 0)
        return false;
    if (span != CallSpan::once)
        lasting = call;
    return true;
}
} // namespace standin
