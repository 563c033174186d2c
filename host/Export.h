#pragma once
// Marks the two functions that the bundle exports; everything else in it is hidden.

#define VORTAN_EXPORT extern "C" __attribute__((visibility("default")))
