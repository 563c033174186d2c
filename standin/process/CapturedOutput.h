#pragma once
// While an object of this class lives, standard output goes into a file of its own instead of to the
// terminal. Such objects nest.

#include "standin/process/ScratchFile.h"

#include <vector>

namespace standin::process
{
class CapturedOutput
{
public:
    /// Throws std::runtime_error if standard output cannot be redirected.
    CapturedOutput();
    ~CapturedOutput();
    CapturedOutput(const CapturedOutput&) = delete;
    CapturedOutput& operator=(const CapturedOutput&) = delete;

    /// All that was written so far.
    std::string Text() const;
    /// The part of it that no longer waits in a buffer of the program.
    std::string FlushedText() const { return file.Text(); }
    /// The whole lines since the last call, without their ends.
    std::vector<std::string> TakeLines();
    /// Writes to the standard output that was there before.
    void WriteToTerminal(const std::string& text) const;

private:
    ScratchFile file;
    int terminal;
    std::size_t taken = 0;
};

/// Empties the buffers of both libraries.
void FlushOutput();
} // namespace standin::process
