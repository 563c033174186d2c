#pragma once
// A host with a bundle at work, and a user before it: what scenarios and checks play on. Where the panel is,
// and how the host idles is up to each kind of session.

#include "standin/host/bundle/Bundle.h"
#include "standin/host/core/Host.h"
#include "standin/user/User.h"

#include <string>
#include <vector>

namespace standin::user
{
class Session : public User
{
public:
    static constexpr const char* panelName = "Vortan Object Panel";

    Session(Host& theHost, std::unique_ptr<Xvfb> ownServer) : User(std::move(ownServer)), host(theHost) {}

    /// Idle passes until several in a row neither touched the project nor changed the picture. Throws
    /// std::runtime_error if that never comes.
    void Settle();

    /// A place where a click gives the keyboard to the host's own window.
    virtual Place HostPlace() const = 0;
    /// A click there, and the host has the keyboard.
    void ClickHost();
    virtual void ResizePanel(int width, int height) = 0;
    virtual const Bundle& TheBundle() const = 0;

    /// The bundle's printed lines and its host calls since the last call of Forget, and the keys that have
    /// reached the host.
    const std::vector<std::string>& Printed();
    const std::vector<std::string>& Calls();
    const std::vector<std::string>& HostKeys();
    void Forget();
    /// Whether a hook let something escape; in words, empty if none did.
    const std::string& Thrown() const { return heard.thrown; }

    /// Quits the host. What it should not have found is in Host::FindingsReport afterwards.
    virtual void End() = 0;
    /// X errors that have reached the host.
    virtual int TakeErrors() { return 0; }

    Host& host;

protected:
    struct Heard
    {
        std::vector<std::string> printed;
        std::vector<std::string> calls;
        std::vector<std::string> keys;
        std::string thrown;
    };

    /// Adds what is new to what has been heard.
    virtual void collect() = 0;

    Heard heard;
};
} // namespace standin::user
