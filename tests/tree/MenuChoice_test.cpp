// The menus of the toolbar: what they offer, and what a choice comes to. JUCE's function that opens one is
// the linker's to lead here.

#include "tests/tree/support/TreeTest.h"
#include "tree/MenuLoop.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace
{
struct Menu
{
    std::vector<juce::PopupMenu::Item> items;
    juce::Component* target;
    std::function<void(int)> choose;
};

std::vector<Menu> menus;
int dismissals = 0;
} // namespace

extern "C" void __wrap__ZN4juce9PopupMenu13showMenuAsyncERKNS0_7OptionsESt8functionIFviEE(
    juce::PopupMenu*, const juce::PopupMenu::Options&, std::function<void(int)>);
extern "C" bool __wrap__ZN4juce9PopupMenu21dismissAllActiveMenusEv();

extern "C" void __wrap__ZN4juce9PopupMenu13showMenuAsyncERKNS0_7OptionsESt8functionIFviEE(
    juce::PopupMenu* menu, const juce::PopupMenu::Options& options, std::function<void(int)> callback)
{
    Menu opened{{}, options.getTargetComponent(), std::move(callback)};
    for (juce::PopupMenu::MenuItemIterator item(*menu); item.next();)
        opened.items.push_back(item.getItem());
    menus.push_back(std::move(opened));
}

extern "C" bool __wrap__ZN4juce9PopupMenu21dismissAllActiveMenusEv()
{
    ++dismissals;
    return false;
}

namespace standin
{
namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

class MenuChoice : public TreeTest
{
protected:
    MenuChoice()
    {
        menus.clear();
        dismissals = 0;
        AddObject(panel, VN_OBJECT_GEOMETRY, 11, "Sheets");
        AddObject(panel, VN_OBJECT_RENDERER, 21, "Dots");
        AddObject(panel, VN_OBJECT_GEOMETRY, 12, "Rou\xfftes");
        AddObject(panel, VN_OBJECT_RENDERER, 0, "Rays");
        AddObject(panel, static_cast<VN_OBJECT_TYPE>(0), 31, "of no button");
        AddObject(panel, static_cast<VN_OBJECT_TYPE>(0), 32, "of no button");
    }

    ~MenuChoice() override
    {
        deleteWidget();
        menus.clear();
    }

    void open(SimpleButton& button)
    {
        (void)OutputOf([&] { button.clicked(); });
    }

    std::vector<int> keysOfChoice(int result)
    {
        menus.back().choose(result);
        return GetKeysToBeAddedToLayer(panel);
    }
};

TEST_F(MenuChoice, OffersTheEffectsOfItsButton)
{
    open(panel->geometryButton);
    ASSERT_EQ(menus.size(), 1u);
    EXPECT_EQ(menus[0].target, &panel->geometryButton);
    ASSERT_EQ(menus[0].items.size(), 2u);
    EXPECT_EQ(menus[0].items[0].text, "Sheets");
    EXPECT_EQ(menus[0].items[1].text.toStdString(), "Rou\xef\xbf\xbdtes");
    for (const int i : {0, 1})
    {
        const auto& item = menus[0].items[static_cast<std::size_t>(i)];
        EXPECT_EQ(item.itemID, i + 1);
        EXPECT_TRUE(item.isEnabled);
        EXPECT_FALSE(item.isTicked);
    }
}

TEST_F(MenuChoice, AddsTheKeyOfTheChoice)
{
    open(panel->geometryButton);
    EXPECT_THAT(GetKeysToBeAddedToLayer(panel), IsEmpty());
    EXPECT_THAT(keysOfChoice(1), ElementsAre(11));
    open(panel->geometryButton);
    EXPECT_THAT(keysOfChoice(2), ElementsAre(12));
    open(panel->geometryButton);
    EXPECT_THAT(keysOfChoice(0), IsEmpty());
    open(panel->rendererButton);
    EXPECT_THAT(keysOfChoice(1), ElementsAre(21));
    open(panel->rendererButton);
    EXPECT_THAT(keysOfChoice(2), IsEmpty()) << "the key 0";
}

TEST_F(MenuChoice, IsLeftOutWhereThereIsNone)
{
    open(panel->effectorButton);
    open(panel->groupButton);
    open(panel->vortanButton);
    juce::TextButton other;
    panel->buttonClicked(&other);
    AddObject(panel, VN_OBJECT_VORTAN, 41, "Vortan");
    open(panel->vortanButton);
    EXPECT_TRUE(menus.empty());
    EXPECT_THAT(GetKeysToBeAddedToLayer(panel), ElementsAre(41));
}

TEST_F(MenuChoice, DoesNothingAfterTheEndOfThePanel)
{
    open(panel->geometryButton);
    deleteWidget();
    EXPECT_EQ(dismissals, 1);
    menus[0].choose(1);
}

TEST_F(MenuChoice, IsEndedWithJuce)
{
    deleteWidget();
    const MenuLoop loop;
    JuceGlobalShutDown();
    EXPECT_EQ(dismissals, 1);
}

TEST_F(MenuChoice, EndsNoMenuOfAnotherPanel)
{
    open(panel->geometryButton);
    (void)keysOfChoice(0);
    deleteWidget();
    EXPECT_EQ(dismissals, 0);
}
} // namespace
} // namespace standin
