#pragma once
// A stack of effects, and one selection on it as the idle pass pushes it.

#include "tests/support/StackTest.h"

#include <string>

namespace standin
{
struct SelectedStack : StackScene
{
    SelectedStack(const std::string& labels, const std::string& selectedLabels, bool hide)
        : StackScene(labels), selected(Tree(selectedLabels)), useHide(hide)
    {
    }

    Items selected;
    bool useHide;
    HookResult result;
    std::string output;

    void Run()
    {
        output = OutputOf([this] { result = Select(useHide, true, selected); });
    }
};

/// The part of the trace from the start of the first undo group on.
inline std::string sweepOf(StackScene& stack)
{
    const std::string calls = stack.Calls();
    const std::size_t start = calls.find("Utility 3 AEGP_StartUndoGroup");
    return start == std::string::npos ? "" : calls.substr(start);
}

/// The calls with which the turn of the effect A begins.
inline const char* const takeA = "Utility 3 AEGP_StartUndoGroup(\"\")\n"
                                 "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A\n";
} // namespace standin
