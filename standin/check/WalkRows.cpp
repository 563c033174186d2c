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

std::optional<std::size_t> GroupRow(const StackModel& model, const std::string& title)
{
    for (std::size_t i = 0; i < model.Rows().size(); ++i)
        if (model.Rows()[i].kind == ModelRow::Kind::group && model.Rows()[i].title == title)
            return i;
    return {};
}

std::vector<std::string> GroupTitles(const StackModel& model)
{
    std::vector<std::string> titles;
    for (const ModelRow& row : model.Rows())
        if (row.kind == ModelRow::Kind::group)
            titles.push_back(row.title);
    return titles;
}

ModelStack InRowOrder(const StackModel& model)
{
    ModelStack all;
    for (const ModelRow& row : model.Rows())
    {
        if (row.kind != ModelRow::Kind::group)
            all.push_back(row.effect);
        all.insert(all.end(), row.objects.begin(), row.objects.end());
    }
    return all;
}

std::size_t RowCount(const StackModel& model)
{
    return 1 + InRowOrder(model).size() + GroupTitles(model).size();
}

StackModel::Target PlaceOf(const StackModel& model, int id)
{
    for (std::size_t i = 0; i < model.Rows().size(); ++i)
    {
        const ModelRow& row = model.Rows()[i];
        if (row.kind != ModelRow::Kind::group && row.effect.id == id)
            return {-1, i};
        for (std::size_t k = 0; k < row.objects.size(); ++k)
            if (row.objects[k].id == id)
                return {static_cast<int>(i), k};
    }
    return {};
}
} // namespace standin::check
