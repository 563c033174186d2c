#pragma once
// Checks whose body is a scenario: what a person does in host and panel, and what must be seen then.

#include <string>

namespace standin
{
class Trial;

/// Plays the lines on an X server of their own, and fails with the line that does not go as it should.
void PlayCheck(Trial& trial, const std::string& name, const std::string& lines);

/// The same behind the beginning that most have in common: one layer with the objects "lamp", "route" and
/// "dots", and the panel open.
void PlayCheckWithThreeObjects(Trial& trial, const std::string& name, const std::string& lines);
} // namespace standin
