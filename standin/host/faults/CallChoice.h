#pragma once
// Picks calls out of all that come through the host's tables: by their number, by their function, or from
// one of them on.

#include <cstddef>
#include <optional>
#include <string>

#include "standin/host/core/Abi.h"

namespace standin
{
/// What a call is known by.
struct CallPoint
{
    std::string suite; ///< Empty for the basic suite.
    A_long version = 0;
    std::string function;
};

/// Which calls are picked once the first one has been.
enum class CallSpan
{
    once,
    functionForGood, ///< That call and every later call of the same function of the same suite.
    everythingForGood
};

/// Lives through the calls that it chooses from, each of which is shown to it once.
class CallChoice
{
public:
    /// The `ordinal`-th call from now on, counted from 1.
    CallChoice(std::size_t ordinal, CallSpan theSpan) : countdown(ordinal), span(theSpan) {}
    /// The `nth` call of a function from now on, counted from 1, whatever its suite.
    CallChoice(std::string function, std::size_t nth, CallSpan span);
    /// The same for one suite; version 0 means any.
    CallChoice(std::string suite, A_long version, std::string function, std::size_t nth, CallSpan span);

    /// Whether this call is one of them.
    bool Picks(const CallPoint& call);

private:
    bool matches(const CallPoint& call) const;

    std::optional<std::string> suite; ///< None for any.
    A_long version = 0;
    std::string function; ///< Empty for any.
    std::size_t countdown;
    CallSpan span;
    std::optional<CallPoint> lasting; ///< The first one, if it was picked and the choice lasts.
};
} // namespace standin
