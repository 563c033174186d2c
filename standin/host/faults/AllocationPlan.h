#pragma once
// Which allocation of a plug-in fails. It takes a program whose operator new asks.

#include <cstddef>

namespace standin
{
/// The `nth` allocation that plug-ins make from now on, counted from 1; 0 for none.
void FailAllocation(std::size_t nth);
/// Whether it has come.
bool HasAllocationFailed();

/// For operator new, of every allocation.
bool MustAllocationFail();
} // namespace standin
