#pragma once
// Deleting from a layer the effects that the user deleted in the tree.

#include "host/HostSuites.h"

#include <string>
#include <vector>

/// Deletes the effects with these identities as one undo step, "Delete Effect(s)". The others keep their
/// relative order. Identities that are not on the layer are passed over; with none left, nothing happens.
/// An empty list makes no host call.
/// Returns the first host error, 0 for none. After an error nothing is moved back and the undo group stays
/// open. Throws the integer 516 if a suite is missing.
int RemoveMultipleEffectsByUUID(int pluginId, SPBasicSuite* basicSuite, const std::vector<std::string>& uuids,
                                _AEGP_Layer** layer);
