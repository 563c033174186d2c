#pragma once
// The embedding of a widget as a plain function: the names of X11 and those of a test library cannot stand in
// one file.

#include "tree/Tree.h"

namespace standin
{
/// The widget is on the desktop inside the window `container`.
void AttachTree(ValueTreesDemo* tree, unsigned long container);
} // namespace standin
