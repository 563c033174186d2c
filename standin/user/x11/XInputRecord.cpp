#include "standin/user/x11/XInputRecord.h"

#include <X11/Xlib.h>
#include <X11/Xproto.h>
#include <X11/Xutil.h>
#include <X11/extensions/record.h>
#include <stdexcept>
#include <utility>

namespace standin::user
{
struct XInputRecord::Connections
{
    Display* control = XOpenDisplay(nullptr);
    Display* data = XOpenDisplay(nullptr);
    XRecordContext context = 0;
    std::vector<InputEvent> events;

    void close() const
    {
        for (Display* display : {data, control})
            if (display != nullptr)
                (void)XCloseDisplay(display);
    }

    /// Asks for what devices send, before any window has got it.
    bool start()
    {
        int major = 0;
        int minor = 0;
        if (control == nullptr || data == nullptr || XRecordQueryVersion(control, &major, &minor) == 0)
            return false;
        XRecordRange* const range = XRecordAllocRange();
        range->device_events.first = KeyPress;
        range->device_events.last = ButtonRelease;
        XRecordClientSpec clients = XRecordAllClients;
        XRecordRange* ranges[] = {range};
        context = XRecordCreateContext(control, 0, &clients, 1, ranges, 1);
        (void)XFree(range);
        (void)XSync(control, False);
        return context != 0 && XRecordEnableContextAsync(data, context, &Connections::take,
                                                         reinterpret_cast<XPointer>(this)) != 0;
    }

    static void take(XPointer self, XRecordInterceptData* record)
    {
        if (record->category == XRecordFromServer)
            reinterpret_cast<Connections*>(self)->note(*reinterpret_cast<const xEvent*>(record->data));
        XRecordFreeData(record);
    }

    void note(const xEvent& raw)
    {
        const int type = raw.u.u.type & 0x7f;
        InputEvent event;
        event.x = raw.u.keyButtonPointer.rootX;
        event.y = raw.u.keyButtonPointer.rootY;
        event.time = raw.u.keyButtonPointer.time;
        const unsigned state = raw.u.keyButtonPointer.state;
        event.shift = (state & ShiftMask) != 0;
        event.control = (state & ControlMask) != 0;
        event.alt = (state & Mod1Mask) != 0;
        event.button = raw.u.u.detail;
        if (type == ButtonPress || type == ButtonRelease)
            event.kind = type == ButtonPress ? InputEvent::Kind::press : InputEvent::Kind::release;
        else if (type != KeyPress || !readKey(event, raw.u.u.detail, state))
            return;
        events.push_back(event);
    }

    bool readKey(InputEvent& event, unsigned code, unsigned state) const
    {
        XKeyEvent key{};
        key.type = KeyPress;
        key.display = control;
        key.keycode = code;
        key.state = state;
        const KeySym symbol = XLookupKeysym(&key, 0);
        const char* const name = XKeysymToString(symbol);
        if (IsModifierKey(symbol) != 0 || name == nullptr)
            return false;
        char text[8] = {};
        const int length = XLookupString(&key, text, sizeof text, nullptr, nullptr);
        event.kind = InputEvent::Kind::key;
        event.button = 0;
        event.key = name;
        event.text = length == 1 && text[0] >= ' ' && text[0] <= '~' ? text[0] : '\0';
        return true;
    }
};

XInputRecord::XInputRecord() : connections(new Connections)
{
    if (connections->start())
        return;
    connections->close();
    delete connections;
    throw std::runtime_error("the display has no record extension");
}

XInputRecord::~XInputRecord()
{
    (void)XRecordDisableContext(connections->control, connections->context);
    (void)XRecordFreeContext(connections->control, connections->context);
    (void)XSync(connections->control, False);
    connections->close();
    delete connections;
}

std::vector<InputEvent> XInputRecord::Take()
{
    XRecordProcessReplies(connections->data);
    return std::exchange(connections->events, {});
}
} // namespace standin::user
