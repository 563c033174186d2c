// Which handler receives a host's error while hooks run inside hooks, and which is installed after them.

#include "panel/platform/PlatformEvents.h"

#include "standin/user/x11/Xvfb.h"

#include <gtest/gtest.h>

#include <X11/Xlib.h>

namespace standin
{
using namespace user;

namespace
{
int errorsOfFirst = 0;
int errorsOfSecond = 0;

int countFirst(Display*, XErrorEvent*) { return ++errorsOfFirst; }
int countSecond(Display*, XErrorEvent*) { return ++errorsOfSecond; }

XErrorHandler presentHandler()
{
    const XErrorHandler present = XSetErrorHandler(nullptr);
    (void)XSetErrorHandler(present);
    return present;
}

/// A host with a connection and an error handler of its own.
class ErrorScope : public testing::Test
{
protected:
    ErrorScope() : display(XOpenDisplay(nullptr)), former(XSetErrorHandler(&countFirst))
    {
        errorsOfFirst = 0;
        errorsOfSecond = 0;
    }

    ~ErrorScope() override
    {
        (void)XCloseDisplay(display);
        (void)XSetErrorHandler(former);
    }

    void MakeAnError()
    {
        (void)XMapWindow(display, 1);
        (void)XSync(display, False);
    }

    Xvfb server{200, 200};
    Display* display;
    XErrorHandler former;
};
} // namespace

TEST_F(ErrorScope, NestedPassesTheHostsErrorsOn)
{
    {
        const PlatformErrorScope outer;
        {
            const PlatformErrorScope inner;
            MakeAnError();
            EXPECT_EQ(errorsOfFirst, 1);
        }
        MakeAnError();
        EXPECT_EQ(errorsOfFirst, 2);
    }
    EXPECT_EQ(presentHandler(), &countFirst);
    MakeAnError();
    EXPECT_EQ(errorsOfFirst, 3);
}

TEST_F(ErrorScope, NestedUsesTheHostsNewHandler)
{
    {
        const PlatformErrorScope outer;
        (void)XSetErrorHandler(&countSecond);
        {
            const PlatformErrorScope inner;
            MakeAnError();
            EXPECT_EQ(errorsOfSecond, 1);
            EXPECT_EQ(errorsOfFirst, 0);
        }
        EXPECT_EQ(presentHandler(), &countSecond);
    }
    EXPECT_EQ(presentHandler(), &countSecond);
    MakeAnError();
    EXPECT_EQ(errorsOfSecond, 2);
    EXPECT_EQ(errorsOfFirst, 0);
}

TEST_F(ErrorScope, KeepsTheHandlerSetInTheInnermost)
{
    {
        const PlatformErrorScope outer;
        {
            const PlatformErrorScope inner;
            (void)XSetErrorHandler(&countSecond);
        }
        EXPECT_EQ(presentHandler(), &countSecond);
    }
    EXPECT_EQ(presentHandler(), &countSecond);
}
} // namespace standin
