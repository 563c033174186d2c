#pragma once
// Blocks are part of the language on macOS, and a parameter has another name there.

#pragma push_macro("__block")
#undef __block
#include_next <unistd.h>
#pragma pop_macro("__block")
