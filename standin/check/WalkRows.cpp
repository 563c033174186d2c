#include "standin/check/WalkRows.h"

#include <algorithm>

namespace standin::check
{
const std::vector<Applicable>& Applicables()
{
    static const std::vector<Applicable> all{{"Vortan Sheets Object", ModelKind::geometry, "Add Geometry"},
                                             {"Vortan Route Object", ModelKind::geometry, "Add Geometry"},
                                             {"Vortan Jitter Effector", ModelKind::effector, "Add Effector"},
                                             {"Vortan Pulse Effector", ModelKind::effector, "Add Effector"},
                                             {"Vortan Dots Renderer", ModelKind::renderer, "Add Renderer"},
                                             {"Vortan Panes Renderer", ModelKind::renderer, "Add Renderer"},
                                             {"Gaussian Blur", ModelKind::outside, nullptr}};
    return all;
}

const Applicable* ApplicableOf(const std::string& defaultName)
{
    for (const Applicable& each : Applicables())
        if (each.defaultName == defaultName)
            return &each;
    return nullptr;
}

const ModelEffect* FindEffect(const ModelStack& stack, int id)
{
    const auto found =
        std::find_if(stack.begin(), stack.end(), [id](const ModelEffect& effect) { return effect.id == id; });
    return found == stack.end() ? nullptr : &*found;
}

std::optional<int> GroupRow(const StackModel& model, const std::string& title)
{
    for (const ModelRow* row : model.ShownRows())
        if (row->IsGroup() && row->title == title)
            return row->id;
    return {};
}

std::vector<std::string> GroupTitles(const StackModel& model)
{
    std::vector<std::string> titles;
    for (const ModelRow* row : model.ShownRows())
        if (row->IsGroup())
            titles.push_back(row->title);
    return titles;
}

ModelStack InRowOrder(const StackModel& model)
{
    ModelStack all;
    for (const ModelRow* row : model.ShownRows())
        if (row->id > 0)
            all.push_back(row->effect);
    return all;
}

std::size_t RowCount(const StackModel& model) { return model.AllRows().size(); }

StackModel::Target PlaceOf(const StackModel& model, int id)
{
    for (const ModelRow* row : model.AllRows())
        if (row->IndexOf(id) < row->rows.size())
            return {row->id, row->IndexOf(id)};
    return {};
}
} // namespace standin::check
