#pragma once
// Reads one JSON object field by field, and knows where in the file it stands: a message reads like
// "layers[0].effects[2].flags: a number belongs here".

#include <cstdint>
#include <functional>
#include <limits>
#include <set>
#include <string>

#include <nlohmann/json.hpp>

namespace standin
{
class FieldReader
{
public:
    /// `value` must outlive the reader. Throws ProjectFileError if it is no object. `place` is where it
    /// stands.
    FieldReader(const nlohmann::json& value, std::string place);

    /// Whether the field is there. It counts as known from now on.
    bool Has(const char* field);

    // A field that is missing, of another kind or out of range throws ProjectFileError.
    std::string Text(const char* field);
    bool Flag(const char* field);
    template <class Number>
    Number Integer(const char* field)
    {
        return static_cast<Number>(integer(existing(field), placeOf(field),
                                           std::numeric_limits<Number>::min(),
                                           std::numeric_limits<Number>::max()));
    }
    /// A number from 1 to 1,000,000,000.
    int Id(const char* field);
    std::vector<int> Ids(const char* field);
    /// Calls `take` with each element, which has to be an object.
    void Each(const char* field, const std::function<void(FieldReader&)>& take);
    /// The object in this field.
    FieldReader Inner(const char* field);

    /// Throws for a field that has not been asked for.
    void CheckNothingElse() const;

    [[noreturn]] void Fail(const char* field, const std::string& sentence) const;
    const std::string& Place() const { return place; }

private:
    static std::int64_t integer(const nlohmann::json& value, const std::string& where, std::int64_t least,
                                std::int64_t most);
    const nlohmann::json& existing(const char* field);
    const nlohmann::json& list(const char* field);
    std::string placeOf(const char* field) const;

    const nlohmann::json& object;
    std::string place;
    std::set<std::string> known;
};
} // namespace standin
