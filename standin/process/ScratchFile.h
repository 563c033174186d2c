#pragma once
// A file without a name, which is gone with the object.

#include <string>

namespace standin::process
{
class ScratchFile
{
public:
    /// Throws std::runtime_error if no file can be made.
    ScratchFile();
    ~ScratchFile();
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    int Descriptor() const { return descriptor; }
    /// What it holds from this byte on. The position at which others write stays where it is.
    std::string Text(std::size_t from = 0) const;

private:
    int descriptor;
};
} // namespace standin::process
