#pragma once
// Whether two declarations of a type mean the same to compiled code: the same numbers of the same sizes,
// the same depths of pointers, the same arguments in the same order. Names and `const` play no part.

#include <type_traits>

namespace abi
{
template <class T, class = void>
struct IsComplete : std::false_type
{
};
template <class T>
struct IsComplete<T, std::void_t<decltype(sizeof(T))>> : std::true_type
{
};

template <class T>
constexpr bool isNumber = std::is_arithmetic_v<T> || std::is_enum_v<T>;

/// What a pointer of ours points at where it stands for a pointer of any depth.
template <class T>
constexpr bool isOfAnyDepth = std::is_void_v<T>;

template <class Ours, class Theirs>
constexpr bool isSameShape();

/// An enumeration's sign is its compiler's choice.
template <class Ours, class Theirs>
constexpr bool isSameNumber()
{
    return sizeof(Ours) == sizeof(Theirs) &&
           std::is_floating_point_v<Ours> == std::is_floating_point_v<Theirs> &&
           (std::is_enum_v<Ours> || std::is_enum_v<Theirs> ||
            std::is_signed_v<Ours> == std::is_signed_v<Theirs>);
}

template <class Ours, class Theirs>
struct SameFunction : std::false_type
{
};
template <class OurResult, class... OurArguments, class TheirResult, class... TheirArguments>
struct SameFunction<OurResult(OurArguments...), TheirResult(TheirArguments...)>
{
    static constexpr bool Decide()
    {
        if constexpr (sizeof...(OurArguments) != sizeof...(TheirArguments))
            return false;
        else
            return isSameShape<OurResult, TheirResult>() &&
                   (isSameShape<OurArguments, TheirArguments>() && ...);
    }
    static constexpr bool value = Decide();
};

/// `Ours` and `Theirs` are what two pointers point at.
template <class Ours, class Theirs>
constexpr bool isSamePointee()
{
    if constexpr (isOfAnyDepth<Ours>)
        return true;
    else if constexpr (std::is_function_v<Ours> && std::is_function_v<Theirs>)
        return SameFunction<Ours, Theirs>::value;
    else if constexpr (std::is_class_v<Ours> && !IsComplete<Ours>::value)
        return std::is_class_v<Theirs> || std::is_void_v<Theirs>;
    else if constexpr (isNumber<Ours>)
        return isNumber<Theirs> && isSameShape<Ours, Theirs>();
    else if constexpr (std::is_class_v<Ours>)
        return std::is_class_v<Theirs> && IsComplete<Theirs>::value && isSameShape<Ours, Theirs>();
    else
        return isSameShape<Ours, Theirs>();
}

template <class OursQualified, class TheirsQualified>
constexpr bool isSameShape()
{
    using Ours = std::remove_cv_t<OursQualified>;
    using Theirs = std::remove_cv_t<TheirsQualified>;
    if constexpr (std::is_void_v<Ours> || std::is_void_v<Theirs>)
        return std::is_void_v<Ours> && std::is_void_v<Theirs>;
    else if constexpr (std::is_pointer_v<Ours> && std::is_pointer_v<Theirs>)
        return isSamePointee<std::remove_cv_t<std::remove_pointer_t<Ours>>,
                             std::remove_cv_t<std::remove_pointer_t<Theirs>>>();
    else if constexpr (isNumber<Ours> && isNumber<Theirs>)
        return isSameNumber<Ours, Theirs>();
    else if constexpr (std::is_class_v<Ours> && std::is_class_v<Theirs>)
        return sizeof(Ours) == sizeof(Theirs);
    else
        return false;
}
} // namespace abi
