#include "standin/session/Typing.h"

#include <cctype>
#include <stdexcept>
#include <vector>

namespace standin
{
namespace
{
struct KeyOfCharacter
{
    char plain;
    char shifted;
    const char* key;
};

constexpr KeyOfCharacter signs[] = {{' ', '\0', "space"},
                                    {'-', '_', "minus"},
                                    {'=', '+', "equal"},
                                    {'[', '{', "bracketleft"},
                                    {']', '}', "bracketright"},
                                    {';', ':', "semicolon"},
                                    {',', '<', "comma"},
                                    {'.', '>', "period"},
                                    {'/', '?', "slash"},
                                    {'\\', '|', "backslash"},
                                    {'`', '~', "grave"},
                                    {'\'', '"', "apostrophe"},
                                    {'1', '!', "1"},
                                    {'2', '@', "2"},
                                    {'3', '#', "3"},
                                    {'4', '$', "4"},
                                    {'5', '%', "5"},
                                    {'6', '^', "6"},
                                    {'7', '&', "7"},
                                    {'8', '*', "8"},
                                    {'9', '(', "9"},
                                    {'0', ')', "0"}};

void typeShifted(XTestInput& user, const std::string& key)
{
    user.keyDown("Shift_L");
    user.key(key);
    user.keyUp("Shift_L");
}

void typeCharacter(XTestInput& user, char c)
{
    const auto code = static_cast<unsigned char>(c);
    if (std::islower(code))
        return user.key(std::string(1, c));
    if (std::isupper(code))
        return typeShifted(user, std::string(1, static_cast<char>(std::tolower(code))));
    for (const KeyOfCharacter& sign : signs)
    {
        if (c == sign.plain)
            return user.key(sign.key);
        if (c == sign.shifted)
            return typeShifted(user, sign.key);
    }
    throw std::runtime_error("there is no key for the character " + std::string(1, c));
}
} // namespace

void TypeText(XTestInput& user, const std::string& text)
{
    for (const char c : text)
        typeCharacter(user, c);
}

std::string ModifierKey(const std::string& name)
{
    if (name == "Control" || name == "Shift" || name == "Alt" || name == "Super")
        return name + "_L";
    throw std::runtime_error("\"" + name + "\" is no modifier key: Control, Shift, Alt or Super");
}

void PressKey(XTestInput& user, const std::string& keyName)
{
    std::vector<std::string> modifiers;
    std::string key = keyName;
    for (std::size_t plus = key.find('+'); plus != std::string::npos && plus > 0; plus = key.find('+'))
    {
        modifiers.push_back(ModifierKey(key.substr(0, plus)));
        key = key.substr(plus + 1);
    }
    for (const std::string& modifier : modifiers)
        user.keyDown(modifier);
    user.key(key);
    for (auto modifier = modifiers.rbegin(); modifier != modifiers.rend(); ++modifier)
        user.keyUp(*modifier);
}
} // namespace standin
