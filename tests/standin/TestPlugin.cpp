#include "tests/standin/TestPlugin.h"

namespace standin
{
namespace
{
const auto* panelName = reinterpret_cast<const unsigned char*>("Test Panel");
} // namespace

A_Err TestPlugin::Entry(void*, A_long, A_long, A_long pluginId, void** refcon)
{
    current->id = pluginId;
    *refcon = current;
    return current->registerAll();
}

A_Err TestPlugin::registerAll()
{
    Client client(host);
    void* refcon = this;
    A_Err error = client.Call(commandSuite, 1, 0, &command);
    error |= client.Call(commandSuite, 1, 1, command, "Test Panel", A_char{7}, A_long{-2});
    error |= client.Call(registerSuite, 6, 0, id, A_u_long{1}, command, &commandHook, refcon);
    error |= client.Call(registerSuite, 6, 1, id, &updateHook, refcon);
    error |= client.Call(registerSuite, 6, 2, id, &deathHook, refcon);
    error |= client.Call(registerSuite, 6, 8, id, &idleHook, refcon);
    error |= client.Call(panelSuite, 1, 0, id, panelName, &createHook, refcon, A_Boolean{0});
    note("entry");
    return error;
}

void TestPlugin::note(const std::string& event)
{
    events.push_back(event);
    if (inHook)
        inHook(event);
}

TestPlugin& TestPlugin::of(void* global) { return *static_cast<TestPlugin*>(global); }

A_Err TestPlugin::commandHook(void* global, void* refcon, A_long command, A_u_long priority,
                              A_Boolean already, A_Boolean* handled)
{
    if (refcon != global || priority != 1 || already != 0)
        return errParameter;
    *handled = 1;
    of(global).note("command " + std::to_string(command));
    return errNone;
}

A_Err TestPlugin::updateHook(void* global, void*, A_char active)
{
    Client client(of(global).host);
    if (of(global).menuItem == Switch::on)
        (void)client.Call(commandSuite, 1, 4, of(global).command);
    of(global).note("update " + std::to_string(active));
    return errNone;
}

A_Err TestPlugin::idleHook(void* global, void*, A_long* maxSleep)
{
    of(global).note("idle " + std::to_string(*maxSleep));
    *maxSleep = 99;
    return errNone;
}

A_Err TestPlugin::deathHook(void* global, void*)
{
    of(global).note("death");
    return errNone;
}

A_Err TestPlugin::createHook(void* global, void*, void* container, PanelH panel, PanelFunctions* functions,
                             void** outRefcon)
{
    const bool wellCalled = container != nullptr && panel != nullptr && functions->getSnapSizes == nullptr &&
                            functions->doFlyoutCommand == nullptr;
    *outRefcon = global;
    of(global).note(wellCalled ? "create" : "create badly");
    return errNone;
}
} // namespace standin
