#pragma once

#include "EthernetAddress.h"
#include "MemberName.h"
#include "Optional.h"
#include "RadioChannel.h"
#include "ValueType.h"

#include <array>
#include <concepts>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace zyr_registration
{

/// The fields of a nested record: specialise it with `static constexpr std::array fields{field<...>(...),
/// ...}`.
template <class Record>
struct RecordFields;

/// The texts of an enumeration that has some: specialise it with `static std::span<const EnumText> texts()`.
template <class Enum>
struct EnumVocabulary
{};

namespace detail
{

template <class T>
inline constexpr bool isChannel = std::derived_from<T, zyr_top_api::RadioChannel>;

template <class T>
constexpr NumberAccess numberAccess()
{
    return {[](const void* object) { return static_cast<std::int64_t>(*static_cast<const T*>(object)); },
            [](void* object, std::int64_t number) {
                if constexpr (isChannel<T>) {
                    *static_cast<T*>(object) = T(static_cast<std::uint32_t>(number));
                } else {
                    *static_cast<T*>(object) = static_cast<T>(number);
                }
            }};
}

template <std::integral T>
constexpr Range rangeOf()
{
    static_assert(sizeof(T) < sizeof(std::int64_t) || std::signed_integral<T>,
                  "values must fit 64 signed bits");
    return {std::numeric_limits<T>::min(), std::numeric_limits<T>::max()};
}

template <class T>
struct TypeOf;

template <>
struct TypeOf<bool>
{
    static constexpr ValueType type = {.kind = Kind::Boolean};
};

template <>
struct TypeOf<double>
{
    static constexpr ValueType type = {.kind = Kind::Double};
};

template <>
struct TypeOf<std::string>
{
    static constexpr ValueType type{
        .kind = Kind::String,
        .text = {[](const void* object) { return *static_cast<const std::string*>(object); },
                 [](void* object, const std::string& text) {
                     *static_cast<std::string*>(object) = text;
                     return true;
                 }}};
};

template <>
struct TypeOf<ether_addr>
{
    static constexpr ValueType type{.kind = Kind::String,
                                    .form = "aa:bb:cc:dd:ee:ff",
                                    .text = {&ethernetAddressText, &parseEthernetAddress}};
};

template <std::integral T>
struct TypeOf<T>
{
    static constexpr ValueType type{
        .kind = Kind::Integer, .range = rangeOf<T>(), .number = numberAccess<T>()};
};

template <class T>
requires isChannel<T>
struct TypeOf<T>
{
    static constexpr ValueType type{.kind = Kind::Integer,
                                    .range = rangeOf<std::uint32_t>(),
                                    .isChannel = true,
                                    .number = numberAccess<T>()};
};

template <class Enum>
constexpr auto textsOf() -> std::span<const EnumText> (*)()
{
    if constexpr (requires { EnumVocabulary<Enum>::texts(); }) {
        return &EnumVocabulary<Enum>::texts;
    } else {
        return nullptr;
    }
}

template <class T>
requires std::is_enum_v<T>
struct TypeOf<T>
{
    static constexpr ValueType type{.kind = Kind::Integer,
                                    .range = rangeOf<std::underlying_type_t<T>>(),
                                    .texts = textsOf<T>(),
                                    .number = numberAccess<T>()};
};

template <class T>
struct TypeOf<std::vector<T>>
{
    static_assert(!std::same_as<T, bool>, "flags in a vector have no address");
    using Vector = std::vector<T>;
    static constexpr ValueType type{
        .kind = Kind::Array,
        .element = &TypeOf<T>::type,
        .sequence = {[](const void* vector) { return static_cast<const Vector*>(vector)->size(); },
                     [](const void* vector, std::size_t index) -> const void* {
                         return &(*static_cast<const Vector*>(vector))[index];
                     },
                     [](void* vector) -> void* { return &static_cast<Vector*>(vector)->emplace_back(); },
                     [](void* vector) { static_cast<Vector*>(vector)->clear(); }}};
};

template <class T>
struct TypeOf<general_classes::Optional<T>>
{
    using Optional = general_classes::Optional<T>;
    static constexpr ValueType type{
        .kind = Kind::Optional,
        .element = &TypeOf<T>::type,
        .sequence = {[](const void* optional) {
                         return std::size_t{static_cast<const Optional*>(optional)->hasValue()};
                     },
                     [](const void* optional, std::size_t) -> const void* {
                         return &static_cast<const Optional*>(optional)->value();
                     },
                     [](void* optional) -> void* {
                         *static_cast<Optional*>(optional) = T{};
                         return &static_cast<Optional*>(optional)->value();
                     },
                     [](void* optional) { static_cast<Optional*>(optional)->reset(); }}};
};

template <class T>
requires requires
{
    RecordFields<T>::fields;
}
struct TypeOf<T>
{
    static constexpr ValueType type = {.kind = Kind::Struct, .fields = RecordFields<T>::fields};
};

template <auto Member>
struct MemberOf;

template <class Class, class T, T Class::*Member>
struct MemberOf<Member>
{
    using Record = Class;
    using Type = T;
};

} // namespace detail

/// The machine form of a type.
template <class T>
inline constexpr const ValueType& kValueType = detail::TypeOf<T>::type;

/// Describes a member of a record. The name must be the member's own; the compiler checks it.
/// @tparam Owner  the record that is described, if the member stands in a base of it
template <auto Member, class Owner = typename detail::MemberOf<Member>::Record>
constexpr Field field(std::string_view name, FieldNotes notes = {})
{
    if (name != memberName<Member>()) {
        throw "a field is described under another name than its member's";
    }
    return {name, &detail::TypeOf<typename detail::MemberOf<Member>::Type>::type,
            [](void* record) -> void* { return &(static_cast<Owner*>(record)->*Member); }, notes};
}

/// A pair travels as a struct of `first` and `second`.
template <class First, class Second>
struct RecordFields<std::pair<First, Second>>
{
    static constexpr std::array fields{
        field<&std::pair<First, Second>::first>("first"),
        field<&std::pair<First, Second>::second>("second"),
    };
};

} // namespace zyr_registration
