#pragma once
// Common ground of the tests that send messages: an effect that keeps what it was sent, and operations
// run in a hook with a handler of their own.

#include "effects/EffectMessages.h"
#include "standin/host/family/Liars.h"
#include "tests/support/StackTest.h"

#include <array>
#include <cstring>
#include <memory>
#include <vector>

namespace standin
{
using Bytes = std::array<std::uint8_t, 128>;

/// What an effect was sent, before it answered.
struct Received
{
    Bytes bytes{};
    int timeValue = 0;
    unsigned timeScale = 0;
};

/// A family effect that keeps every record as it came in.
class KeepsRecords : public FamilyBehaviour
{
public:
    explicit KeepsRecords(std::shared_ptr<std::vector<Received>> keptRecords) : records(keptRecords) {}

    A_Err OnGeneralCommand(const EffectCall& call, standin::A_Time compTime, void* extra) const override
    {
        Received received;
        std::memcpy(received.bytes.data(), extra, received.bytes.size());
        received.timeValue = compTime.value;
        received.timeScale = compTime.scale;
        records->push_back(received);
        return FamilyBehaviour::OnGeneralCommand(call, compTime, extra);
    }

private:
    std::shared_ptr<std::vector<Received>> records;
};

/// Lets the labelled effect keep what it is sent; gives the place where it keeps it.
inline std::shared_ptr<std::vector<Received>> KeepRecordsOf(ProductHost& product, const std::string& label)
{
    auto records = std::make_shared<std::vector<Received>>();
    product.host.Effect(label).behaviour = std::make_shared<KeepsRecords>(records);
    return records;
}

/// A message as a sender makes it.
inline VnEffectMessage MessageOf(VN_MSG_COMMAND command)
{
    VnEffectMessage message = VnEffectMessage();
    message.magic = VN_MSG_MAGIC;
    message.command = command;
    return message;
}

/// Runs `operation(suites)` in a hook, with a handler over `basic`; gives the hook's result, whose error
/// is what the operation returned.
template <class Operation>
HookResult SendOver(ProductHost& product, SPBasicSuite* basic, Operation operation)
{
    product.host.ClearTrace();
    return product.host.RunInHook(
        [&]() -> int
        {
            AEGP_SuiteHandler suites(basic);
            return operation(&suites);
        });
}

/// A stack with two family effects around one from outside, unless other labels are given.
struct MessageHost : LabelledStack
{
    explicit MessageHost(const std::string& labels = "A X B", HostOptions options = {})
        : LabelledStack(labels, options)
    {
    }

    /// The same with suites made of the host's basic suite.
    template <class Operation>
    HookResult Send(Operation operation)
    {
        return SendOver(*this, Basic(), operation);
    }

    HookResult Ping(VnEffectMessage& message, int index, int requiredFlags = 0)
    {
        return Send(
            [&](AEGP_SuiteHandler* suites)
            { return PingEffectIndex(Id(), suites, Layer(), MESSAGE_TIME, &message, index, requiredFlags); });
    }

    std::vector<int> Groups(std::vector<int> indices, int requiredFlags = 0, std::vector<int> groups = {},
                            ::A_Time time = MESSAGE_TIME)
    {
        EXPECT_EQ(
            Send([&](AEGP_SuiteHandler* suites)
                 { return GetEffectGroups(Id(), suites, Layer(), time, &indices, &groups, requiredFlags); })
                .error,
            0);
        return groups;
    }

    std::vector<std::string> Uuids(std::vector<int> indices, std::vector<std::string> uuids = {},
                                   ::A_Time time = MESSAGE_TIME)
    {
        EXPECT_EQ(Send([&](AEGP_SuiteHandler* suites)
                       { return GetEffectUUIDs(Id(), suites, Layer(), time, &indices, &uuids); })
                      .error,
                  0);
        return uuids;
    }

    void SetGroup(const std::string& uuid, int group)
    {
        host.ClearTrace();
        const HookResult result =
            host.RunInHook([&] { SetEffectGroup(Id(), Basic(), Layer(), uuid, group); });
        EXPECT_EQ(result.thrown, "");
    }

    void ExpectCleanEnd()
    {
        host.CheckSuiteBalance();
        EXPECT_EQ(host.LeakedReferences(), 0);
        EXPECT_EQ(host.FindingsReport(), "");
    }
};
} // namespace standin
