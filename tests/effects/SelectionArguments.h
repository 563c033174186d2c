#pragma once
// The two ways in which a selection shows one effect and not another.

namespace standin
{
constexpr bool hideThem = true;
constexpr bool twirlThem = false;
} // namespace standin
