#pragma once
// A temporary folder, removed when the test ends.

#include "tests/support/FileText.h"

#include <algorithm>
#include <cstdlib>

namespace standin
{
class Scratch
{
public:
    Scratch()
    {
        std::string pattern =
            (std::filesystem::temp_directory_path() / ("standin-" + std::string(6, 'X'))).string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("no folder for the test");
        folder = pattern;
    }
    ~Scratch() { std::filesystem::remove_all(folder); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    std::string Path(const std::string& name) const { return (folder / name).string(); }

    void Write(const std::string& name, const std::string& text) const
    {
        std::ofstream(Path(name), std::ios::binary) << text;
    }

    std::string Read(const std::string& name) const { return FileText(folder / name); }

    /// All files in it, in alphabetical order.
    std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    std::filesystem::path folder;
};
} // namespace standin
