#include "standin/host/suites/Arguments.h"

#include <algorithm>
#include <cstring>

#include "standin/host/family/FamilyBehaviour.h"
#include "standin/host/suites/CallScope.h"

namespace standin
{
namespace
{
constexpr std::size_t bufferSize = 128; ///< Of a caller's buffer for a name.
} // namespace

std::string PrintNumber(A_long value) { return std::to_string(value); }

std::string PrintText(const char* text) { return text == nullptr ? "null" : "\"" + std::string(text) + "\""; }

std::string PrintTime(const A_Time& time)
{
    return "time " + std::to_string(time.value) + "/" + std::to_string(time.scale);
}

std::string PrintHandle(HostParts& parts, const char* kind, const void* handle)
{
    const std::string word = kind;
    if (handle == nullptr)
        return word + " null";
    const Reference* reference = parts.sensors.references.Find(handle);
    if (reference == nullptr)
        return word + " foreign";
    switch (reference->kind)
    {
    case ReferenceKind::layer:
        return "layer " + std::to_string(reference->owner);
    case ReferenceKind::item:
        return "item " + std::to_string(reference->owner);
    case ReferenceKind::composition:
        return "comp " + std::to_string(reference->owner);
    case ReferenceKind::effect:
        return "effect " + parts.project.LabelOf(reference->owner);
    case ReferenceKind::groupStream:
        return "stream " + parts.project.LabelOf(reference->owner);
    case ReferenceKind::parameterStream:
        break;
    }
    return "stream " + parts.project.LabelOf(reference->owner) + "." + std::to_string(reference->parameter);
}

std::string MessageArg::Print(HostParts&)
{
    if (value == nullptr)
        return "null";
    if (message::MagicOf(value) != message::magic)
        return "record";
    command = message::CommandOf(value);
    const std::string head = "VORT " + std::to_string(command);
    if (command == message::getIdentity)
        return head + " uuid " + TextOf(message::IdentityOf(value));
    return head + " group " + std::to_string(message::GroupOf(value));
}

std::string MessageArg::Answer(HostParts&) const
{
    if (command == message::getGroup)
        return "group " + std::to_string(message::GroupOf(value));
    if (command == message::getIdentity)
        return "uuid " + TextOf(message::IdentityOf(value));
    return {};
}

void OutText::Give(const std::string& text, std::size_t limit) const
{
    const std::string given = text.substr(0, limit);
    std::memcpy(value, given.c_str(), given.size() + 1);
}

void OutText::GiveUnterminated(const std::string& text) const
{
    std::memset(value, '#', bufferSize);
    std::memcpy(value, text.data(), std::min(text.size(), bufferSize));
}

std::string OutText::Answer(HostParts&) const
{
    const void* end = std::memchr(value, 0, bufferSize);
    return end != nullptr ? PrintText(value) : "\"" + std::string(value, bufferSize) + "\" and no end";
}

void OutText::Spoil(OutValues outs) const
{
    if (value != nullptr && outs != OutValues::untouched)
        Give(outs == OutValues::null ? "" : garbageText, bufferSize - 1);
}

void OutTable::Spoil(OutValues outs) const { spoilWith(outs, nullptr, PoisonTable()); }

void* GarbageHandle()
{
    static void* nothing = nullptr;
    return &nothing;
}

std::string OutColour::Answer(HostParts&) const
{
    return std::to_string(value->red) + ", " + std::to_string(value->green) + ", " +
           std::to_string(value->blue);
}
} // namespace standin
