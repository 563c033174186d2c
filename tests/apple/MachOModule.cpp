#include "tests/apple/MachOModule.h"

#include "tests/support/ProgramRun.h"

#include <algorithm>
#include <optional>
#include <regex>
#include <set>
#include <stdexcept>
#include <tuple>

namespace standin
{
namespace
{
using Words = std::vector<std::string>;

constexpr const char* classPrefix = "_OBJC_CLASS_$_";

/// What one of LLVM's tools prints, as words by lines.
std::vector<Words> wordsOf(const std::string& tool, const std::vector<std::string>& arguments)
{
    std::vector<std::string> command = {VORTAN_LLVM "/" + tool};
    command.insert(command.end(), arguments.begin(), arguments.end());
    std::vector<Words> lines;
    for (const std::string& line : LinesOf(command))
        lines.push_back(WordsOf(line));
    return lines;
}

std::vector<Words> dumpOf(const std::string& path, const std::string& architecture, const std::string& what)
{
    return wordsOf("llvm-objdump", {"--macho", "--arch=" + architecture, what, path});
}

/// The word at `place` of the only line whose first word is `first`.
std::string wordAfter(const std::vector<Words>& lines, const std::string& first, std::size_t place)
{
    std::vector<std::string> found;
    for (const Words& line : lines)
        if (line.size() > place && line.front() == first)
            found.push_back(line[place]);
    if (found.size() != 1)
        throw std::runtime_error(std::to_string(found.size()) + " lines begin with " + first);
    return found.front();
}

/// The last words of the lines that begin with an address.
std::vector<std::string> namesWithAddress(const std::vector<Words>& lines)
{
    std::vector<std::string> names;
    for (const Words& line : lines)
        if (line.size() >= 2 && line.front().rfind("0x", 0) == 0)
            names.push_back(line[1]);
    std::sort(names.begin(), names.end());
    return names;
}

/// What follows the prefix in the names that begin with it, sorted.
std::vector<std::string> without(const std::string& prefix, const std::vector<Words>& symbols)
{
    std::vector<std::string> names;
    for (const Words& line : symbols)
        if (!line.empty() && line.back().rfind(prefix, 0) == 0)
            names.push_back(line.back().substr(prefix.size()));
    std::sort(names.begin(), names.end());
    return names;
}

/// The functions that the dynamic linker calls at loading, by the section that holds their addresses.
std::size_t initialiserCount(const std::vector<Words>& sections)
{
    constexpr std::size_t bytesForEach = 8;
    for (const Words& line : sections)
        if (line.size() > 2 && line[1] == "__mod_init_func")
            return std::stoul(line[2], nullptr, 16) / bytesForEach;
    return 0;
}

/// The symbols that a line of the disassembly names: a function's, called through a stub or not, or that of a
/// variable.
std::vector<std::string> symbolsIn(const Words& line)
{
    static const std::regex variable("(_[A-Za-z0-9_.$]+)\\(%rip\\),?");
    std::vector<std::string> symbols;
    for (std::size_t i = 1; i < line.size(); ++i)
    {
        std::smatch found;
        const bool isCalled = line[i - 1] == "callq" || line[i - 1] == "jmp" || line[i - 1] == "bl" ||
                              line[i - 1] == "b" || line[i - 1] == "for:" || line[i - 1] == "address:";
        if (isCalled && line[i].front() == '_')
            symbols.push_back(line[i]);
        else if (std::regex_match(line[i], found, variable))
            symbols.push_back(found[1]);
    }
    return symbols;
}

/// Not what an initialiser calls to be run once, and to have the variable destroyed at the end.
bool isOwn(const std::string& symbol)
{
    return !IsFromCppLibraries(symbol) && symbol != "___cxa_atexit" && symbol != "___cxa_guard_acquire" &&
           symbol != "___cxa_guard_release";
}

/// What a line of the disassembly begins, if that is the initialiser of a source's variables or of one inline
/// variable: the source, or the initialiser itself.
std::optional<std::string> initialiserBegunBy(const std::string& label)
{
    const std::string ofSource = "__GLOBAL__sub_I_";
    if (label.rfind(ofSource, 0) == 0)
        return label.substr(ofSource.size());
    if (label.rfind("___cxx_global_var_init", 0) == 0)
        return label;
    return std::nullopt;
}

/// The initialisers that name something that is neither JUCE's nor the C++ library's, and the count of all.
std::pair<std::vector<std::string>, std::size_t> initialisersIn(const std::vector<Words>& disassembly)
{
    std::pair<std::set<std::string>, std::size_t> found;
    std::optional<std::string> current;
    for (const Words& line : disassembly)
    {
        if (line.size() == 1 && line.front().back() == ':')
        {
            current = initialiserBegunBy(line.front().substr(0, line.front().size() - 1));
            found.second += current ? 1 : 0;
        }
        else if (current)
            for (const std::string& symbol : symbolsIn(line))
                if (isOwn(symbol))
                    found.first.insert(*current);
    }
    return {{found.first.begin(), found.first.end()}, found.second};
}

MachOSlice readSlice(const std::string& path, const std::string& architecture)
{
    constexpr std::size_t placeOfFileType = 4;
    const std::string arch = "--arch=" + architecture;
    MachOSlice slice;
    slice.architecture = architecture;
    slice.fileType =
        wordAfter(dumpOf(path, architecture, "--private-header"), "MH_MAGIC_64", placeOfFileType);
    slice.oldestSystem = wordAfter(dumpOf(path, architecture, "--private-headers"), "minos", 1);
    slice.exports = namesWithAddress(dumpOf(path, architecture, "--exports-trie"));
    for (const Words& line : wordsOf("llvm-nm", {arch, "--undefined-only", "--just-symbol-name", path}))
        if (line.size() == 1)
            slice.undefined.push_back(line.front());
    const std::vector<Words> defined = wordsOf("llvm-nm", {arch, "--defined-only", path});
    slice.classes = without(classPrefix, defined);
    std::size_t count = 0;
    std::tie(slice.initialisers, count) = initialisersIn(dumpOf(path, architecture, "--disassemble"));
    if (count != initialiserCount(dumpOf(path, architecture, "--section-headers")))
        throw std::runtime_error(architecture + ": the initialisers by name are not those of the section");
    return slice;
}
} // namespace

bool IsFromCppLibraries(const std::string& symbol)
{
    static const std::regex libraries(
        "__Z(T[ICSV]|Th[n0-9]+_|GV)?(N[VK]*[RO]?)?(4juce|St|10__cxxabiv1).*|__Z(nw|na|dl|da)[A-Za-z0-9_]*");
    return std::regex_match(symbol, libraries);
}

std::vector<MachOSlice> ReadMachOModule(const std::string& path)
{
    std::vector<MachOSlice> slices;
    for (const Words& line : wordsOf("llvm-lipo", {path, "-archs"}))
        for (const std::string& architecture : line)
            slices.push_back(readSlice(path, architecture));
    return slices;
}
} // namespace standin
