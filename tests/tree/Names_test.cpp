#include "tests/tree/support/Pump.h"
#include "tests/tree/support/TreeTest.h"
#include "tree/NameText.h"

#include <gtest/gtest.h>

using namespace standin;
using testing::ElementsAre;

namespace
{
constexpr const char* emptyNameMark = "\xef\xb7\x90";

// Any names that a host may hand over.
const std::vector<std::string> oddNames = {
    "",
    "\xff",
    "\xc0\xaf",
    "\xed\xa0\x80",
    "\xf4\x90\x80\x80",
    "a\xe2\x82",
    std::string("zero\0inside", 11),
    "line\nend\r\nand return\r",
    "/",
    "a/b\\c",
    "\x01\x02\x1b[31m",
    "<xml a=\"b\">&amp;",
    "Layer",
    "Group 1",
    std::string(200000, 'w'),
    std::string(200000, '\xff'),
    "gr\xc3\xbc\xc3\x9f",
    "\xe6\x97\xa5\xe6\x9c\xac \xf0\x9f\x98\x80",
    emptyNameMark,
    "%s%n%d",
};

class Names : public TreeTest
{
protected:
    void build(const std::vector<std::string>& names)
    {
        items.clear();
        for (const auto& name : names)
            items.push_back(
                object(static_cast<int>(items.size()) + 1, name, static_cast<int>(items.size()) % 3));
        RefreshTree(panel, items);
    }

    std::vector<ObjectItem> items;
};
} // namespace

TEST_F(Names, ComeBackByteForByte)
{
    for (const auto& name : oddNames)
    {
        build({name});
        EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre(name));
        EXPECT_EQ(CalcItemsHash(0, GetItemsFromTree(panel)), CalcItemsHash(0, items));
    }
}

TEST_F(Names, PaintWhateverTheyAre)
{
    build(oddNames);
    panel->setSize(300, 700);
    pump();
    const auto picture = panel->createComponentSnapshot(panel->getLocalBounds());
    EXPECT_EQ(picture.getHeight(), 700);
}

TEST_F(Names, SurviveCachingAndRestoringTheState)
{
    auto* table = CreateTreeStateTable();
    for (const auto& name : oddNames)
    {
        if (name == emptyNameMark)
            continue; // It shares its place, as shown below.
        build(oddNames);
        select({TextFromBytes(name).toStdString()});
        CacheLayerTreeState(table, 1, panel);
        RefreshTree(panel, items);
        ApplyLayerTreeState(table, 1, panel);
        EXPECT_THAT(selectedNames(), ElementsAre(TextFromBytes(name).toStdString()));
        CacheLayerTreeState(table, 1, panel);
        EXPECT_FALSE(DidLayerStateChange(table, 1, panel));
    }
    DeleteTreeStateTable(table);
}

TEST_F(Names, SurviveARenameThatChangesNothing)
{
    for (const auto& name : oddNames)
    {
        build({name});
        root()->getSubItem(0)->setSelected(true, true);
        view().renameItem();
        ASSERT_TRUE(view().renameEditor->isVisible());
        view().renameEditor->returnPressed();
        EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre(name));
    }
}

TEST_F(Names, ThatAreMissingAreEditedAsEmpty)
{
    build({"a"});
    select({"a"});
    node("a").removeProperty(TreeIds::name, nullptr);
    view().renameItem();
    EXPECT_TRUE(view().renameEditor->isVisible());
    EXPECT_EQ(view().renameEditor->getText(), "");
}

TEST_F(Names, KeepOddBytesAroundAnEdit)
{
    build({"a\xff"
           "b"});
    root()->getSubItem(0)->setSelected(true, true);
    view().renameItem();
    view().renameEditor->moveCaretToEnd(false);
    view().renameEditor->insertTextAtCaret(" 2");
    view().renameEditor->returnPressed();
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("a\xff"
                                                              "b 2"));
}

TEST_F(Names, TypedByTheUserAreUtf8)
{
    build({"a"});
    root()->getSubItem(0)->setSelected(true, true);
    view().renameItem();
    view().renameEditor->setText(juce::String(juce::CharPointer_UTF8("gr\xc3\xbc\xc3\x9f")), false);
    view().renameEditor->returnPressed();
    EXPECT_THAT(namesOf(GetItemsFromTree(panel)), ElementsAre("gr\xc3\xbc\xc3\x9f"));
}

TEST_F(Names, OfMovedRowsAreWrittenAsTheyAre)
{
    build({"a\xff", "b", ""});
    for (int i = 0; i < 3; ++i)
        if (auto* item = root()->getSubItem(i))
            item->setSelected(true, false);
    const std::string output = OutputOf([this] { root()->itemDropped({juce::var(), &view(), {}}, 0); });
    EXPECT_NE(output.find("Moving Item: a\xff\n"), std::string::npos) << output;
}

TEST_F(Names, ThatAreEqualShareOneIdentity)
{
    build({"same", "same", "same", "same"});
    select({"same"});
    auto* table = CreateTreeStateTable();
    CacheLayerTreeState(table, 1, panel);
    RefreshTree(panel, items);
    ApplyLayerTreeState(table, 1, panel);
    EXPECT_EQ(selectedNames().size(), 1u);
    DeleteTreeStateTable(table);
}

TEST_F(Names, ThatAreEmptyAppearInTheState)
{
    build({"", "b"});
    root()->getSubItem(0)->setSelected(true, true);
    auto* table = CreateTreeStateTable();
    CacheLayerTreeState(table, 1, panel);
    root()->getSubItem(0)->setSelected(false, false);
    EXPECT_TRUE(DidLayerStateChange(table, 1, panel));
    RefreshTree(panel, items);
    ApplyLayerTreeState(table, 1, panel);
    EXPECT_THAT(selectedNames(), ElementsAre(""));
    DeleteTreeStateTable(table);
}

TEST_F(Names, ThatEqualTheEmptyMarkShareItsState)
{
    build({"", "", "", emptyNameMark});
    root()->getSubItem(root()->getNumSubItems() - 1)->setSelected(true, true);
    ASSERT_THAT(selectedNames(), ElementsAre(emptyNameMark));
    auto* table = CreateTreeStateTable();
    CacheLayerTreeState(table, 1, panel);
    RefreshTree(panel, items);
    ApplyLayerTreeState(table, 1, panel);
    EXPECT_THAT(selectedNames(), ElementsAre(""));
    DeleteTreeStateTable(table);
}

TEST_F(Names, OfMessagesAreCutAt4000Characters)
{
    NotifyMsg(panel, std::string(5000, 'a'));
    EXPECT_EQ(panel->notifyLabel.getText().length(), 4000);
}

TEST_F(Names, OfMessagesAndMenusMayBeAnything)
{
    for (const auto& name : oddNames)
    {
        NotifyMsg(panel, name);
        if (name.find('\0') == std::string::npos)
            AddObject(panel, VN_OBJECT_GEOMETRY, 1, name.c_str());
    }
    EXPECT_TRUE(panel->notifyLabel.isVisible());
    pump();
}
