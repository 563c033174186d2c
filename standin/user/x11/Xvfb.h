#pragma once
// An X server of a test's own, without a screen. It takes a free display number by itself, so that any
// number of tests can run at a time.

#include "standin/process/Child.h"

#include <stdexcept>
#include <string>

namespace standin::user
{
/// There is no X server to work on.
class DisplayMissing : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

class Xvfb
{
public:
    /// Starts the server and puts its display into the environment variable DISPLAY. Throws
    /// DisplayMissing if no server comes up.
    Xvfb(int width, int height);

    /// Ends the server. X connections have to be closed by then.
    ~Xvfb();

    Xvfb(const Xvfb&) = delete;
    Xvfb& operator=(const Xvfb&) = delete;

    const std::string& displayName() const { return display; }

private:
    process::Child server;
    std::string display;
};
} // namespace standin::user
