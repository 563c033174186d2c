#include "standin/host/bundle/EffectModule.h"

#include "standin/host/bundle/OpenModule.h"
#include "standin/host/core/HostParts.h"
#include "standin/host/core/StackChanges.h"
#include "standin/host/family/FamilyBehaviour.h"

#include <algorithm>
#include <cstring>
#include <dlfcn.h>
#include <stdexcept>
#include <utility>

namespace standin
{
namespace
{
template <std::size_t size>
std::string nameIn(const char (&name)[size], const std::string& file)
{
    if (name[0] == '\0' || std::memchr(name, '\0', size) == nullptr)
        throw std::runtime_error(file +
                                 " is no effect: it does not tell its match name and its default name");
    return name;
}

/// An instance's bytes lie in the project, and so do identity and group as the module answers them, for the
/// stand-in's windows and expectations.
class ModuleBehaviour : public Behaviour
{
public:
    explicit ModuleBehaviour(EffectModule loaded) : module(std::move(loaded)) {}

    const std::string& File() const { return module.File(); }

    void OnApplied(const EffectCall& call) const override
    {
        KeptBytes kept = call.Instance().family.kept;
        const bool isCopy = kept.size() == VORTAN_TRY_KEPT_SIZE;
        kept.resize(VORTAN_TRY_KEPT_SIZE);
        (void)module.Call(call.host, isCopy ? VORTAN_TRY_COPIED : VORTAN_TRY_APPLIED, kept.data());
        store(call, std::move(kept), Undoable::no);
    }

    void OnGroupChosen(const EffectCall& call, std::int16_t group, Undoable undoable) const override
    {
        KeptBytes kept = keptOf(call);
        (void)tell(call.host, kept, VORTAN_SET_GROUP, group);
        store(call, std::move(kept), undoable);
    }

    A_Err OnGeneralCommand(const EffectCall& call, A_Time, void* extra) const override
    {
        const KeptBytes before = keptOf(call);
        KeptBytes kept = before;
        const bool tellsGroup = extra != nullptr && message::MagicOf(extra) == message::magic &&
                                message::CommandOf(extra) == message::setGroup;
        const std::size_t size = extra == nullptr ? 0 : message::size;
        const HookResult result = module.Call(call.host, VORTAN_TRY_MESSAGE, kept.data(), extra, size);
        const bool isStep = tellsGroup && call.host.Options().groupUndo == GroupUndo::isOwnStep;
        if (kept != before)
            store(call, std::move(kept), isStep ? Undoable::yes : Undoable::no);
        return result.error;
    }

private:
    /// A project that was made with the simulated effect has no bytes for the module: it is set up as a new
    /// one.
    KeptBytes keptOf(const EffectCall& call) const
    {
        if (call.Instance().family.kept.size() != VORTAN_TRY_KEPT_SIZE)
        {
            call.Instance().family.kept.clear();
            OnApplied(call);
        }
        return call.Instance().family.kept;
    }

    VortanMessage tell(Host& host, KeptBytes& kept, std::uint32_t command, std::int16_t group) const
    {
        VortanMessage record{};
        record.magic = VORTAN_MESSAGE_MAGIC;
        record.command = command;
        record.payload.group = group;
        (void)module.Call(host, VORTAN_TRY_MESSAGE, kept.data(), &record, sizeof record);
        return record;
    }

    void store(const EffectCall& call, KeptBytes kept, Undoable undoable) const
    {
        const EffectInstance* const instance = call.host.State().FindEffect(call.effectId);
        if (instance == nullptr)
            return; // The module has had itself deleted.
        FamilyData data = instance->family;
        data.group = tell(call.host, kept, VORTAN_GET_GROUP, -1).payload.group;
        const VortanIdentity answered = tell(call.host, kept, VORTAN_GET_IDENTITY, 0).payload.identity;
        std::copy(std::begin(answered.bytes), std::end(answered.bytes), data.uuid.begin());
        data.kept = std::move(kept);
        SetFamilyData(PartsOf(call.host), call.effectId, data, undoable);
    }

    EffectModule module;
};
} // namespace

EffectModule::EffectModule(const std::string& moduleFile) : file(moduleFile)
{
    void* const symbol = dlsym(OpenModule(file, "effect"), "VortanTryEffect");
    if (symbol == nullptr)
        throw std::runtime_error(file + " is no effect: it does not export VortanTryEffect");
    entry = reinterpret_cast<decltype(entry)>(symbol);
    VortanTryDescription description{};
    (void)entry(VORTAN_TRY_DESCRIBE, nullptr, nullptr, &description, sizeof description);
    matchName = nameIn(description.matchName, file);
    defaultName = nameIn(description.defaultName, file);
}

HookResult EffectModule::Call(Host& host, std::int32_t call, void* kept, void* record,
                              std::size_t recordSize) const
{
    const auto* basicSuite = static_cast<const VortanBasicSuite*>(host.BasicSuite());
    return host.RunInHook([&] { return entry(call, basicSuite, kept, record, recordSize); });
}

void InstallEffectModule(Host& host, const std::string& file)
{
    EffectModule module(file);
    InstalledEffect effect;
    effect.matchName = module.MatchName();
    effect.defaultName = module.DefaultName();
    effect.category = "Vortan";
    effect.behaviour = std::make_shared<ModuleBehaviour>(std::move(module));
    for (InstalledEffect& installed : PartsOf(host).project.installed)
        if (installed.matchName == effect.matchName)
        {
            effect.key = installed.key;
            installed = std::move(effect);
            return;
        }
    (void)host.Install(std::move(effect));
}

std::string ModuleFileOf(const InstalledEffect& effect)
{
    const auto* const behaviour = dynamic_cast<const ModuleBehaviour*>(effect.behaviour.get());
    return behaviour == nullptr ? "" : behaviour->File();
}
} // namespace standin
