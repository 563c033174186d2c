// "AEGP Command Suite" 1: menu items and commands.

#include "standin/host/suites/Entry.h"
#include "standin/host/suites/Suites.h"

namespace standin
{
namespace
{
A_Err refuseCommand(HostParts& parts, A_long command)
{
    parts.sensors.Report(finding::unknownCommand,
                         "The command " + std::to_string(command) + " is not the caller's.");
    return errParameter;
}

A_Err getUniqueCommand(HostParts& parts, OutNumber<A_long> command)
{
    *command.value = parts.plugins.menus.MakeCommand();
    return errNone;
}

A_Err insertMenuCommand(HostParts& parts, NumberArg<A_long> command, TextArg<char> name,
                        NumberArg<A_char> menu, NumberArg<A_long> place)
{
    if (!parts.plugins.menus.IsOwn(command.value))
        return refuseCommand(parts, command.value);
    if (menu.value == menuWindow && (place.value == menuTop || place.value == menuBottom))
    {
        parts.sensors.Report(finding::menuPosition, "The Window menu takes no items at its top or bottom.");
        return errParameter;
    }
    parts.plugins.menus.Insert({command.value, name.Text(), menu.value, false, false});
    return errNone;
}

A_Err enableCommand(HostParts& parts, NumberArg<A_long> command)
{
    MenuItem* item = parts.plugins.menus.Find(command.value);
    if (item == nullptr)
        return refuseCommand(parts, command.value);
    item->enabled = true;
    return errNone;
}

A_Err checkMarkMenuCommand(HostParts& parts, NumberArg<A_long> command, NumberArg<A_Boolean> check)
{
    MenuItem* item = parts.plugins.menus.Find(command.value);
    if (item == nullptr)
        return refuseCommand(parts, command.value);
    item->ticked = check.value != 0;
    return errNone;
}

A_Err doCommand(HostParts& parts, NumberArg<A_long> command)
{
    return parts.host.RunCommand(command.value) ? errNone : errGeneric;
}
} // namespace

SuiteDescription DescribeCommandSuite()
{
    return SuiteBuilder<SuiteId::command1, 8>("AEGP Command Suite", 1, "AEGP_CommandSuite1")
        .Slot<0, getUniqueCommand>("AEGP_GetUniqueCommand", Access::writesHost)
        .Slot<1, insertMenuCommand>("AEGP_InsertMenuCommand", Access::writesHost)
        .Slot<4, enableCommand>("AEGP_EnableCommand", Access::writesHost)
        .Slot<6, checkMarkMenuCommand>("AEGP_CheckMarkMenuCommand", Access::writesHost)
        .Slot<7, doCommand>("AEGP_DoCommand", Access::runsHooks)
        .Done();
}
} // namespace standin
