#pragma once
// The stand-in's basic suite with one table replaced in part, for answers that no switch of the stand-in
// gives: a negative count, a reference beside an error, success without a reference.

#include "host/SuiteTraits.h"
#include "standin/host/core/Host.h"

#include <cstring>
#include <functional>
#include <utility>

namespace standin
{
/// Hands out a copy of `Suite`'s table with the slots that `patch` has written over. A patched slot can
/// call the sound one through Sound(). One for each suite lives at a time, since the tables carry no
/// context.
template <class Suite>
class PatchedBasic
{
public:
    PatchedBasic(Host& host, const std::function<void(Suite&)>& patch)
        : hostBasic(static_cast<SPBasicSuite*>(host.BasicSuite())), basic(*hostBasic), patchTable(patch)
    {
        current = this;
        basic.AcquireSuite = acquire;
    }
    ~PatchedBasic() { current = nullptr; }
    PatchedBasic(const PatchedBasic&) = delete;
    PatchedBasic& operator=(const PatchedBasic&) = delete;

    SPBasicSuite* Basic() { return &basic; }
    /// The host's own table, once the suite has been acquired.
    static const Suite& Sound() { return *current->sound; }

private:
    static SPErr acquire(const char* name, std::int32_t version, const void** out)
    {
        const SPErr err = current->hostBasic->AcquireSuite(name, version, out);
        const bool isOurs =
            std::strcmp(name, SuiteTraits<Suite>::i_name) == 0 && version == SuiteTraits<Suite>::i_version;
        if (err != 0 || !isOurs)
            return err;
        current->sound = static_cast<const Suite*>(*out);
        current->table = *current->sound;
        current->patchTable(current->table);
        *out = &current->table;
        return err;
    }

    inline static PatchedBasic* current = nullptr;
    SPBasicSuite* hostBasic;
    SPBasicSuite basic;
    const Suite* sound = nullptr;
    Suite table{};
    std::function<void(Suite&)> patchTable;
};

/// For a PatchedBasic: the slot answers as the sound one does, and gives this error beside the answer
/// whenever `when` says so before. One for each slot at a time.
template <auto Slot>
class AnswersWithError;

template <class Suite, class... Arguments, A_Err (*Suite::*Slot)(Arguments...)>
class AnswersWithError<Slot>
{
public:
    explicit AnswersWithError(
        A_Err givenError, std::function<bool()> when = [] { return true; })
    {
        error = givenError;
        isLie = std::move(when);
    }

    void operator()(Suite& table) const { table.*Slot = &answer; }

private:
    static A_Err answer(Arguments... arguments)
    {
        const bool lies = isLie();
        const A_Err err = (PatchedBasic<Suite>::Sound().*Slot)(arguments...);
        return lies ? error : err;
    }

    inline static A_Err error = 0;
    inline static std::function<bool()> isLie;
};
} // namespace standin
