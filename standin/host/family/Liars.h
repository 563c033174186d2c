#pragma once
// Effects that do not behave. Give one to an instance (host.Effect("B").behaviour = ...) or to an
// installed effect.

#include <functional>
#include <memory>

#include "standin/host/family/FamilyBehaviour.h"

namespace standin
{
/// Leaves the first `messages` messages unanswered, as an effect does that is not set up yet.
std::shared_ptr<const Behaviour> AnswersLate(int messages);

/// Gives this error to every message and answers nothing.
std::shared_ptr<const Behaviour> FailsWith(A_Err error);

/// Gives this error, but only after having answered.
std::shared_ptr<const Behaviour> AnswersAndFailsWith(A_Err error);

/// Always answers this identity, so that two effects have the same one.
std::shared_ptr<const Behaviour> RepeatsIdentity(Identity identity);

/// Answers as it should and fills the reserved bytes of the record with 0xA5.
std::shared_ptr<const Behaviour> ScribblesReserved();

/// Fills all 128 bytes with 0xA5 and answers nothing.
std::shared_ptr<const Behaviour> ScribblesAll();

/// Answers this group whatever it is told.
std::shared_ptr<const Behaviour> AnswersGroup(std::int16_t group);

/// Answers, and runs `action` inside the `nth` message that it gets, counted from 1. The action may
/// change the stack, for example by host.User().Delete(...).
std::shared_ptr<const Behaviour> ActsInMessage(std::function<void(Host&)> action, int nth = 1);

/// Throws this integer out of the message.
std::shared_ptr<const Behaviour> Throws(int number);
} // namespace standin
