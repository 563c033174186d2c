#pragma once
// Whose code runs: the host's or a plug-in's. For faults that strike the one and spare the other.

namespace standin
{
enum class AtWork
{
    host,
    plugin
};

AtWork WhoIsAtWork();

/// Somebody is at work for as long as this lives.
class Working
{
public:
    explicit Working(AtWork who);
    ~Working();
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;

private:
    AtWork before;
};
} // namespace standin
