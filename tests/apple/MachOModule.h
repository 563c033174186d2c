#pragma once
// A module for macOS as LLVM's tools read it, and what is not as it must be in the bundle's.

#include <string>
#include <vector>

namespace standin
{
/// What the module holds for one architecture.
struct MachOSlice
{
    std::string architecture;
    std::string fileType;
    std::string oldestSystem;           ///< The version of macOS, "10.15".
    std::vector<std::string> exports;   ///< Of the export trie, sorted.
    std::vector<std::string> undefined; ///< As the linker names them.
    std::vector<std::string> classes;   ///< Of Objective-C, under the names that the runtime knows, sorted.
    /// The sources that have something done at loading beyond what the constants in JUCE's headers do there,
    /// sorted.
    std::vector<std::string> initialisers;
};

/// In the order of the file. Throws std::runtime_error if a tool fails or prints something unexpected.
std::vector<MachOSlice> ReadMachOModule(const std::string& path);

/// JUCE's names, those of the C++ library and of its support, and the operators new and delete.
bool IsFromCppLibraries(const std::string& symbol);

/// A line for each thing that is not as it must be in the module of the bundle with both entry points. Empty
/// for a module that is as it must be.
std::vector<std::string> FindModuleFaults(const std::vector<MachOSlice>&);
} // namespace standin
