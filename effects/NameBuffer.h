#pragma once
// A buffer for a name that the host writes.

/// The host may fill all of the 128 characters that it is offered; the one after them stays zero, so
/// that the text ends even if the host forgets to end it. Empty at first.
struct NameBuffer
{
    char text[128 + 1] = {};
};
