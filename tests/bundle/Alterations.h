#pragma once
// Shows that a check notices an alteration of any byte of what it checks.

#include "tests/bundle/ResourceReader.h"

#include <functional>

namespace standin
{
/// True if the bytes pass; may throw std::exception if they do not.
using Check = std::function<bool(const Bytes&)>;

/// The places where the check misses an alteration. Each byte is altered in its lowest bit, in its highest
/// bit and in all bits, and the whole is cut short at each place and made longer at its end.
std::vector<std::size_t> FindUnnoticedAlterations(const Bytes&, const Check&);
} // namespace standin
