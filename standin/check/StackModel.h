#pragma once
// A small description of what layers and the panel do to each other: two stacks, the rows of the active one,
// the host's history, and what the panel writes. It knows nothing of the host and nothing of the bundle, so
// that a run of both can be held against it.

#include "standin/check/ModelRow.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace standin::check
{
/// What a click makes of the selection.
enum class Selecting
{
    alone,
    toggled, ///< With Control.
    range    ///< With Shift.
};

/// Where the panel's tab is.
enum class TabPlace
{
    inFront,
    covered,
    closed
};

class StackModel
{
public:
    static constexpr int layerCount = 2;

    /// No rows yet: Settle makes them.
    explicit StackModel(std::vector<ModelStack> layers);

    /// Of the active layer; empty if none is active.
    const ModelStack& Stack() const;
    const ModelStack& StackOf(int layer) const { return layers[static_cast<std::size_t>(layer)]; }
    /// Whether the tree shows the layer's row. There may be none below it.
    bool HasRoot() const { return root.has_value(); }
    /// The layer's row with all below it. Not without a root.
    const ModelRow& Root() const { return *root; }
    /// The rows that are to be seen, from the top; the layer's is the first.
    std::vector<const ModelRow*> ShownRows() const;
    /// All of them, also those below a closed row.
    std::vector<const ModelRow*> AllRows() const;
    /// Null if there is none.
    const ModelRow* FindRow(int id) const;
    bool IsShown(int id) const;
    bool IsPressed() const { return press.has_value(); }
    /// Whether the toolbar offers objects, or else a main effect alone.
    bool OffersObjects() const { return offersObjects; }
    bool IsHidden(int id) const { return hidden.count(id) != 0; }
    std::size_t AddsWaiting() const { return toBeAdded.size(); }
    TabPlace Tab() const { return tab; }
    bool HasItem() const { return hasItem; }
    int ActiveLayer() const { return active; } ///< -1 for none.
    /// The names of what can be undone, the oldest first, and redone, the next first.
    std::vector<std::string> UndoNames() const;
    std::vector<std::string> RedoNames() const;
    /// The host's functions that write, in the order in which the panel calls them, since the last call.
    std::vector<std::string> TakeWrites();
    /// The lines on standard output since the last call.
    std::vector<std::string> TakePrinted();
    /// Whether an order without an object was written since the last call: an undo group with nothing in it.
    bool TakeEmptyOrder();

    // What happens to the active layer in the host. Each is one step of its history if it changes anything.
    void Apply(ModelEffect effect);
    void Rename(int id, const std::string& name);
    void Move(int id, int index);
    void Delete(int id);
    void Duplicate(int id, int copyId);
    void Switch(int id, Power power);
    void PutIntoGroup(int id, int group);
    void Undo();
    void Redo();
    void SelectLayer(int layer) { active = layer; }
    void OpenItem() { hasItem = true; }
    void CloseItem() { hasItem = false; }
    /// The host goes on without a history.
    void ForgetHistory();
    void PutTab(TabPlace place) { tab = place; }
    /// The panel's entry of the Window menu.
    void ChooseEntry();

    // What a sibling asks for.
    void RequestOpening(bool isForced);
    void RequestRefresh() { isRefreshWanted = true; }
    bool IsOpeningWanted() const { return isOpeningWanted; }

    // What a user does in the panel, to rows that are to be seen. The layer learns of it in Settle.
    void ClickRow(int id, Selecting selecting);
    void ClickBeside();
    void ClickTriangle(int id);
    void DoubleClickRow(int id);
    void PressSelectAll();
    void PressDelete();
    void RenameRow(int id, const std::string& name);
    void ClickBox(int id);
    void DeleteRow(int id);
    void AddEmptyGroup();
    void AddFromMenu(ModelEffect effect);
    /// The button of an empty layer, which has no menu.
    void AddMain(ModelEffect effect);
    /// The button goes down on a row, or on its box, and stays down.
    enum class Part
    {
        text,
        box
    };
    void Press(int id, Part part, Selecting selecting);
    void LetGo();
    /// Where a row is put down: among the rows below the layer or a group.
    struct Target
    {
        int parent = 0;
        std::size_t index = 0;
    };
    /// A row that is selected takes all others that are with it.
    void MoveRow(int id, Target target);

    /// Idle passes until one of them has found nothing to do; how many there were.
    int Settle();

private:
    struct Step
    {
        std::string name;
        std::vector<ModelStack> before;
        std::vector<ModelStack> after;
    };
    /// What is compared: which layer, counted from 1, and its list.
    struct Seen
    {
        int layer = 0;
        ModelStack list;

        /// Outside effects have no identity: two of one name that change places are the same list.
        bool operator==(const Seen& other) const;
    };

    /// How a tree looks: its rows, which of them are open, and the paths of those that are selected.
    struct View
    {
        struct Row
        {
            std::string name;
            bool isOpen = true;
            std::vector<Row> rows; ///< Of an open one.

            bool operator==(const Row& other) const;
        };
        Row root;
        std::vector<std::string> selected;

        bool operator==(const View& other) const { return root == other.root && selected == other.selected; }
    };
    /// What a row stands for, known again when the rows have been made anew: one of so many of its kind and
    /// name, or an object.
    struct Known
    {
        ModelRow::Kind kind;
        int id;
        std::string name;
        std::size_t place;
        std::size_t count;
        int rebuild; ///< In which it was seen.
    };
    struct HeldPress
    {
        Known row;
        Selecting selecting;
        std::vector<Known> range;
        bool wasSelected;
    };
    enum class PassEnd
    {
        quiet,
        busy
    };

    ModelStack& stack() { return layers[static_cast<std::size_t>(active)]; }
    ModelEffect* inStack(int id);
    ModelStack listOfRows() const;
    std::vector<ModelRow*> shownRows();
    std::vector<int> selectedRows() const;
    std::vector<int> rangeTo(int id) const;
    void selectAlone(int id);
    void selectBy(Selecting selecting, const std::vector<int>& range, int id);
    void flipBox(int id);
    void takeOut(int id);
    void dropSelected(Target target);
    Known knownOf(int id) const;
    std::vector<int> rowsLike(const Known& known) const;
    bool isInThisDocument(const Known& known) const;
    std::optional<int> findAgain(const Known& known) const;
    void change(const std::string& step, const std::function<void()>& what);
    void push(const std::string& name, std::vector<ModelStack> before);
    void makeRows();
    static std::string pathPart(const ModelRow& row);
    static View::Row viewOf(const ModelRow& row);
    static void restoreOpenness(const View::Row& view, ModelRow& row);
    static ModelRow* findPath(ModelRow& row, const std::string& path);
    void addSelectedPaths(const ModelRow& row, const std::string& above,
                          std::vector<std::string>& paths) const;
    std::optional<View> viewNow() const;
    void restoreView();
    void storeView() { views[active + 1] = viewNow(); }
    bool isViewChanged() const;
    void pushSelection();
    void toggleTab();
    PassEnd pass();
    PassEnd passInFront(bool isForced);
    bool carryOutRequests();
    bool carryTreeToLayer();
    void carryRowsToLayer(const ModelStack& wanted);
    void carryOrderToLayer(const ModelStack& wanted, const char* stepName);
    std::size_t slotFor(ModelKind kind) const;

    std::vector<ModelStack> layers;
    int active = 0;
    bool hasItem = true;
    TabPlace tab = TabPlace::inFront;
    bool isRefreshWanted = false;
    bool isOpeningWanted = false;
    bool offersObjects = false;
    std::optional<ModelRow> root;
    int rebuilds = 0;
    int lastGroupId = 0;
    std::optional<HeldPress> press;
    std::map<int, std::optional<View>> views; ///< By layer, counted from 1; 0 for none.
    std::set<int> hidden;
    std::vector<Step> steps;
    std::size_t done = 0;
    std::vector<std::string> writes;
    std::vector<std::string> printed;
    bool hasWrittenEmptyOrder = false;
    ModelStack toBeAdded;
    std::vector<int> toBeDeleted;
    std::optional<Seen> layerSeen; ///< None before the first pass.
    Seen rowsSeen;
};
} // namespace standin::check
