#pragma once
// What is measured, by subject. Each function registers its measurements.

#include "bench/FastPanel.h"

namespace standin
{
/// The idle pass, and the delivery of events that goes before it.
void RegisterPasses(FastPanel&);

/// What a pass costs that carries an edit to the layer or to the tree.
void RegisterEdits(FastPanel&);

/// The rebuild of the tree beside that of a bare tree view, which lies in the container `window`, and the
/// state table.
void RegisterTree(FastPanel&, void* window);

/// The hash of items and that of strings.
void RegisterHashes(FastPanel&);

/// Loading the bundle, and opening the panel, each time in a new process.
void RegisterStarts(FastPanel&);

/// What such a process does: prints the times and the memory that it took. Gives the exit code.
int StartOnce();
} // namespace standin
