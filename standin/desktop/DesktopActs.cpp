// What is done in the host's own windows, by mouse and keys.

#include "standin/desktop/DesktopSession.h"
#include "standin/script/Stage.h"

namespace standin::desktop
{
namespace
{
constexpr int middleOfRow = theme::rowHeight / 2;
constexpr int nameX = 90;
constexpr int twirlX = 12;

/// The upper edge of an effect's row in the effect controls, of as many as there are.
int topOf(const script::Stage& stage, std::size_t index)
{
    const script::Shown shown = script::ShowHost(stage.session.host);
    int top = 0;
    for (std::size_t i = 0; i < index; ++i)
        top += HeightOfEffect(shown.effects.at(i));
    return top;
}

std::size_t indexOf(script::Stage& stage, const std::string& name)
{
    const int id = stage.host().Effect(stage.EffectLabel(name)).id;
    const script::Shown shown = script::ShowHost(stage.host());
    for (std::size_t i = 0; i < shown.effects.size(); ++i)
        if (shown.effects[i].id == id)
            return i;
    throw script::StageError("the effect controls do not show " + name);
}

void selectLayer(DesktopSession& on, script::Stage& stage, const std::string& name)
{
    stage.layer = stage.LayerId(name);
    const script::Shown shown = script::ShowHost(stage.host());
    for (std::size_t i = 0; i < shown.layers.size(); ++i)
        if (shown.layers[i].id == stage.layer)
            return on.Click(on.PlaceIn("layers", {80, static_cast<int>(i) * theme::rowHeight + middleOfRow}));
    throw script::StageError("the front composition has no layer " + name);
}

void renameEffect(DesktopSession& on, script::Stage& stage, const std::string& name,
                  const std::string& newName)
{
    on.DoubleClick(on.PlaceIn("effects", {nameX, topOf(stage, indexOf(stage, name)) + middleOfRow}));
    on.TypeInto("name", newName);
    on.PressKey("Return");
}

/// Dropped at the upper edge of what it goes before, or at the lower edge of what it goes after.
void moveEffect(DesktopSession& on, script::Stage& stage, const std::string& name, int place)
{
    constexpr int inside = 3;
    const std::size_t from = indexOf(stage, name);
    const auto to = static_cast<std::size_t>(place - 1);
    const user::Place start = on.PlaceIn("effects", {nameX, topOf(stage, from) + middleOfRow});
    const int edge = to < from ? topOf(stage, to) + inside : topOf(stage, to + 1) - inside;
    on.Press(start);
    on.Idle();
    on.Move(start, on.PlaceIn("effects", {nameX, edge}));
    on.Release();
}

void notify(DesktopSession& on, script::Stage& stage, const std::string& text)
{
    stage.AddCandidate(text);
    on.Choose("Siblings", "Notify the Panel...");
    on.TypeInto("answer", text);
    on.PressKey("Return");
}
} // namespace

std::map<std::string, script::Act> ActsInWindows(DesktopSession& on)
{
    const user::Place otherTab{260, theme::headerHeight / 2};
    return {{"select layer TEXT",
             [&](script::Stage& s, const script::Arguments& a) { selectLayer(on, s, a.texts[0]); }},
            {"choose TEXT in the WORD menu",
             [&](script::Stage&, const script::Arguments& a) { on.Choose(a.texts[1], a.texts[0]); }},
            {"rename TEXT to TEXT", [&](script::Stage& s, const script::Arguments& a)
             { renameEffect(on, s, a.texts[0], a.texts[1]); }},
            {"move TEXT to place NUMBER", [&](script::Stage& s, const script::Arguments& a)
             { moveEffect(on, s, a.texts[0], a.numbers[0]); }},
            {"twirl TEXT",
             [&](script::Stage& s, const script::Arguments& a) {
                 on.Click(on.PlaceIn("effects", {twirlX, topOf(s, indexOf(s, a.texts[0])) + middleOfRow}));
             }},
            {"a sibling notifies TEXT",
             [&](script::Stage& s, const script::Arguments& a) { notify(on, s, a.texts[0]); }},
            {"cover the panel", [&on, otherTab](script::Stage&, const script::Arguments&)
             { on.Click(on.PlaceIn("dock", otherTab)); }},
            {"filter the calls for TEXT",
             [&](script::Stage&, const script::Arguments& a)
             {
                 on.Click(on.PlaceIn("filter", {60, 10}));
                 on.TypeInto("filter", a.texts[0]);
             }},
            {"press WORD", [&](script::Stage&, const script::Arguments& a)
             {
                 on.AwaitKeyboard();
                 on.PressKey(a.texts[0]);
                 on.Idle();
             }}};
}
} // namespace standin::desktop
