#pragma once
// The direct line to the effects of the family: a 128-byte record, carried by the host's general command,
// through which each effect reports its identity and its group and is told a new group. Identity and group
// belong to the effect; no copy of them is kept.

#include "effects/ObjectItem.h"
#include "host/SuiteHandler.h"

#include <cstddef>
#include <string>
#include <vector>

constexpr std::uint32_t VN_MSG_MAGIC = 0x564F5254; ///< "VORT"; in memory 54 52 4F 56.

enum VN_MSG_COMMAND : std::uint32_t
{
    VN_MSG_GET_GROUP = 1, ///< The effect writes its group number into `group`.
    VN_MSG_SET_GROUP = 3, ///< The effect takes `group` as its new group number.
    VN_MSG_GET_UUID = 5   ///< The effect writes its identity into `uuid`.
};

/// A wire format between this program and the effects, in the machine's byte order. There is no reply
/// code: an effect that does not know the message leaves it alone, and what the sender wrote into
/// `group` or `uuid` stands as the answer.
struct VnEffectMessage
{
    std::uint32_t magic;
    std::uint32_t command;
    union
    {
        std::int16_t group;
        VN_UUID uuid;
    };
    std::uint8_t reserved[104];
};
static_assert(sizeof(VnEffectMessage) == 128, "effects may read and write 128 bytes");
static_assert(offsetof(VnEffectMessage, command) == 4 && offsetof(VnEffectMessage, group) == 8 &&
                  offsetof(VnEffectMessage, uuid) == 8 && offsetof(VnEffectMessage, reserved) == 24,
              "the layout that the effects know");

/// The time at which every message is sent: the start of the layer.
constexpr A_Time MESSAGE_TIME = {0, 100};

/// Sends `message`, a 128-byte record that the effect may write to, to the effect at `effectIndex`.
/// With `requiredFlags` not 0, an effect that has none of these flags set gets no message. An index
/// outside the stack sends nothing and is no error. Returns the first host error, 0 for none.
int PingEffectIndex(int pluginId, AEGP_SuiteHandler* suites, _AEGP_Layer** layer, A_Time time, void* message,
                    int effectIndex, int requiredFlags);

/// The identity of one effect; the zero identity if it did not answer.
VN_UUID AskIdentity(int pluginId, AEGP_SuiteHandler* suites, _AEGP_Layer** layer, A_Time time, int index);

/// The group number of one effect; -1 if it did not answer or was filtered out by `requiredFlags`.
int AskGroup(int pluginId, AEGP_SuiteHandler* suites, _AEGP_Layer** layer, A_Time time, int index,
             int requiredFlags);

/// Appends to `uuids` the identity's text for each of `indices`; the zero text where an effect did not
/// answer. Always 0.
int GetEffectUUIDs(int pluginId, AEGP_SuiteHandler* suites, _AEGP_Layer** layer, A_Time time,
                   std::vector<int>* indices, std::vector<std::string>* uuids);

/// Appends to `groups` the group number for each of `indices`; -1 where an effect did not answer or was
/// filtered out by `requiredFlags`. Always 0.
int GetEffectGroups(int pluginId, AEGP_SuiteHandler* suites, _AEGP_Layer** layer, A_Time time,
                    std::vector<int>* indices, std::vector<int>* groups, int requiredFlags);

/// Tells the first effect with that identity its new group, cut to 16 bits. An identity that is not on
/// the layer sends nothing. A null layer prints a line. Always 0.
int SetEffectGroupByUUID(int pluginId, AEGP_SuiteHandler* suites, _AEGP_Layer** layer, A_Time time,
                         std::string uuid, int group);

/// SetEffectGroupByUUID with suites of its own, at MESSAGE_TIME.
void SetEffectGroup(int pluginId, SPBasicSuite* basicSuite, _AEGP_Layer** layer, std::string uuid, int group);

/// The identities of the effects 0 to `count` - 1, asked for one by one at MESSAGE_TIME; the zero
/// identity where an effect did not answer.
std::vector<VN_UUID> ReadIdentities(int pluginId, AEGP_SuiteHandler* suites, _AEGP_Layer** layer, int count);

/// The identities of the whole stack as texts, position = effect index. A count that cannot be read is
/// an empty stack.
std::vector<std::string> ReadStackUuids(int pluginId, AEGP_SuiteHandler* suites, _AEGP_Layer** layer);

/// The position of the first entry equal to `uuid`, or -1.
int FindUuid(const std::vector<std::string>& stackUuids, const std::string& uuid);
