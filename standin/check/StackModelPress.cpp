// A mouse button that stays down while the rows may be made anew. What is left to do when it comes up belongs
// to the row that stands for the same thing by then.

#include "standin/check/StackModel.h"

#include <algorithm>
#include <utility>

namespace standin::check
{
StackModel::Known StackModel::knownOf(int id) const
{
    const ModelRow& row = *FindRow(id);
    Known known{row.kind, id, row.Name(), 0, 0, rebuilds};
    const std::vector<int> alike = rowsLike(known);
    known.place = static_cast<std::size_t>(std::find(alike.begin(), alike.end(), id) - alike.begin());
    known.count = alike.size();
    return known;
}

/// An object has an identity, the others a name.
std::vector<int> StackModel::rowsLike(const Known& known) const
{
    std::vector<int> alike;
    for (const ModelRow* row : AllRows())
        if (row->kind == known.kind && (row->IsObject() ? row->id == known.id : row->Name() == known.name))
            alike.push_back(row->id);
    return alike;
}

bool StackModel::isInThisDocument(const Known& known) const
{
    return root && known.rebuild == rebuilds && FindRow(known.id) != nullptr;
}

/// Of several namesakes the same one if there are as many as before, else the first; but nothing tells which
/// of the outside effects has come or gone. Only a row that is to be seen is one.
std::optional<int> StackModel::findAgain(const Known& known) const
{
    std::optional<int> found;
    if (isInThisDocument(known))
        found = known.id;
    else
    {
        const std::vector<int> alike = rowsLike(known);
        if (alike.size() == known.count)
            found = alike[known.place];
        else if (!alike.empty() && known.kind != ModelRow::Kind::outside)
            found = alike.front();
    }
    return found && IsShown(*found) ? found : std::nullopt;
}

/// A row that is not selected is, before its box takes the press.
void StackModel::Press(int id, Part part, Selecting selecting)
{
    HeldPress made{knownOf(id), selecting, {}, FindRow(id)->isSelected};
    std::vector<int> range;
    if (selecting == Selecting::range && selectedRows().empty())
        made.selecting = Selecting::alone;
    else if (selecting == Selecting::range)
        range = rangeTo(id);
    for (const int each : range)
        made.range.push_back(knownOf(each));
    if (!made.wasSelected)
        selectBy(made.selecting, range, id);
    if (part == Part::box)
        flipBox(id);
    press = made;
}

/// A row that was selected is left as its click would have it. One that was not has been selected by the
/// press, which a rebuild can have undone.
void StackModel::LetGo()
{
    const HeldPress made = *std::exchange(press, std::nullopt);
    const std::optional<int> row = findAgain(made.row);
    if (!row)
        return;
    const bool isStillThere = isInThisDocument(made.row);
    if (!made.wasSelected && (FindRow(*row)->isSelected || isStillThere))
        return;
    if (made.selecting == Selecting::toggled)
    {
        root->Find(*row)->isSelected = !made.wasSelected;
        return;
    }
    std::vector<int> range;
    for (const Known& each : made.range)
        if (const std::optional<int> found = findAgain(each))
            range.push_back(*found);
    selectBy(made.selecting, range, *row);
}
} // namespace standin::check
