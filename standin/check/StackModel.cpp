#include "standin/check/StackModel.h"

#include <algorithm>
#include <utility>

namespace standin::check
{
StackModel::StackModel(std::vector<ModelStack> theLayers) : layers(std::move(theLayers)) {}

std::vector<std::string> StackModel::UndoNames() const
{
    std::vector<std::string> names;
    for (std::size_t i = 0; i < done; ++i)
        names.push_back(steps[i].name);
    return names;
}

std::vector<std::string> StackModel::RedoNames() const
{
    std::vector<std::string> names;
    for (std::size_t i = done; i < steps.size(); ++i)
        names.push_back(steps[i].name);
    return names;
}

std::vector<std::string> StackModel::TakeWrites() { return std::exchange(writes, {}); }

std::vector<std::string> StackModel::TakePrinted() { return std::exchange(printed, {}); }

bool StackModel::TakeEmptyOrder() { return std::exchange(hasWrittenEmptyOrder, false); }

const ModelStack& StackModel::Stack() const
{
    static const ModelStack none;
    return active < 0 ? none : layers[static_cast<std::size_t>(active)];
}

ModelEffect* StackModel::inStack(int id)
{
    if (active < 0)
        return nullptr;
    const auto found = std::find_if(stack().begin(), stack().end(), WithId(id));
    return found == stack().end() ? nullptr : &*found;
}

// The host's side.

void StackModel::push(const std::string& name, std::vector<ModelStack> before)
{
    if (before == layers)
        return;
    steps.resize(done);
    steps.push_back({name, std::move(before), layers});
    done = steps.size();
}

void StackModel::change(const std::string& step, const std::function<void()>& what)
{
    std::vector<ModelStack> before = layers;
    what();
    push(step, std::move(before));
}

void StackModel::Apply(ModelEffect effect)
{
    change("Apply Effect", [&] { stack().push_back(std::move(effect)); });
}

void StackModel::Rename(int id, const std::string& name)
{
    change("Rename Effect", [&] { inStack(id)->name = name; });
}

void StackModel::Move(int id, int index)
{
    change("Reorder Effect",
           [&]
           {
               const ModelEffect effect = *inStack(id);
               stack().erase(std::find_if(stack().begin(), stack().end(), WithId(id)));
               stack().insert(stack().begin() + index, effect);
           });
}

void StackModel::Delete(int id)
{
    change("Delete Effect", [&] { stack().erase(std::find_if(stack().begin(), stack().end(), WithId(id))); });
}

void StackModel::Duplicate(int id, int copyId)
{
    change("Duplicate Effect",
           [&]
           {
               const auto original = std::find_if(stack().begin(), stack().end(), WithId(id));
               ModelEffect copy = *original;
               copy.id = copyId;
               if (IsHidden(id))
                   hidden.insert(copyId);
               stack().insert(original + 1, copy);
           });
}

void StackModel::Switch(int id, Power power)
{
    change(power == Power::on ? "Switch Effect On" : "Switch Effect Off",
           [&] { inStack(id)->power = power; });
}

void StackModel::PutIntoGroup(int id, int group)
{
    if (!inStack(id)->isRigid)
        change("Change Group", [&] { inStack(id)->group = group; });
}

void StackModel::Undo() { layers = steps[--done].before; }

void StackModel::ForgetHistory()
{
    steps.clear();
    done = 0;
}

void StackModel::Redo() { layers = steps[done++].after; }
} // namespace standin::check
