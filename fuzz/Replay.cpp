// Runs a fuzzed program over the files that are kept, once each: no fuzzer, any compiler.

#include "fuzz/Input.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace
{
std::vector<std::uint8_t> bytesOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}
} // namespace

int main(int count, char** arguments)
{
    int files = 0;
    for (int i = 1; i < count; ++i)
    {
        for (const auto& entry : std::filesystem::directory_iterator(arguments[i]))
        {
            const std::vector<std::uint8_t> bytes = bytesOf(entry.path());
            (void)std::fprintf(stderr, "%s\n", entry.path().filename().c_str());
            (void)LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
            ++files;
        }
    }
    (void)std::fprintf(stderr, "%d files went through\n", files);
    return files > 0 ? 0 : 1; // A corpus that is not there proves nothing.
}
