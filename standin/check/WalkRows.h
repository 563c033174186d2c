#pragma once
// Finding rows of the model, for the steps of a walk.

#include "standin/check/StackModel.h"

#include <optional>

namespace standin::check
{
// All rows stay in view.
constexpr std::size_t mostEffects = 8;
constexpr std::size_t mostGroups = 4;
constexpr std::size_t mostRows = 15;

/// What can be applied in a walk, and from which menu of the panel.
struct Applicable
{
    const char* defaultName;
    ModelKind kind;
    const char* button; ///< Null for what the panel does not offer beside other effects.
};

const std::vector<Applicable>& Applicables();
/// Null for what cannot be applied.
const Applicable* ApplicableOf(const std::string& defaultName);

/// Null if it is not there.
const ModelEffect* FindEffect(const ModelStack& stack, int id);
/// The first group of this title that is to be seen.
std::optional<int> GroupRow(const StackModel& model, const std::string& title);
/// Of the groups that are to be seen.
std::vector<std::string> GroupTitles(const StackModel& model);
/// The effects whose rows are to be seen, in the order of these.
ModelStack InRowOrder(const StackModel& model);
/// The layer's own row included, and those below closed ones.
std::size_t RowCount(const StackModel& model);
/// Where a row stands.
StackModel::Target PlaceOf(const StackModel& model, int id);
} // namespace standin::check
