#pragma once
// An effect that comes in a module of its own, as sdk/VortanTryEffect.h has it.

#include "sdk/VortanTryEffect.h"
#include "standin/host/core/Host.h"

#include <string>
#include <vector>

namespace standin
{
/// What the module keeps of one instance, VORTAN_TRY_KEPT_SIZE bytes.
using KeptBytes = std::vector<std::uint8_t>;

/// A module stays in the process until it ends, as an effect does in the real host.
class EffectModule
{
public:
    /// Throws std::runtime_error, in words for a user, if the file is not there, is no effect, or does not
    /// tell its names.
    explicit EffectModule(const std::string& file);

    const std::string& File() const { return file; }
    const std::string& MatchName() const { return matchName; }
    const std::string& DefaultName() const { return defaultName; }

    /// Calls the module as a host does, in a hook. What it throws is in the result.
    HookResult Call(Host& host, std::int32_t call, void* kept, void* record = nullptr,
                    std::size_t recordSize = 0) const;

private:
    std::string file;
    decltype(&VortanTryEffect) entry;
    std::string matchName;
    std::string defaultName;
};

/// Puts the effect of the module among the installed ones, in place of the one with its match name if there
/// is such. Throws what EffectModule throws.
void InstallEffectModule(Host& host, const std::string& file);

/// The module that an installed effect comes from; empty for a simulated one.
std::string ModuleFileOf(const InstalledEffect& effect);
} // namespace standin
