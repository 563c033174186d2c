#pragma once
// Whether the panel's tree says what the layer holds: both as lines, each worked out for itself.

#include "effects/ObjectItem.h"
#include "standin/host/core/Host.h"

#include <string>
#include <vector>

namespace standin
{
/// A line for each item of the tree.
std::vector<std::string> TreeLines(const std::vector<ObjectItem>& items);
/// A line for each effect of the family, worked out without the product.
std::vector<std::string> LayerLines(Host& host, const Layer& layer);
} // namespace standin
