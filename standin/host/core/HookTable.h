#pragma once
// The hooks that plug-ins have registered, in order of registration.

#include <map>
#include <vector>

#include "standin/host/core/Abi.h"

namespace standin
{
template <class Function>
struct RegisteredHook
{
    A_long pluginId = 0;
    Function hook = nullptr;
    void* refcon = nullptr;
    A_long command = 0; ///< Command hooks only; 0 for all commands.
    A_u_long priority = 0;
};

struct HookTable
{
    std::vector<RegisteredHook<CommandHook>> command;
    std::vector<RegisteredHook<UpdateMenuHook>> updateMenu;
    std::vector<RegisteredHook<IdleHook>> idle;
    std::vector<RegisteredHook<DeathHook>> death;
    /// What each plug-in wrote as its global refcon, by plug-in id.
    std::map<A_long, void*> globalRefcons;
};
} // namespace standin
