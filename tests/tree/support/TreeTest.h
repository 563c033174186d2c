#pragma once
// What the tests of the tree share: JUCE started and stopped around each test, items and rows by name,
// the lines on standard output, and direct input to the components.

#include "effects/ObjectItem.h"
#include "tests/support/OutputOf.h"
#include "tree/Tree.h"
#include "tree/TreeModel.h"
#include "tree/ValueTreeItem.h"
#include "tree/ValueTreesDemo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace standin
{
/// A uuid text that ends in the given number.
std::string uuidOf(int number);

ObjectItem object(int number, const std::string& name, int group = 0, int active = 1);
ObjectItem external(const std::string& name);

std::vector<std::string> namesOf(const std::vector<ObjectItem>& items);
std::vector<int> groupsOf(const std::vector<ObjectItem>& items);
std::vector<int> activesOf(const std::vector<ObjectItem>& items);

/// JUCE is up, and there is a widget, on no desktop.
class TreeTest : public testing::Test
{
protected:
    enum class Screen
    {
        none,
        ofTheEnvironment
    };

    explicit TreeTest(Screen screen = Screen::none);
    ~TreeTest() override;

    /// The whole tree as text: "Layer(Group 1(a b) c)". A selected row carries a "*", a closed one with
    /// nodes below it a "+".
    std::string shape();

    CustomTreeView& view() { return panel->treeView; }
    ValueTreeItem* root();

    /// The first row of that name from the top; a test failure and an exception if there is none.
    ValueTreeItem& row(const std::string& name);
    juce::ValueTree node(const std::string& name) { return row(name).getNode(); }

    void select(const std::vector<std::string>& names);
    std::vector<std::string> selectedNames();
    bool pressKey(const juce::KeyPress& key) { return view().keyPressed(key); }
    void drop(const std::string& target, int insertIndex, const std::string& description = "Object");

    void deleteWidget();

    ValueTreesDemo* panel = nullptr;
};

juce::KeyPress commandKey(int letter);
} // namespace standin
