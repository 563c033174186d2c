#pragma once
// The parameters of the host's functions, each type by the role that it plays. A role knows its C
// type and that type's name, how it reads in the trace, and who owns what it hands out. The
// functions of the suites are written with roles, and the C signatures follow from them.

#include <string>
#include <type_traits>

#include "standin/host/core/HostParts.h"

namespace standin
{
std::string PrintNumber(A_long value);
std::string PrintText(const char* text);
std::string PrintTime(const A_Time& time);
/// "effect B", "stream B.1", "layer 1", with `kind` for a handle that tells nothing.
std::string PrintHandle(HostParts& parts, const char* kind, const void* handle);

/// What every role has, as far as it does not say otherwise.
struct Argument
{
    static constexpr const char* owner = "";
    static constexpr bool isOut = false;
    bool IsMissing() const { return false; }
    std::string Answer(HostParts&) const { return {}; }
    void Spoil(OutValues) const {}
};

template <class T>
struct NumberArg : Argument
{
    using Abi = T;
    static constexpr const char* abiName = std::is_same_v<T, A_Boolean>  ? "A_Boolean"
                                           : std::is_same_v<T, A_char>   ? "A_char"
                                           : std::is_same_v<T, A_u_long> ? "A_u_long"
                                                                         : "A_long";
    T value;
    explicit NumberArg(T v) : value(v) {}
    std::string Print(HostParts&) const { return PrintNumber(static_cast<A_long>(value)); }
};

struct PluginArg : Argument
{
    using Abi = A_long;
    static constexpr const char* abiName = "AEGP_PluginID";
    A_long value;
    explicit PluginArg(A_long v) : value(v) {}
    std::string Print(HostParts&) const { return "id " + PrintNumber(value); }
};

/// A handle that goes in. It may be null: the functions find that out and report it.
template <class Handle>
struct HandleArg : Argument
{
    using Abi = Handle;
    static constexpr const char* kind = std::is_same_v<Handle, LayerH>       ? "layer"
                                        : std::is_same_v<Handle, ItemH>      ? "item"
                                        : std::is_same_v<Handle, CompH>      ? "comp"
                                        : std::is_same_v<Handle, EffectRefH> ? "effect"
                                                                             : "stream";
    static constexpr const char* abiName = std::is_same_v<Handle, LayerH>       ? "AEGP_LayerH"
                                           : std::is_same_v<Handle, ItemH>      ? "AEGP_ItemH"
                                           : std::is_same_v<Handle, CompH>      ? "AEGP_CompH"
                                           : std::is_same_v<Handle, EffectRefH> ? "AEGP_EffectRefH"
                                                                                : "AEGP_StreamRefH";
    Handle value;
    explicit HandleArg(Handle v) : value(v) {}
    std::string Print(HostParts& parts) const { return PrintHandle(parts, kind, value); }
};

template <class Character>
struct TextArg : Argument
{
    using Abi = const Character*;
    static constexpr const char* abiName =
        std::is_same_v<Character, char> ? "const A_char*" : "const A_u_char*";
    const Character* value;
    explicit TextArg(const Character* v) : value(v) {}
    const char* Text() const { return reinterpret_cast<const char*>(value); }
    std::string Print(HostParts&) const { return PrintText(Text()); }
    bool IsMissing() const { return value == nullptr; }
};

/// A text that may be null as far as the tables are concerned: its function says what that means.
struct NullableTextArg : TextArg<char>
{
    using TextArg::TextArg;
    bool IsMissing() const { return false; }
};

struct TimeArg : Argument
{
    using Abi = const A_Time*;
    static constexpr const char* abiName = "const A_Time*";
    const A_Time* value;
    explicit TimeArg(const A_Time* v) : value(v) {}
    std::string Print(HostParts&) const { return value == nullptr ? "time null" : PrintTime(*value); }
    bool IsMissing() const { return value == nullptr; }
};

/// What an effect gets with the general command: the family's message, or anything else.
struct MessageArg : Argument
{
    using Abi = void*;
    static constexpr const char* abiName = "void*";
    void* value;
    A_u_long command = 0; ///< Remembered, since the effect may write over it. 0 for another record.
    explicit MessageArg(void* v) : value(v) {}
    std::string Print(HostParts&);
    std::string Answer(HostParts&) const;
};

/// A pointer that the host only keeps: a hook, a refcon, a table.
template <class Pointer>
struct KeptArg : Argument
{
    using Abi = Pointer;
    static constexpr const char* word = std::is_same_v<Pointer, void*>         ? "refcon"
                                        : std::is_same_v<Pointer, const void*> ? "table"
                                                                               : "hook";
    static constexpr const char* abiName = std::is_same_v<Pointer, void*>            ? "refcon"
                                           : std::is_same_v<Pointer, const void*>    ? "const void*"
                                           : std::is_same_v<Pointer, CommandHook>    ? "AEGP_CommandHook"
                                           : std::is_same_v<Pointer, UpdateMenuHook> ? "AEGP_UpdateMenuHook"
                                           : std::is_same_v<Pointer, DeathHook>      ? "AEGP_DeathHook"
                                           : std::is_same_v<Pointer, IdleHook>       ? "AEGP_IdleHook"
                                                                                     : "AEGP_CreatePanelHook";
    Pointer value;
    explicit KeptArg(Pointer v) : value(v) {}
    std::string Print(HostParts&) const { return value == nullptr ? "null" : word; }
    bool IsMissing() const { return value == nullptr && !std::is_same_v<Pointer, void*>; }
};

/// An out-value. It is not among the arguments of the trace, and must not be null.
template <class T>
struct OutArg : Argument
{
    using Abi = T*;
    static constexpr bool isOut = true;
    T* value;
    explicit OutArg(T* v) : value(v) {}
    bool IsMissing() const { return value == nullptr; }
    std::string Print(HostParts&) const { return {}; }

protected:
    void spoilWith(OutValues outs, const T& null, const T& garbage) const
    {
        if (value != nullptr && outs != OutValues::untouched)
            *value = outs == OutValues::null ? null : garbage;
    }
};

/// What garbage is.
constexpr int garbageNumber = 77;
constexpr const char* garbageText = "garbage";
/// Nothing that a host has handed out.
void* GarbageHandle();

template <class T>
struct OutNumber : OutArg<T>
{
    static constexpr const char* abiName = std::is_same_v<T, A_Boolean>  ? "A_Boolean*"
                                           : std::is_same_v<T, A_short>  ? "A_short*"
                                           : std::is_same_v<T, A_u_long> ? "A_u_long*"
                                                                         : "A_long*";
    using OutArg<T>::OutArg;
    std::string Answer(HostParts&) const { return PrintNumber(static_cast<A_long>(*this->value)); }
    void Spoil(OutValues outs) const { this->spoilWith(outs, T{0}, T{garbageNumber}); }
};

template <class Handle>
struct OutHandle : OutArg<Handle>
{
    using In = HandleArg<Handle>;
    static constexpr const char* abiName = std::is_same_v<Handle, LayerH>       ? "AEGP_LayerH*"
                                           : std::is_same_v<Handle, ItemH>      ? "AEGP_ItemH*"
                                           : std::is_same_v<Handle, CompH>      ? "AEGP_CompH*"
                                           : std::is_same_v<Handle, EffectRefH> ? "AEGP_EffectRefH*"
                                                                                : "AEGP_StreamRefH*";
    static constexpr const char* owner = std::is_same_v<Handle, EffectRefH> ? "the caller: AEGP_DisposeEffect"
                                         : std::is_same_v<Handle, StreamRefH>
                                             ? "the caller: AEGP_DisposeStream"
                                             : "the host, until the hook returns";
    using OutArg<Handle>::OutArg;
    void Give(void* handle) const { *this->value = static_cast<Handle>(handle); }
    std::string Answer(HostParts& parts) const { return PrintHandle(parts, In::kind, *this->value); }
    void Spoil(OutValues outs) const { this->spoilWith(outs, nullptr, static_cast<Handle>(GarbageHandle())); }
};

/// A caller's buffer for a name.
struct OutText : OutArg<char>
{
    static constexpr const char* abiName = "A_char*";
    static constexpr const char* owner = "the caller's buffer";
    using OutArg::OutArg;
    /// Writes the text and a zero; at most as much as the limit of the options allows.
    void Give(const std::string& text, std::size_t limit) const;
    /// Fills 128 characters and writes no zero.
    void GiveUnterminated(const std::string& text) const;
    std::string Answer(HostParts&) const;
    void Spoil(OutValues outs) const;
};

struct OutTime : OutArg<A_Time>
{
    static constexpr const char* abiName = "A_Time*";
    using OutArg::OutArg;
    std::string Answer(HostParts&) const { return PrintTime(*value); }
    void Spoil(OutValues outs) const { spoilWith(outs, {0, 0}, {garbageNumber, garbageNumber}); }
};

struct OutColour : OutArg<PF_App_Color>
{
    static constexpr const char* abiName = "PF_App_Color*";
    using OutArg::OutArg;
    std::string Answer(HostParts&) const;
    void Spoil(OutValues outs) const
    {
        spoilWith(outs, {0, 0, 0}, {garbageNumber, garbageNumber, garbageNumber});
    }
};

/// A table of functions that goes out; the trace does not mention it.
struct OutTable : OutArg<const void*>
{
    static constexpr const char* abiName = "const void**";
    static constexpr const char* owner = "the host, until ReleaseSuite";
    using OutArg::OutArg;
    void Spoil(OutValues outs) const;
};

/// Memory, or the host's mark of a published suite.
struct OutPointer : OutArg<void*>
{
    static constexpr const char* abiName = "void**";
    using OutArg::OutArg;
    void Spoil(OutValues outs) const { spoilWith(outs, nullptr, GarbageHandle()); }
};
} // namespace standin
