#pragma once
// A small description of what layers and the panel do to each other: two stacks, the rows of the active one,
// the host's history, and what the panel writes. It knows nothing of the host and nothing of the bundle, so
// that a run of both can be held against it.

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace standin::check
{
/// An effect's place in the order that the panel keeps.
enum class ModelKind
{
    geometry,
    effector,
    renderer,
    main,
    outside
};

enum class Power
{
    off,
    on
};

/// One effect, or one object in the tree.
struct ModelEffect
{
    int id = 0; ///< Stays with the effect, and is never used twice.
    ModelKind kind = ModelKind::geometry;
    std::string name;
    int group = 0; ///< -1 for a rigid one, whatever it is told.
    Power power = Power::on;
    bool isRigid = false;
    bool isSelected = false; ///< Of an object's row. Not compared.

    bool operator==(const ModelEffect& other) const;
};

using ModelStack = std::vector<ModelEffect>;

/// A row of the tree below the layer's.
struct ModelRow
{
    enum class Kind
    {
        object,
        outside,
        group
    };

    Kind kind = Kind::object;
    ModelEffect effect;      ///< Of an object or an outside effect.
    std::string title;       ///< Of a group.
    int number = 0;          ///< Of a group; -1 once it was moved, until the rows are made anew.
    ModelStack objects{};    ///< Of a group.
    bool isSelected = false; ///< Of a group.
    int serial = 0;          ///< Tells groups of one title apart.

    static ModelRow Group(int number);
};

/// One row: an effect's, a group's, or the layer's, which is none of both.
struct ModelRowId
{
    int effect = 0;
    int group = -1; ///< Its index among the rows below the layer.

    bool operator==(const ModelRowId& other) const { return effect == other.effect && group == other.group; }
};

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
    bool HasRoot() const { return hasRoot; }
    const std::vector<ModelRow>& Rows() const { return rows; }
    /// All rows from the top, the layer's first.
    std::vector<ModelRowId> AllRows() const;
    bool IsSelected(const ModelRowId& row) const;
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
    void PutTab(TabPlace place) { tab = place; }
    /// The panel's entry of the Window menu.
    void ChooseEntry();

    // What a sibling asks for.
    void RequestOpening(bool isForced);
    void RequestRefresh() { isRefreshWanted = true; }

    // What a user does in the panel. The layer learns of it in Settle.
    void ClickRow(const ModelRowId& row, Selecting selecting);
    void ClickBeside();
    void PressSelectAll();
    void PressDelete();
    void RenameRow(int id, const std::string& name);
    void ClickBox(int id);
    void ClickGroupBox(std::size_t row);
    void DeleteRow(int id);
    void DeleteGroupRow(std::size_t row);
    void AddEmptyGroup();
    void AddFromMenu(ModelEffect effect);
    /// The button of an empty layer, which has no menu.
    void AddMain(ModelEffect effect);
    /// Where a row is put down: among the rows below the layer, or among the objects of a group.
    struct Target
    {
        int groupRow = -1; ///< -1 for the layer.
        std::size_t index = 0;
    };
    /// A row that is selected takes all others that are with it.
    void MoveRow(int id, Target target);
    void MoveGroupRow(std::size_t row, std::size_t index);

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

    /// How a tree looks: its rows, and which of them are selected.
    struct View
    {
        std::vector<std::string> rows;
        std::vector<std::string> selected; ///< Paths.

        bool operator==(const View& other) const { return rows == other.rows && selected == other.selected; }
    };
    enum class PassEnd
    {
        quiet,
        busy
    };

    ModelStack& stack() { return layers[static_cast<std::size_t>(active)]; }
    ModelEffect* inStack(int id);
    ModelEffect* inRows(int id);
    ModelStack listOfRows() const;
    void takeOut(int id);
    bool& selection(const ModelRowId& row);
    std::vector<ModelRowId> selectedRows();
    std::string titleOf(const ModelRowId& row) const;
    std::string pathOf(const ModelRowId& row) const;
    void selectForDrag(const ModelRowId& row);
    void dropSelected(Target target);
    void dropEffect(int id, int groupSerial, std::size_t& index);
    void dropGroup(int serial, std::size_t& index);
    std::ptrdiff_t rowOfSerial(int serial) const;
    void change(const std::string& step, const std::function<void()>& what);
    void push(const std::string& name, std::vector<ModelStack> before);
    void clearRows();
    void makeRows();
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
    bool hasRoot = false;
    bool offersObjects = false;
    bool isLayerRowSelected = false;
    std::vector<ModelRow> rows;
    int lastSerial = 0;
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
