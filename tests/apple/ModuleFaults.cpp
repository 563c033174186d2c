// What the bundle's module must and must not contain.

#include "tests/apple/MachOModule.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace standin
{
namespace
{
/// An architecture, the oldest macOS that the bundle is for on it, and what is done at loading: the names of
/// the tree's properties, and of what JUCE stores of a tree view's state, are made. The disassembler does not
/// see that for Apple silicon, where it names functions alone.
struct Expected
{
    const char* architecture;
    const char* oldestSystem;
    const char* initialisers;
};
constexpr Expected expectedSlices[] = {{"x86_64", "10.15", "TreeModel.cpp TreeStateTable.cpp"},
                                       {"arm64", "11.0", "nothing"}};

const std::vector<std::string> expectedExports = {"_EffectorAEGP", "_PanelEntryPointFunc"};
const std::vector<std::string> expectedClasses = {"VortanPluginView", "VortanSurfaceView"};

/// What the module takes of the C library, of the compilers' support and of the runtime of Objective-C.
bool isFromSystem(const std::string& symbol)
{
    static const std::set<std::string> known = {
        "_NSZeroRect",
        "_OBJC_CLASS_$_NSEvent",
        "_OBJC_CLASS_$_NSView",
        "_OBJC_METACLASS_$_NSObject",
        "_OBJC_METACLASS_$_NSView",
        "__Block_object_assign",
        "__Block_object_dispose",
        "__NSConcreteStackBlock",
        "__Unwind_Resume",
        "__ZTIi",
        "___CFConstantStringClassReference",
        "___bzero",
        "___cxa_allocate_exception",
        "___cxa_atexit",
        "___cxa_begin_catch",
        "___cxa_end_catch",
        "___cxa_free_exception",
        "___cxa_guard_acquire",
        "___cxa_guard_release",
        "___cxa_throw",
        "___dynamic_cast",
        "___gxx_personality_v0",
        "___stack_chk_fail",
        "___stack_chk_guard",
        "___stdoutp",
        "__dispatch_main_q",
        "__objc_empty_cache",
        "_bzero",
        "_calloc",
        "_dispatch_async_f",
        "_fflush",
        "_fputc",
        "_free",
        "_fwrite",
        "_malloc",
        "_memchr",
        "_memcmp",
        "_memcpy",
        "_memmove",
        "_objc_alloc",
        "_objc_autorelease",
        "_objc_enumerationMutation",
        "_objc_msgSend",
        "_objc_msgSendSuper2",
        "_objc_msgSend_stret",
        "_objc_release",
        "_objc_retain",
        "_printf",
        "_puts",
        "_realloc",
        "_strcmp",
        "_strlen",
        "_strncmp",
    };
    return known.count(symbol) != 0;
}

std::string listed(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : " ") + name;
    return text.empty() ? "nothing" : text;
}

class Faults
{
public:
    void FindIn(const MachOSlice& slice, const Expected& expected)
    {
        architecture = slice.architecture;
        expect("is a", slice.fileType, "BUNDLE");
        expect("needs macOS", slice.oldestSystem, expected.oldestSystem);
        expect("exports", listed(slice.exports), listed(expectedExports));
        expect("has the classes", listed(slice.classes), listed(expectedClasses));
        expect("does at loading what is in", listed(slice.initialisers), expected.initialisers);
        for (const std::string& symbol : slice.undefined)
            if (!IsFromCppLibraries(symbol) && !isFromSystem(symbol))
                found.push_back(architecture + " lacks " + symbol);
    }

    std::vector<std::string> found;

private:
    void expect(const std::string& what, const std::string& actual, const std::string& wanted)
    {
        if (actual != wanted)
            found.push_back(architecture + " " + what + " " + actual);
    }

    std::string architecture;
};
} // namespace

std::vector<std::string> FindModuleFaults(const std::vector<MachOSlice>& module)
{
    Faults faults;
    for (const Expected& expected : expectedSlices)
    {
        const auto slice = std::find_if(module.begin(), module.end(),
                                        [&](const MachOSlice& candidate)
                                        { return candidate.architecture == expected.architecture; });
        if (slice == module.end())
            faults.found.push_back(std::string("there is no code for ") + expected.architecture);
        else
            faults.FindIn(*slice, expected);
    }
    if (module.size() > std::size(expectedSlices))
        faults.found.push_back("there is code for more");
    return faults.found;
}
} // namespace standin
