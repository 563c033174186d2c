#pragma once
// Both suites of the panel's plug-in without the plug-in: they note who calls what, and run what is queued.

#include "sdk/VortanFamily.h"
#include "standin/host/core/Host.h"

#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace standin::check
{
class SuiteWitness
{
public:
    /// Publishes the suites in the host, which lives as long as this does.
    explicit SuiteWitness(Host& owner);
    SuiteWitness(const SuiteWitness&) = delete;
    SuiteWitness& operator=(const SuiteWitness&) = delete;

    /// Runs what was queued up to now, in the order of queueing, as an idle of the host does. What the
    /// functions let escape is in the result, a line each.
    std::vector<std::string> RunQueued();

    // What was called since the beginning, in words.
    std::vector<std::string> Calls() const;
    /// Calls with another table's reference, or with nothing where a text belongs.
    std::vector<std::string> WrongCalls() const;
    std::vector<std::string> CallsFromOtherThreads() const;

private:
    struct Queued
    {
        VortanIdleFunction function;
        void* refcon;
    };

    static int addFunction(VortanIdleRef* ref, VortanIdleFunction function, void* refcon);
    static int openPanel(VortanPanelRef* ref, unsigned char force);
    static int refreshPanel(VortanPanelRef* ref);
    static int panelNotify(VortanPanelRef* ref, const char* text);

    enum class Arguments
    {
        asTheyShould,
        wrong
    };
    void note(const std::string& call, Arguments arguments);

    Host& host;
    const std::thread::id mainThread = std::this_thread::get_id();
    VortanIdleSuite idleSuite{};
    VortanPanelSuite panelSuite{};
    std::vector<Queued> queue;
    mutable std::mutex mutex; ///< An effect that is judged may call from anywhere.
    std::vector<std::string> calls;
    std::vector<std::string> wrong;
    std::vector<std::string> elsewhere;
};
} // namespace standin::check
