#pragma once
// Reading a layer: the layer side of every comparison that the idle pass makes.

#include "effects/ObjectItem.h"
#include "host/HostSuites.h"

#include <vector>

/// Reads the stack from the top, one item per effect, so that position i of the result is effect index i.
/// Only reads. A null layer gives an empty list and makes no host call; the last argument is ignored. Throws
/// the integer 516 if a suite is missing. After any other host error the effects after it keep their identity
/// and group, with `active` 0 and the name and tag that were read last; the one that met the error has what
/// was read of it until then. The list stays complete.
std::vector<ObjectItem> CreateItemsFromLayer(int pluginId, SPBasicSuite* basicSuite, _AEGP_Layer** layer,
                                             int ignored);

/// The same into a list that is there already: what it held is replaced, and its memory is used again, so
/// that a reading of what was read before takes none from the heap. After an exception the list holds nothing
/// of use.
void ReadItemsFromLayer(int pluginId, SPBasicSuite* basicSuite, _AEGP_Layer** layer,
                        std::vector<ObjectItem>& items);
