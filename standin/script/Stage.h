#pragma once
// Where a scenario plays: a session, and what the lines before have said.

#include "standin/host/family/Sibling.h"
#include "standin/user/WindowSession.h"
#include "standin/user/eyes/PanelReader.h"

#include <set>

namespace standin::script
{
/// A line that cannot be carried out, or an expectation that does not hold, in words.
class StageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Whether the host idles after each action by itself.
enum class IdleHeld
{
    no,
    yes
};

class Stage
{
public:
    /// On a plain host of its own.
    Stage(const std::string& bundleFile, user::DisplayChoice display);
    explicit Stage(user::Session& on);
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

private:
    std::unique_ptr<user::Session> own;

public:
    user::Session& session;
    IdleHeld held = IdleHeld::no;
    int composition = 0;
    int layer = 0;
    int queuedRuns = 0; ///< How often functions of the idle queue have run.
    std::string pictures = ".";
    std::string folder;    ///< Where the scenario's file lies; empty for the working directory.
    user::Place pressed{}; ///< Where the button went down that is held, on the screen.
    std::function<void(const std::string&)> tell; ///< Takes what a scenario says.

    Host& host() { return session.host; }

    // Names to things. All throw StageError for what there is not. "lamp#2" is the second lamp from above.
    /// The label of the effect with this name, or shown with it, on the current layer or else on another.
    std::string EffectLabel(const std::string& name);
    int LayerId(const std::string& name);
    int ItemId(const std::string& name);
    const InstalledEffect& Installed(const std::string& name);
    user::PanelRow Row(const std::string& name);
    user::PanelButton Button(const std::string& name);

    /// Whether the condition holds, at once or while the host idles, unless idling is held.
    bool Await(const std::function<bool()>& condition,
               std::chrono::milliseconds limit = user::waits::untilSeen)
    {
        return held == IdleHeld::yes ? condition() : session.IdleUntil(condition, limit);
    }

    // What is on the screen.
    std::vector<user::PanelRow> Rows();
    std::optional<std::string> Notification();
    std::vector<user::PanelButton> Buttons() { return reader.Buttons(session.PanelPicture()); }
    /// Opens the menu of a button and reads its entries.
    std::vector<std::string> OpenMenu(const std::string& button);
    void ChooseFromMenu(const std::string& button, const std::string& entry);
    /// Where a button is clicked, on the screen.
    user::Place MiddleOf(const user::PanelButton& button) const;

    /// Lets go of what was drawn to read the screen: how much it is depends on when the screen was looked at.
    void ForgetDrawnTexts() { reader.Forget(); }

    /// From now on, rows and the like may show this text.
    void AddCandidate(const std::string& text);

    /// The rows that the stack of the current layer should give.
    std::vector<user::PanelRow> RowsOfStack();

private:
    std::vector<std::string> candidates();
    void addUsualTexts();
    void addNamesOfProject();
    const Layer& currentLayer();

    user::PanelReader reader;
    user::Area menu; ///< The one that was opened last.
    std::set<std::string> texts;
};

/// "lamp" and 1, or "lamp" and 2 from "lamp#2".
std::pair<std::string, int> NameAndCount(const std::string& name);

/// "lamp" in group 1 as "-- lamp", below "- Group 1", below "Layer".
std::string RowText(const user::PanelRow& row);

/// Texts as a scenario writes them, in a row.
std::string QuotedList(const std::vector<std::string>& texts);
} // namespace standin::script
