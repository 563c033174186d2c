#pragma once
// What a check gets: the file that is judged, the seed, and the ways to say what it found. Everything that a
// check looks at goes through one of the Require functions, which count: a check that has looked at nothing
// fails.

#include <cstdint>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace standin
{
class Host;
}

namespace standin::check
{

/// What is judged is not as it should be, in words for a user.
class CheckFailure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

class Trial
{
public:
    using Note = std::function<void(const std::string&)>;

    /// `onPlace` is called at once with the step of the check, and `onSeed` when the seed is used, so that
    /// both are known when what is judged takes the process with it.
    Trial(std::string file, std::uint64_t seed, Note onPlace, std::function<void()> onSeed);

    const std::string& File() const { return file; }
    /// The seed of everything random. Asking for it makes it part of the report.
    std::uint64_t Seed();
    bool IsSeedUsed() const { return seedUsed; }

    /// Where the check stands from now on: "call 17 of a rename fails once".
    void At(const std::string& newPlace);
    const std::string& Place() const { return place; }

    /// Ends the check with what was found, at the place where it stands.
    [[noreturn]] void Fail(const std::string& found) const;
    /// One more thing was looked at. `otherwise` says what was found if it does not hold.
    void Require(bool holds, const std::string& otherwise);
    /// `what` names the thing: "the number of rows".
    template <class Value>
    void RequireEqual(const Value& found, const Value& expected, const std::string& what)
    {
        if (!(found == expected))
            Fail(what + " is " + textOf(found) + " and should be " + textOf(expected));
        ++looked;
    }
    /// Two lists of lines; the first difference is reported, with the lines around it.
    void RequireLines(const std::vector<std::string>& found, const std::vector<std::string>& expected,
                      const std::string& what);
    /// The host has found nothing unexpected.
    void RequireNoFindings(const Host& host);

    /// How many things have been looked at.
    int Looked() const { return looked; }

private:
    static std::string textOf(const std::string& text) { return "\"" + text + "\""; }
    template <class Value>
    static std::string textOf(const Value& value)
    {
        std::ostringstream text;
        text << value;
        return text.str();
    }

    std::string file;
    std::uint64_t seed;
    bool seedUsed = false;
    Note onPlace;
    std::function<void()> onSeed;
    std::string place;
    int looked = 0;
};

/// Lines as a list to read: "a", "b"; or "nothing".
std::string ListText(const std::vector<std::string>& lines);
} // namespace standin::check
