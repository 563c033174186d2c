#pragma once
// An effect that is judged: its module, a host, the panel's suites, and the messages as the panel sends them.

#include "standin/check/Trial.h"
#include "standin/check/effects/SuiteWitness.h"
#include "standin/host/bundle/EffectModule.h"

#include <string>
#include <vector>

namespace standin::check
{
/// Bytes between two margins that must not be written to.
class Guarded
{
public:
    /// `shift` bytes further on than they would lie else.
    Guarded(const std::vector<std::uint8_t>& content, std::size_t shift);
    std::uint8_t* Data() { return bytes.data() + begin; }
    std::vector<std::uint8_t> Content() const;
    /// Where a byte of the margins has changed, in words; empty if none has.
    std::string Damage() const;

private:
    static constexpr std::size_t margin = 512;
    static constexpr std::uint8_t mark = 0xC3;

    std::size_t begin;
    std::size_t end;
    std::vector<std::uint8_t> bytes;
};

/// A record as the panel makes it: magic, command, and the group or zeros.
std::vector<std::uint8_t> RecordOf(std::uint32_t command, std::int16_t group = 0);

class EffectScene
{
public:
    explicit EffectScene(const std::string& moduleFile);
    ~EffectScene();

    Host host;
    SuiteWitness witness{host};
    EffectModule module;

    /// The bytes of a new instance, before any message.
    KeptBytes Apply();
    KeptBytes Copy(const KeptBytes& original);
    /// Sends a record, which is changed in place.
    void Send(KeptBytes& kept, std::vector<std::uint8_t>& record);
    Identity AskIdentity(KeptBytes& kept);
    int AskGroup(KeptBytes& kept);
    void TellGroup(KeptBytes& kept, int group);
    /// The host idles so many times, with a little time between.
    void Idle(int passes = 1);

    /// Everything that an effect meets, once: for checks that look at how it behaves meanwhile.
    void Exercise();

    // What the calls so far have left, a line each.
    const std::vector<std::string>& BadReturns() const { return badReturns; }
    const std::vector<std::string>& Damages() const { return damages; }
    const std::vector<std::string>& Escaped() const { return escaped; }

private:
    void call(std::int32_t what, KeptBytes& kept, std::vector<std::uint8_t>* record);

    std::size_t callsSoFar = 0;
    std::vector<std::string> badReturns;
    std::vector<std::string> damages;
    std::vector<std::string> escaped;
};

/// The records that are none of the panel's, each with what is foreign about it.
std::vector<std::pair<std::string, std::vector<std::uint8_t>>> ForeignRecordsOf();
} // namespace standin::check
