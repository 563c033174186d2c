#import "tests/appkit/HostScene.h"
#import "tests/appkit/InstalledMonitors.h"
#include "tests/support/OutputOf.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace standin
{
namespace
{
enum class Receiver
{
    tree,
    host
};

struct KeyRow
{
    const char* name;
    Key key;
    const char* lines;
    Receiver receiver;
};

void PrintTo(const KeyRow& row, std::ostream* out) { *out << row.name; }

constexpr NSUInteger command = NSCommandKeyMask;
constexpr NSUInteger shift = NSShiftKeyMask;
constexpr NSUInteger option = NSAlternateKeyMask;
constexpr NSUInteger control = NSControlKeyMask;

const KeyRow rows[] = {
    {"Delete", {@"\x7f", @"\x7f", 51, 0}, "Delete Key Pressed\n", Receiver::tree},
    {"ForwardDelete", {@"\uF728", @"\uF728", 117, 0}, "Delete Key Pressed\n", Receiver::tree},
    {"DeleteByItsCharacterWhateverItsCode", {@"\x7f", @"q", 12, 0}, "Delete Key Pressed\n", Receiver::tree},
    {"ShiftDelete", {@"\x7f", @"\x7f", 51, shift}, "Delete Key Pressed\n", Receiver::tree},
    {"CommandDelete", {@"\x7f", @"\x7f", 51, command}, "Delete Key Pressed\n", Receiver::tree},
    {"DeleteOnTheReturnKey", {@"\x7f", @"\x7f", 36, 0}, "Delete Key Pressed\n", Receiver::tree},
    {"Return", {@"\r", @"\r", 36, 0}, "Return Key Pressed\n", Receiver::tree},
    {"KeypadEnter", {@"\x03", @"\x03", 76, 0}, "Return Key Pressed\n", Receiver::tree},
    {"CommandReturn", {@"\r", @"\r", 36, command}, "Return Key Pressed\n", Receiver::tree},
    {"ReturnWithoutCharacters", {@"", @"", 36, 0}, "Return Key Pressed\n", Receiver::tree},
    {"CommandX", {@"x", @"x", 7, command}, "Command Key Pressed\nCmd X Pressed\n", Receiver::tree},
    {"CommandC", {@"c", @"c", 8, command}, "Command Key Pressed\nCmd C Pressed\n", Receiver::tree},
    {"CommandV", {@"v", @"v", 9, command}, "Command Key Pressed\nCmd v Pressed\n", Receiver::tree},
    {"CommandA", {@"a", @"a", 0, command}, "Command Key Pressed\nCmd a Pressed\n", Receiver::tree},
    {"CommandOptionXByWhatTheKeyIsWithoutThem",
     {@"\u2248", @"x", 7, command | option},
     "Command Key Pressed\nCmd X Pressed\n",
     Receiver::tree},
    {"TwoCharactersOnTheReturnKey", {@"\x7f\x7f", @"\x7f", 36, 0}, "Return Key Pressed\n", Receiver::tree},
    {"TwoCharactersWithCommandC",
     {@"\x7f\x7f", @"c", 8, command},
     "Command Key Pressed\nCmd C Pressed\n",
     Receiver::tree},

    {"CommandShiftX", {@"X", @"X", 7, command | shift}, "Command Key Pressed\n", Receiver::host},
    {"CommandShiftC", {@"C", @"C", 8, command | shift}, "Command Key Pressed\n", Receiver::host},
    {"CommandShiftV", {@"V", @"V", 9, command | shift}, "Command Key Pressed\n", Receiver::host},
    {"CommandShiftA", {@"A", @"A", 0, command | shift}, "Command Key Pressed\n", Receiver::host},
    {"CommandZ", {@"z", @"z", 6, command}, "Command Key Pressed\n", Receiver::host},
    {"CommandS", {@"s", @"s", 1, command}, "Command Key Pressed\n", Receiver::host},
    {"CommandWithTwoLetters", {@"xx", @"xx", 7, command}, "Command Key Pressed\n", Receiver::host},
    {"CommandUp", {@"\uF700", @"\uF700", 126, command}, "Command Key Pressed\n", Receiver::host},
    {"CommandWithoutCharacters", {@"", @"", 10, command}, "Command Key Pressed\n", Receiver::host},
    {"TwoCharactersThatAreNoDelete", {@"\x7f\x7f", @"\x7f", 51, 0}, "", Receiver::host},
    {"X", {@"x", @"x", 7, 0}, "", Receiver::host},
    {"ControlX", {@"\x18", @"x", 7, control}, "", Receiver::host},
    {"OptionA", {@"\u00e5", @"a", 0, option}, "", Receiver::host},
    {"Backspace", {@"\b", @"\b", 51, 0}, "", Receiver::host},
    {"CharacterBehindDelete", {@"\u0080", @"\u0080", 10, 0}, "", Receiver::host},
    {"Insert", {@"\uF727", @"\uF727", 114, 0}, "", Receiver::host},
    {"Home", {@"\uF729", @"\uF729", 115, 0}, "", Receiver::host},
    {"ReturnCharacterOnAnotherKey", {@"\r", @"\r", 40, 0}, "", Receiver::host},
    {"KeyCode35", {@"p", @"p", 35, 0}, "", Receiver::host},
    {"KeyCode37", {@"l", @"l", 37, 0}, "", Receiver::host},
    {"KeyCode75", {@"/", @"/", 75, 0}, "", Receiver::host},
    {"KeyCode77", {@"\x1d", @"\x1d", 77, 0}, "", Receiver::host},
    {"Left", {@"\uF702", @"\uF702", 123, 0}, "", Receiver::host},
    {"Tab", {@"\t", @"\t", 48, 0}, "", Receiver::host},
    {"Escape", {@"\x1b", @"\x1b", 53, 0}, "", Receiver::host},
    {"Space", {@" ", @" ", 49, 0}, "", Receiver::host},
    {"F5", {@"\uF708", @"\uF708", 96, 0}, "", Receiver::host},
    {"DeadKey", {@"", @"", 33, 0}, "", Receiver::host},
};

class SurfaceViewKey : public testing::TestWithParam<KeyRow>
{
protected:
    SurfaceViewKey()
    {
        scene.BecomeKeyWindow();
        scene.AddSurface();
        (void)scene.ClickInside();
        (void)TakeAnnouncements();
    }

    /// What is left of the row's key after the monitors, which have to print these lines: the event, or nil.
    NSEvent* Send(NSEvent* key, const std::string& lines)
    {
        NSEvent* passedOn = nil;
        EXPECT_EQ(OutputOf([&] { passedOn = PassThroughMonitors(key); }), lines);
        return passedOn;
    }

    std::vector<Announcement> AnnouncedFor(KeyboardOwner owner) { return {{scene.juceView, owner, 0}}; }

    HostScene scene;
};

TEST_P(SurfaceViewKey, GoesWhereItBelongsWhilePanelFocused)
{
    NSEvent* const key = MakeKeyPress(scene, GetParam().key);
    const bool isForTree = GetParam().receiver == Receiver::tree;

    EXPECT_EQ(Send(key, GetParam().lines), isForTree ? nil : key);
    EXPECT_EQ(scene.juceView->keys, isForTree ? std::vector<NSEvent*>{key} : std::vector<NSEvent*>{});
    EXPECT_TRUE(scene.container->keys.empty());
    EXPECT_EQ(TakeAnnouncements(), AnnouncedFor(KeyboardOwner::panel));
}

TEST_P(SurfaceViewKey, GoesToTheHostAfterAClickElsewhere)
{
    (void)scene.ClickOutside();
    EXPECT_EQ(TakeAnnouncements(), AnnouncedFor(KeyboardOwner::host));
    NSEvent* const key = MakeKeyPress(scene, GetParam().key);

    EXPECT_EQ(Send(key, ""), key);
    EXPECT_TRUE(scene.juceView->keys.empty());
    EXPECT_EQ(TakeAnnouncements(), AnnouncedFor(KeyboardOwner::host));
}

TEST_P(SurfaceViewKey, GoesToTheHostWithoutTheKeyWindow)
{
    scene.ResignKeyWindow();
    NSEvent* const key = MakeKeyPress(scene, GetParam().key);

    EXPECT_EQ(Send(key, ""), key);
    EXPECT_TRUE(scene.juceView->keys.empty());
    EXPECT_EQ(TakeAnnouncements(), std::vector<Announcement>{});
}

INSTANTIATE_TEST_SUITE_P(EveryRow, SurfaceViewKey, testing::ValuesIn(rows),
                         [](const testing::TestParamInfo<KeyRow>& info) { return info.param.name; });

} // namespace
} // namespace standin
