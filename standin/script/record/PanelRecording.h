#pragma once
// What the user does in the panel, put into words: the events of mouse and keyboard, and what the panel
// showed where the pointer was. The panel answers to events in the host's idle alone, so that a look before
// each idle sees what the user saw.

#include "standin/script/record/ScenarioRecording.h"
#include "standin/user/eyes/PanelReader.h"
#include "standin/user/x11/XInputRecord.h"
#include "standin/user/x11/XTestInput.h"

#include <optional>

namespace standin::script
{
class PanelRecording
{
public:
    /// Where the panel is on the screen, and whether it has the keyboard; asked for each time.
    struct View
    {
        std::optional<user::Area> area; ///< Nothing while it cannot be seen.
        bool hasKeyboard = false;
    };

    /// Throws std::runtime_error if the display has not what it takes.
    PanelRecording(Host& host, ScenarioRecording& recording, std::function<View()> view);

    /// Writes down what has happened. Called before each idle, and before a line of the desktop's own.
    void Follow();
    /// Writes down as well what might still become something else, such as a first click.
    void Finish();

private:
    void handle(const user::InputEvent& event);
    void press(const user::InputEvent& event);
    void release(const user::InputEvent& event);
    void key(const user::InputEvent& event);
    void pressRow(const user::InputEvent& event, const user::PanelRow& row);
    void chooseEntry(const user::InputEvent& event);
    void leaveMenu();
    void choose(int entry);
    void readMenu();
    std::optional<user::Area> menu();
    void drop(const user::InputEvent& event, const std::string& name);
    void flushText();
    void flushClick();
    void line(const std::string& pattern, const std::vector<std::string>& blanks = {});

    bool isInside(const user::InputEvent& event) const;
    std::vector<std::string> candidates() const;
    std::vector<user::PanelRow> rows();
    std::string nameOf(const std::vector<user::PanelRow>& rows, std::size_t index) const;

    struct Click
    {
        std::string row;
        unsigned long time = 0;
        int x = 0;
        int y = 0;
    };

    Host& host;
    ScenarioRecording& recording;
    std::function<View()> look;
    user::XInputRecord events;
    user::XTestInput eyes;
    user::PanelReader reader;
    View view;
    std::string menuOf;               ///< The button whose menu is open.
    std::vector<std::string> entries; ///< Of that menu. One that is pointed at is not always to be read.
    std::vector<std::uint32_t> menuPicture;  ///< When it was read last.
    int menuEntry = -1;                      ///< What the arrow keys have come to in it.
    std::vector<user::PanelRow> rowsAtPress; ///< What is dragged hangs over them later.
    std::string typed;                       ///< Typed so far.
    std::optional<Click> click; ///< On a row's text; a second one would make a double click of it.
    std::optional<Click> held;  ///< On a row, with the button still down.
    int passes = 0;             ///< Without an event.
};
} // namespace standin::script
