#pragma once
// A stack of effects, and one selection on it as the idle pass pushes it.

#include "tests/support/StackTest.h"

#include <string>

namespace standin
{
struct SelectedStack : LabelledStack
{
    SelectedStack(const std::string& labels, const std::string& selectedLabels, bool hide)
        : LabelledStack(labels), selected(Tree(selectedLabels)), useHide(hide)
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
} // namespace standin
