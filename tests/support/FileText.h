#pragma once
// The texts of files, for tests that compare files of the project with the code.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <stdexcept>
#include <string>
#include <vector>

namespace standin
{
/// All that the file holds. Throws std::runtime_error if it cannot be read.
inline std::string FileText(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        throw std::runtime_error(file.string() + " cannot be read");
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The first groups of all matches of the pattern.
inline std::vector<std::string> FindAll(const std::string& text, const std::string& pattern)
{
    std::vector<std::string> found;
    const std::regex expression(pattern);
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match)
        found.push_back((*match)[1]);
    return found;
}
} // namespace standin
