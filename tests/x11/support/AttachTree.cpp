#include "tests/x11/support/AttachTree.h"

#include "panel/platform/x11/X11Embedding.h"

namespace standin
{
void AttachTree(ValueTreesDemo* tree, unsigned long container) { X11Embedding::Attach(tree, container); }
} // namespace standin
