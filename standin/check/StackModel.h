#pragma once
// A small description of what layers and the panel do to each other: two stacks, the rows of the active one,
// the host's history, and what the panel writes. It knows nothing of the host and nothing of the bundle, so
// that a run of both can be held against it.

#include <functional>
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
    int group = 0;
    Power power = Power::on;

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
    ModelEffect effect;   ///< Of an object or an outside effect.
    std::string title;    ///< Of a group.
    int number = 0;       ///< Of a group; -1 once it was moved, until the rows are made anew.
    ModelStack objects{}; ///< Of a group.

    static ModelRow Group(int number);
};

class StackModel
{
public:
    static constexpr int layerCount = 2;

    /// No rows yet: Settle makes them.
    explicit StackModel(std::vector<ModelStack> layers);

    const ModelStack& Stack() const { return layers[static_cast<std::size_t>(active)]; }
    const ModelStack& StackOf(int layer) const { return layers[static_cast<std::size_t>(layer)]; }
    const std::vector<ModelRow>& Rows() const { return rows; }
    int ActiveLayer() const { return active; }
    /// The names of what can be undone, the oldest first, and redone, the next first.
    std::vector<std::string> UndoNames() const;
    std::vector<std::string> RedoNames() const;
    /// The host's functions that write, in the order in which the panel calls them, since the last call.
    std::vector<std::string> TakeWrites();

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

    // What a user does in the panel. The layer learns of it in Settle.
    void RenameRow(int id, const std::string& name);
    void ClickBox(int id);
    void ClickGroupBox(std::size_t row);
    void DeleteRow(int id);
    void DeleteGroupRow(std::size_t row);
    void AddEmptyGroup();
    void AddFromMenu(ModelEffect effect);
    /// Where a row is put down: among the rows below the layer, or among the objects of a group.
    struct Target
    {
        int groupRow = -1; ///< -1 for the layer.
        std::size_t index = 0;
    };
    void MoveRow(int id, Target target);
    void MoveGroupRow(std::size_t row, std::size_t index);

    /// Idle passes until layer and rows agree.
    void Settle();

private:
    struct Step
    {
        std::string name;
        std::vector<ModelStack> before;
        std::vector<ModelStack> after;
    };
    /// What is compared: which layer, and its list.
    struct Seen
    {
        int layer = -1;
        ModelStack list;

        bool operator==(const Seen& other) const { return layer == other.layer && list == other.list; }
    };

    ModelStack& stack() { return layers[static_cast<std::size_t>(active)]; }
    ModelEffect* inStack(int id);
    ModelEffect* inRows(int id);
    ModelStack listOfRows() const;
    void takeOut(int id);
    void change(const std::string& step, const std::function<void()>& what);
    void push(const std::string& name, std::vector<ModelStack> before);
    void makeRows();
    void carryOutRequests();
    void carryRowsToLayer(const ModelStack& wanted);
    void carryOrderToLayer(const ModelStack& wanted, const char* stepName);
    std::size_t slotFor(ModelKind kind) const;

    std::vector<ModelStack> layers;
    int active = 0;
    std::vector<ModelRow> rows;
    std::vector<Step> steps;
    std::size_t done = 0;
    std::vector<std::string> writes;
    ModelStack toBeAdded;
    std::vector<int> toBeDeleted;
    Seen layerSeen;
    Seen rowsSeen;
};
} // namespace standin::check
