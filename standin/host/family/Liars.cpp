#include "standin/host/family/Liars.h"

#include <cstring>

#include "standin/host/core/Host.h"

namespace standin
{
namespace
{
constexpr int scribble = 0xA5;

class Late : public FamilyBehaviour
{
public:
    explicit Late(int count) : silent(count) {}
    A_Err OnGeneralCommand(const EffectCall& call, A_Time compTime, void* extra) const override
    {
        if (call.Runtime().messages <= silent)
            return errNone;
        return FamilyBehaviour::OnGeneralCommand(call, compTime, extra);
    }

private:
    int silent;
};

enum class AnswerFirst
{
    no,
    yes
};

class Failing : public FamilyBehaviour
{
public:
    Failing(A_Err code, AnswerFirst answerFirst) : error(code), answer(answerFirst) {}
    A_Err OnGeneralCommand(const EffectCall& call, A_Time compTime, void* extra) const override
    {
        if (answer == AnswerFirst::yes)
            (void)FamilyBehaviour::OnGeneralCommand(call, compTime, extra);
        return error;
    }

private:
    A_Err error;
    AnswerFirst answer;
};

class Repeating : public FamilyBehaviour
{
public:
    explicit Repeating(const Identity& repeated) : identity(repeated) {}
    A_Err OnGeneralCommand(const EffectCall& call, A_Time compTime, void* extra) const override
    {
        if (extra != nullptr && message::CommandOf(extra) == message::getIdentity)
        {
            message::PutIdentity(extra, identity);
            return errNone;
        }
        return FamilyBehaviour::OnGeneralCommand(call, compTime, extra);
    }

private:
    Identity identity;
};

class ReservedScribbler : public FamilyBehaviour
{
public:
    A_Err OnGeneralCommand(const EffectCall& call, A_Time compTime, void* extra) const override
    {
        const A_Err error = FamilyBehaviour::OnGeneralCommand(call, compTime, extra);
        if (extra == nullptr)
            return error;
        const std::size_t payloadEnd = message::CommandOf(extra) == message::getIdentity ? 24 : 10;
        std::memset(static_cast<char*>(extra) + payloadEnd, scribble, message::size - payloadEnd);
        return error;
    }
};

class Scribbler : public Behaviour
{
public:
    A_Err OnGeneralCommand(const EffectCall&, A_Time, void* extra) const override
    {
        if (extra != nullptr)
            std::memset(extra, scribble, message::size);
        return errNone;
    }
};

class GroupLiar : public FamilyBehaviour
{
public:
    explicit GroupLiar(std::int16_t answered) : group(answered) {}
    A_Err OnGeneralCommand(const EffectCall& call, A_Time compTime, void* extra) const override
    {
        const A_Err error = FamilyBehaviour::OnGeneralCommand(call, compTime, extra);
        if (extra != nullptr && message::CommandOf(extra) == message::getGroup)
            message::PutGroup(extra, group);
        return error;
    }

private:
    std::int16_t group;
};

class Meddler : public FamilyBehaviour
{
public:
    Meddler(std::function<void(Host&)> act, int nthMessage) : action(std::move(act)), nth(nthMessage) {}
    A_Err OnGeneralCommand(const EffectCall& call, A_Time compTime, void* extra) const override
    {
        const A_Err error = FamilyBehaviour::OnGeneralCommand(call, compTime, extra);
        if (call.Runtime().messages == nth)
            action(call.host);
        return error;
    }

private:
    std::function<void(Host&)> action;
    int nth;
};

class Thrower : public FamilyBehaviour
{
public:
    explicit Thrower(int thrown) : number(thrown) {}
    A_Err OnGeneralCommand(const EffectCall&, A_Time, void*) const override { throw number; }

private:
    int number;
};
} // namespace

std::shared_ptr<const Behaviour> AnswersLate(int messages) { return std::make_shared<Late>(messages); }

std::shared_ptr<const Behaviour> FailsWith(A_Err error)
{
    return std::make_shared<Failing>(error, AnswerFirst::no);
}

std::shared_ptr<const Behaviour> AnswersAndFailsWith(A_Err error)
{
    return std::make_shared<Failing>(error, AnswerFirst::yes);
}

std::shared_ptr<const Behaviour> RepeatsIdentity(Identity identity)
{
    return std::make_shared<Repeating>(identity);
}

std::shared_ptr<const Behaviour> ScribblesReserved() { return std::make_shared<ReservedScribbler>(); }

std::shared_ptr<const Behaviour> ScribblesAll() { return std::make_shared<Scribbler>(); }

std::shared_ptr<const Behaviour> AnswersGroup(std::int16_t group)
{
    return std::make_shared<GroupLiar>(group);
}

std::shared_ptr<const Behaviour> ActsInMessage(std::function<void(Host&)> action, int nth)
{
    return std::make_shared<Meddler>(std::move(action), nth);
}

std::shared_ptr<const Behaviour> Throws(int number) { return std::make_shared<Thrower>(number); }
} // namespace standin
