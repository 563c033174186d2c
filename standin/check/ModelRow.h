#pragma once
// The rows of the panel's tree as the model of the walks knows them: what each stands for, what is below it,
// and whether it is open and selected.

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
    int id = 0; ///< Above 0. Stays with the effect, and is never used twice.
    ModelKind kind = ModelKind::geometry;
    std::string name;
    int group = 0; ///< -1 for a rigid one, whatever it is told.
    Power power = Power::on;
    bool isRigid = false;

    bool operator==(const ModelEffect& other) const;
};

using ModelStack = std::vector<ModelEffect>;

inline auto WithId(int id)
{
    return [id](const ModelEffect& effect) { return effect.id == id; };
}

/// A row, and all that are below it. Where a row is closed there are no rows below it on the screen; what
/// they stand for, and which of them are selected, is kept all the same.
struct ModelRow
{
    enum class Kind
    {
        layer,
        group,
        object,
        outside
    };

    Kind kind = Kind::layer;
    /// An effect's is the effect's own, the layer's is 0. A group's is below 0, and new with each rebuild.
    int id = 0;
    ModelEffect effect{}; ///< Of an object or an outside effect.
    std::string title{};  ///< Of the layer and of a group.
    int number = 0;       ///< Of a group; that of where it was moved to, until the rows are made anew.
    bool isOpen = true;
    bool isSelected = false;
    std::vector<ModelRow> rows{};

    static ModelRow Layer();
    static ModelRow Group(int number, int id);
    static ModelRow Of(const ModelEffect& effect);

    const std::string& Name() const;
    bool IsGroup() const { return kind == Kind::group; }
    bool IsObject() const { return kind == Kind::object; }

    /// A row that opens makes all rows below it anew, and they come open.
    void SetOpen(bool shouldBeOpen);
    /// What is below has changed: the row makes all of it anew.
    void Remake();

    /// The row itself and all below it, as they follow each other on the screen. `depth` counts from 0.
    void ForEach(const std::function<void(const ModelRow& row, int depth)>& what) const;
    /// Those alone that are to be seen.
    void ForEachShown(const std::function<void(const ModelRow& row, int depth)>& what) const;

    // Null if it is not there, or not below this row.
    const ModelRow* Find(int wanted) const;
    ModelRow* Find(int wanted);
    ModelRow* FindParentOf(int wanted);
    std::size_t IndexOf(int child) const; ///< Of a row right below this one.

private:
    enum class Which
    {
        all,
        shown
    };
    void forEach(Which which, int depth, const std::function<void(const ModelRow&, int)>& what) const;
};
} // namespace standin::check
