#pragma once
// Checks whose body is a scenario: what a person does in host and panel, and what must be seen then.

#include <string>

namespace standin::check
{
class Trial;

/// Plays the text on an X server of its own, and fails with the line that does not go as it should. `name` is
/// what messages call the scenario.
void PlayCheck(Trial& trial, const std::string& name, const std::string& text);
} // namespace standin::check
