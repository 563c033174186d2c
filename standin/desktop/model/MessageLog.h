#pragma once
// What was said since the desktop opened: alerts, lines that the bundle printed, findings, and notes of the
// desktop itself. The same message many times in a row is one line with a count.

#include <cstddef>
#include <deque>
#include <string>

namespace standin::desktop
{
enum class MessageKind
{
    note,
    printed,
    alert,
    finding,
    failure ///< Something that the user asked for and did not get.
};

struct Message
{
    MessageKind kind = MessageKind::note;
    std::string text;
    int times = 1;
};

class MessageLog
{
public:
    /// Keeps the newest `most` lines.
    explicit MessageLog(std::size_t most = 2000) : limit(most) {}

    void Add(MessageKind kind, const std::string& text);
    void Clear();
    const std::deque<Message>& All() const { return messages; }
    /// Moves with every change.
    std::size_t Revision() const { return revision; }

private:
    std::size_t limit;
    std::deque<Message> messages;
    std::size_t revision = 0;
};
} // namespace standin::desktop
