// The end of a test's own X server at the one moment at which the server misses the signal.

#include "standin/user/x11/Xvfb.h"

#include <chrono>
#include <cstdlib>
#include <future>
#include <gtest/gtest.h>
#include <memory>

TEST(ServerEnd, ComesThoughTheFirstSignalIsLost)
{
    ASSERT_EQ(setenv("LD_PRELOAD", VORTAN_LATE_WAIT, 1), 0);
    auto server = std::make_unique<standin::user::Xvfb>(64, 64);
    ASSERT_EQ(unsetenv("LD_PRELOAD"), 0);
    auto end = std::async(std::launch::async, [&] { server.reset(); });
    const bool hasEnded = end.wait_for(std::chrono::seconds(60)) == std::future_status::ready;
    EXPECT_TRUE(hasEnded);
    if (!hasEnded)
        std::_Exit(1); // The thread waits for the server, and nobody would wait for the thread.
}
