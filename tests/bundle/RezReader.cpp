#include "tests/bundle/RezReader.h"

#include "tests/bundle/ByteReader.h"

#include <cctype>
#include <map>

namespace standin
{

namespace
{
struct Token
{
    enum class Kind
    {
        word,   ///< Also a number.
        code,   ///< Between single quotes.
        string, ///< Between double quotes.
        sign,
        end
    };

    Kind kind;
    std::string text;
};

bool isWordCharacter(char character) { return std::isalnum(static_cast<unsigned char>(character)) != 0; }

class Tokens
{
public:
    explicit Tokens(const std::string& all) : source(all) { Advance(); }

    const Token& Peek() const { return next; }

    Token Take()
    {
        Token taken = next;
        Advance();
        return taken;
    }

    std::string Take(Token::Kind kind)
    {
        Demand(next.kind == kind, "unexpected: " + next.text);
        return Take().text;
    }

    bool TakeIf(const std::string& text)
    {
        const bool isIt =
            next.kind != Token::Kind::string && next.kind != Token::Kind::code && next.text == text;
        if (isIt)
            Advance();
        return isIt;
    }

    void Expect(const std::string& text)
    {
        Demand(TakeIf(text), "expected " + text + ", found " + next.text);
    }

private:
    void Advance()
    {
        SkipBlanks();
        if (position == source.size())
            next = {Token::Kind::end, "the end"};
        else if (source[position] == '\'')
            next = {Token::Kind::code, Quoted()};
        else if (source[position] == '"')
            next = {Token::Kind::string, Quoted()};
        else if (isWordCharacter(source[position]))
            next = {Token::Kind::word, Word()};
        else
            next = {Token::Kind::sign, std::string(1, source[position++])};
    }

    void SkipBlanks()
    {
        while (position < source.size())
        {
            if (std::isspace(static_cast<unsigned char>(source[position])) != 0)
                ++position;
            else if (source.compare(position, 2, "/*") == 0)
                position = EndOf("*/");
            else
                return;
        }
    }

    std::size_t EndOf(const std::string& mark) const
    {
        const std::size_t found = source.find(mark, position + 1);
        Demand(found != std::string::npos, "something does not end with " + mark);
        return found + mark.size();
    }

    std::string Quoted()
    {
        const std::size_t start = position;
        position = EndOf(std::string(1, source[start]));
        return source.substr(start + 1, position - start - 2);
    }

    std::string Word()
    {
        const std::size_t start = position;
        while (position < source.size() && isWordCharacter(source[position]))
            ++position;
        return source.substr(start, position - start);
    }

    const std::string& source;
    std::size_t position = 0;
    Token next = {};
};

std::uint32_t numberIn(const std::string& word)
{
    std::size_t used = 0;
    unsigned long value = 0;
    if (std::isdigit(static_cast<unsigned char>(word[0])) != 0)
        value = std::stoul(word, &used, 0);
    Demand(used == word.size(), "not a number: " + word);
    return static_cast<std::uint32_t>(value);
}

std::uint32_t codeIn(const std::string& text)
{
    Demand(text.size() == 4, "a code has four characters");
    std::uint32_t value = 0;
    for (const char character : text)
        value = value * 256 + static_cast<std::uint8_t>(character);
    return value;
}

/// What a field of a type puts into the data.
struct Field
{
    enum class Kind
    {
        constant,   ///< `value`.
        givenLong,  ///< The resource's next value.
        givenText,  ///< The resource's next value, as a Pascal string.
        distance,   ///< From label `first` to label `second`, in bits, divided by `value`.
        label,      ///< Nothing: `first` is here.
        alignToLong ///< Zeros up to a multiple of 4 bytes.
    };

    Kind kind;
    std::uint32_t value = 0;
    std::string first;
    std::string second;
};

Field readDistance(Tokens& tokens)
{
    Field field = {Field::Kind::distance, 0, "", ""};
    field.second = tokens.Take(Token::Kind::word);
    tokens.Expect("-");
    field.first = tokens.Take(Token::Kind::word);
    tokens.Expect(")");
    tokens.Expect("/");
    field.value = numberIn(tokens.Take(Token::Kind::word));
    return field;
}

Field readLongint(Tokens& tokens)
{
    if (!tokens.TakeIf("="))
        return {Field::Kind::givenLong, 0, "", ""};
    if (tokens.TakeIf("("))
        return readDistance(tokens);
    if (tokens.Peek().kind == Token::Kind::code)
        return {Field::Kind::constant, codeIn(tokens.Take().text), "", ""};
    return {Field::Kind::constant, numberIn(tokens.Take(Token::Kind::word)), "", ""};
}

Field readField(Tokens& tokens)
{
    const bool isLiteral = tokens.TakeIf("literal");
    const std::string word = tokens.Take(Token::Kind::word);
    if (!isLiteral && tokens.TakeIf(":"))
        return {Field::Kind::label, 0, word, ""};

    Field field = {};
    if (word == "longint")
        field = readLongint(tokens);
    else if (word == "pstring" && !isLiteral)
        field = {Field::Kind::givenText, 0, "", ""};
    else if (word == "align" && !isLiteral && tokens.TakeIf("long"))
        field = {Field::Kind::alignToLong, 0, "", ""};
    else
        throw std::runtime_error("unknown field: " + word);
    tokens.Expect(";");
    return field;
}

using Type = std::vector<Field>;

Type readType(Tokens& tokens)
{
    Type type;
    tokens.Expect("{");
    while (!tokens.TakeIf("}"))
        type.push_back(readField(tokens));
    tokens.Expect(";");
    return type;
}

std::vector<Token> readValues(Tokens& tokens)
{
    std::vector<Token> values;
    tokens.Expect("{");
    do
    {
        values.push_back(tokens.Take());
    } while (tokens.TakeIf(","));
    tokens.Expect("}");
    tokens.Expect(";");
    return values;
}

void appendLong(Bytes& data, std::uint32_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8)
        data.push_back(static_cast<std::uint8_t>((value >> shift) & 0xFF));
}

void appendText(Bytes& data, const Token& value)
{
    Demand(value.kind == Token::Kind::string, "not a string: " + value.text);
    data.push_back(static_cast<std::uint8_t>(value.text.size()));
    data.insert(data.end(), value.text.begin(), value.text.end());
}

/// Lays the fields out one after the other, then puts the distances between labels in.
class Layout
{
public:
    Bytes Fill(const Type& type, const std::vector<Token>& allValues)
    {
        values = &allValues;
        for (const Field& field : type)
            Append(field);
        Demand(nextValue == values->size(), "there are too many values");
        for (const auto& [place, field] : distances)
            Put(place, (Label(field->second) - Label(field->first)) * 8 / field->value);
        return data;
    }

private:
    void Append(const Field& field)
    {
        switch (field.kind)
        {
        case Field::Kind::constant:
            return appendLong(data, field.value);
        case Field::Kind::givenLong:
            return appendLong(data, numberIn(NextValue().text));
        case Field::Kind::givenText:
            return appendText(data, NextValue());
        case Field::Kind::distance:
            distances[data.size()] = &field;
            return appendLong(data, 0);
        case Field::Kind::label:
            Demand(labels.emplace(field.first, data.size()).second, "a label stands twice: " + field.first);
            return;
        case Field::Kind::alignToLong:
            data.resize((data.size() + 3) / 4 * 4, 0);
            return;
        }
    }

    const Token& NextValue()
    {
        Demand(nextValue < values->size(), "there are too few values");
        return (*values)[nextValue++];
    }

    std::uint32_t Label(const std::string& name) const
    {
        const auto found = labels.find(name);
        Demand(found != labels.end(), "no such label: " + name);
        return static_cast<std::uint32_t>(found->second);
    }

    void Put(std::size_t place, std::uint32_t value)
    {
        Bytes number;
        appendLong(number, value);
        std::copy(number.begin(), number.end(), data.begin() + static_cast<std::ptrdiff_t>(place));
    }

    const std::vector<Token>* values = nullptr;
    std::size_t nextValue = 0;
    Bytes data;
    std::map<std::string, std::size_t> labels;
    std::map<std::size_t, const Field*> distances;
};

Resource readResource(Tokens& tokens, const std::string& name, const Type& type)
{
    tokens.Expect("(");
    const int id = static_cast<int>(numberIn(tokens.Take(Token::Kind::word)));
    tokens.Expect(")");
    return {name, id, Layout().Fill(type, readValues(tokens))};
}
} // namespace

std::vector<Resource> CompileRez(const std::string& source)
{
    Tokens tokens(source);
    std::map<std::string, Type> types;
    std::vector<Resource> resources;
    while (tokens.Peek().kind != Token::Kind::end)
    {
        const std::string statement = tokens.Take(Token::Kind::word);
        const std::string name = tokens.Take(Token::Kind::code);
        Demand(name.size() == 4, "a type has four characters");
        if (statement == "type")
            types[name] = readType(tokens);
        else if (statement == "resource" && types.count(name) != 0)
            resources.push_back(readResource(tokens, name, types[name]));
        else
            throw std::runtime_error("unknown statement: " + statement + " " + name);
    }
    return resources;
}
} // namespace standin
