#pragma once
// A host with a plug-in that writes down which of its hooks run.

#include "tests/standin/FindingsOf.h"
#include "tests/standin/HostTest.h"
#include "tests/standin/TestPlugin.h"

#include <string>

namespace standin
{
inline const auto* panelName = reinterpret_cast<const unsigned char*>("Test Panel");

class PluginTest : public HostTest
{
protected:
    PluginTest() : plugin(host)
    {
        loaded = host.Load(&TestPlugin::Entry);
        plugin.events.clear();
    }

    std::string isShown()
    {
        A_Boolean shown = 9;
        A_Boolean frontmost = 9;
        inHook([&](Client& client)
               { EXPECT_EQ(client.Call(panelSuite, 1, 4, panelName, &shown, &frontmost), 0); });
        return std::to_string(shown) + " " + std::to_string(frontmost);
    }

    void toggle()
    {
        inHook([](Client& client) { EXPECT_EQ(client.Call(panelSuite, 1, 3, panelName), errNone); });
    }

    TestPlugin plugin;
    LoadedPlugin loaded;
};
} // namespace standin
