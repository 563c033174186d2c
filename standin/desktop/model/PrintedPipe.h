#pragma once
// What the process prints on standard output, line by line. The bundle prints its diagnostics there; while an
// object of this class lives they come here instead, through a pipe.

#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace standin
{
class PrintedPipe
{
public:
    /// Throws std::runtime_error if there is no pipe to be had.
    PrintedPipe();
    /// Standard output is what it was before.
    ~PrintedPipe();
    PrintedPipe(const PrintedPipe&) = delete;
    PrintedPipe& operator=(const PrintedPipe&) = delete;

    /// The whole lines since the last call, without their ends. What was printed before the call is in them.
    std::vector<std::string> Take();

    /// Writes to the standard output that was there before.
    void PrintBehind(const std::string& text) const;

private:
    void readOn();
    void drain();

    int formerOutput;
    int readEnd = -1;
    int stopEnds[2] = {-1, -1};
    std::mutex mutex;
    std::string text; ///< Read and not taken yet.
    /// Reads even while the main thread prints more than a pipe holds.
    std::thread reader;
};
} // namespace standin
