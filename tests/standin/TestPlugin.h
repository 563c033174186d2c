#pragma once
// A small plug-in with every kind of hook, which writes down what the host calls. An entry point has
// no argument for the test's own use, so the plug-in under test is a static of this class.

#include <functional>
#include <string>
#include <vector>

#include "tests/standin/Client.h"

namespace standin
{
class TestPlugin
{
public:
    explicit TestPlugin(Host& owner) : host(owner) { current = this; }
    ~TestPlugin() { current = nullptr; }
    TestPlugin(const TestPlugin&) = delete;
    TestPlugin& operator=(const TestPlugin&) = delete;

    /// For Host::Load. Registers all hooks, one menu item and one panel, both "Test Panel".
    static A_Err Entry(void* basicSuite, A_long major, A_long minor, A_long id, void** refcon);

    std::vector<std::string> events; ///< "idle", "command 1001", "update", "death", "create" and so on.
    A_long command = 0;
    A_long id = 0;
    Switch menuItem = Switch::on; ///< Whether the update hook turns the item on.
    /// Run inside the hook whose event is being written, after it.
    std::function<void(const std::string& event)> inHook;

private:
    A_Err registerAll();
    void note(const std::string& event);
    static TestPlugin& of(void* global);
    static A_Err commandHook(void*, void*, A_long, A_u_long, A_Boolean, A_Boolean*);
    static A_Err updateHook(void*, void*, A_char);
    static A_Err idleHook(void*, void*, A_long*);
    static A_Err deathHook(void*, void*);
    static A_Err createHook(void*, void*, void*, PanelH, PanelFunctions*, void**);

    static inline TestPlugin* current = nullptr;
    Host& host;
};
} // namespace standin
