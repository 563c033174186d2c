#include "standin/host/project/FieldReader.h"

#include "standin/host/project/ProjectFile.h"

namespace standin
{
namespace
{
// New things get ids above all others, and far more of them can be made than anybody makes.
constexpr int highestId = 1000000000;

[[noreturn]] void fail(const std::string& where, const std::string& sentence)
{
    throw ProjectFileError((where.empty() ? "" : where + ": ") + sentence);
}
} // namespace

FieldReader::FieldReader(const nlohmann::json& value, std::string where)
    : object(value), place(std::move(where))
{
    if (!object.is_object())
        fail(place, "an object in braces belongs here");
}

bool FieldReader::Has(const char* field)
{
    known.insert(field);
    return object.contains(field);
}

std::string FieldReader::placeOf(const char* field) const
{
    return place.empty() ? field : place + "." + field;
}

void FieldReader::Fail(const char* field, const std::string& sentence) const
{
    fail(placeOf(field), sentence);
}

const nlohmann::json& FieldReader::existing(const char* field)
{
    if (!Has(field))
        fail(place, std::string("the field \"") + field + "\" is missing");
    return object.at(field);
}

std::string FieldReader::Text(const char* field)
{
    const nlohmann::json& value = existing(field);
    if (!value.is_string())
        Fail(field, "a text in quotation marks belongs here");
    return value.get<std::string>();
}

bool FieldReader::Flag(const char* field)
{
    const nlohmann::json& value = existing(field);
    if (!value.is_boolean())
        Fail(field, "true or false belongs here");
    return value.get<bool>();
}

std::int64_t FieldReader::integer(const nlohmann::json& value, const std::string& where, std::int64_t least,
                                  std::int64_t most)
{
    if (!value.is_number_integer())
        fail(where, "a whole number belongs here");
    const bool isTooLarge =
        value.is_number_unsigned() && value.get<std::uint64_t>() > static_cast<std::uint64_t>(most);
    if (isTooLarge || value.get<std::int64_t>() < least || value.get<std::int64_t>() > most)
        fail(where,
             "the number does not lie between " + std::to_string(least) + " and " + std::to_string(most));
    return value.get<std::int64_t>();
}

int FieldReader::Id(const char* field)
{
    const int id = Integer<int>(field);
    if (id <= 0)
        Fail(field, "an id is a number above 0");
    return static_cast<int>(integer(existing(field), placeOf(field), 1, highestId));
}

const nlohmann::json& FieldReader::list(const char* field)
{
    const nlohmann::json& value = existing(field);
    if (!value.is_array())
        Fail(field, "a list in brackets belongs here");
    return value;
}

std::vector<int> FieldReader::Ids(const char* field)
{
    std::vector<int> ids;
    for (const nlohmann::json& value : list(field))
        ids.push_back(static_cast<int>(
            integer(value, placeOf(field) + "[" + std::to_string(ids.size()) + "]", 1, highestId)));
    return ids;
}

void FieldReader::Each(const char* field, const std::function<void(FieldReader&)>& take)
{
    std::size_t index = 0;
    for (const nlohmann::json& value : list(field))
    {
        FieldReader element(value, placeOf(field) + "[" + std::to_string(index++) + "]");
        take(element);
        element.CheckNothingElse();
    }
}

FieldReader FieldReader::Inner(const char* field) { return {existing(field), placeOf(field)}; }

void FieldReader::CheckNothingElse() const
{
    for (const auto& field : object.items())
    {
        if (known.count(field.key()) == 0)
            fail(place, "the field \"" + field.key() + "\" is unknown");
    }
}
} // namespace standin
