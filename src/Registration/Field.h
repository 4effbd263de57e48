#pragma once

#include "EthernetAddress.h"
#include "MemberCount.h"
#include "MemberName.h"
#include "Optional.h"
#include "RadioChannel.h"
#include "TypeName.h"
#include "ValueType.h"

#include <algorithm>
#include <array>
#include <concepts>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace zyr_registration
{

/// The fields of a nested record: specialise it with `static constexpr std::array fields{field<...>(...),
/// ...}`. A specialisation that tells only some of the members says so with `static constexpr bool isPart =
/// true`.
template <class Record>
struct RecordFields;

/// The texts of an enumeration that has some: specialise it with `static std::span<const EnumText> texts()`.
template <class Enum>
struct EnumVocabulary
{};

namespace detail
{

template <class T>
inline constexpr bool kIsChannel = std::derived_from<T, zyr_top_api::RadioChannel>;

template <class T>
constexpr NumberAccess numberAccess()
{
    return {[](const void* object) { return static_cast<std::int64_t>(*static_cast<const T*>(object)); },
            [](void* object, std::int64_t number) {
                if constexpr (kIsChannel<T>) {
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
                                    .pattern = "^[0-9A-Fa-f]{2}(:[0-9A-Fa-f]{2}){5}$",
                                    .text = {&ethernetAddressText, &parseEthernetAddress}};
};

template <std::integral T>
struct TypeOf<T>
{
    static constexpr ValueType type{
        .kind = Kind::Integer, .range = rangeOf<T>(), .number = numberAccess<T>()};
};

// A byte travels as a number from 0 to 255, also where `char` has a sign.
template <>
struct TypeOf<char>
{
    static constexpr ValueType type{
        .kind = Kind::Integer, .range = rangeOf<unsigned char>(), .number = numberAccess<unsigned char>()};
};

template <class T>
requires kIsChannel<T>
struct TypeOf<T>
{
    static constexpr ValueType type{.kind = Kind::Integer,
                                    .range = rangeOf<std::uint32_t>(),
                                    .isChannel = true,
                                    .number = numberAccess<T>()};
};

template <class Enum>
Vocabulary vocabularyOf()
{
    return {typeName<Enum>(), EnumVocabulary<Enum>::texts()};
}

template <class Enum>
constexpr Texts textsOf()
{
    if constexpr (requires { EnumVocabulary<Enum>::texts(); }) {
        return &vocabularyOf<Enum>;
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

template <class Record>
std::shared_ptr<void> makeRecord()
{
    return std::make_shared<Record>();
}

// Whether a nested record's members are described, all of them; only those of an aggregate can be counted.
template <class Record>
constexpr bool tellsAllMembers()
{
    if constexpr (std::is_aggregate_v<Record> && !requires { RecordFields<Record>::isPart; }) {
        return RecordFields<Record>::fields.size() == memberCount<Record>();
    } else {
        return true;
    }
}

template <class T>
requires requires
{
    RecordFields<T>::fields;
}
struct TypeOf<T>
{
    static_assert(tellsAllMembers<T>(), "a field of a nested record is not described");
    static constexpr ValueType type{
        .kind = Kind::Struct, .fields = RecordFields<T>::fields, .make = &makeRecord<T>};
};

template <auto Member>
struct MemberOf;

template <class Class, class T, T Class::*Member>
struct MemberOf<Member>
{
    using Record = Class;
    using Type = T;
};

// The type of an array's elements or of an optional's value, or the type itself.
constexpr const ValueType& innermost(const ValueType& type)
{
    return type.kind == Kind::Array || type.kind == Kind::Optional ? innermost(*type.element) : type;
}

// Whether the type has a number that only a unit explains.
constexpr bool hasPlainNumber(const ValueType& type)
{
    return type.kind == Kind::Double ||
           (type.kind == Kind::Integer && !type.isChannel && type.texts == nullptr) ||
           std::ranges::any_of(type.fields,
                               [](const Field& field) { return field.notes.unit == kUnitOfHolder; });
}

// Refuses notes of a field that leave open what they have to say or say what doesn't fit: the compiler shows
// the line that throws.
constexpr void checkNotes(const ValueType& fieldType, std::string_view help, const FieldNotes& notes)
{
    const ValueType& type = innermost(fieldType);
    const bool isNumber = hasPlainNumber(type) && notes.texts == nullptr && !notes.isChannel;
    if (help.empty()) {
        throw "a field has no help";
    }
    if (isNumber && notes.unit.empty()) {
        throw "the unit of a number is left open: say one of kUnits, kNoUnit if it has none";
    }
    if (!isNumber && !notes.unit.empty()) {
        throw "a unit without a number";
    }
    if (!notes.unit.empty() && std::ranges::find(kUnits, notes.unit) == kUnits.end()) {
        throw "a unit that is none of kUnits";
    }
    if (type.kind != Kind::Integer && (notes.range || notes.isChannel)) {
        throw "a range or a channel that is no integer";
    }
    if (notes.range && !type.isChannel && notes.range->minimum <= type.range.minimum &&
        notes.range->maximum >= type.range.maximum) {
        throw "a range that says no more than the type";
    }
    if (notes.texts != nullptr && type.kind != Kind::String && !hasPlainNumber(type)) {
        throw "texts of what is neither a string nor a plain number";
    }
    if (notes.isWholeNumber && fieldType.kind != Kind::String) {
        throw "a whole number in what is no string";
    }
    if (!notes.neededFor.empty() && fieldType.kind != Kind::Optional) {
        throw "what is no optional is needed anyway, or never";
    }
    if (notes.hasDefault && (fieldType.kind == Kind::Optional || fieldType.kind == Kind::Array)) {
        throw "an optional or an array may be left out anyway";
    }
}

// A text as an argument of a template.
template <std::size_t Size>
struct Literal
{
    // NOLINTNEXTLINE(modernize-avoid-c-arrays): what a literal is
    consteval Literal(const char (&text)[Size]) { std::ranges::copy(text, chars.begin()); }

    constexpr std::string_view view() const { return {chars.data(), Size - 1}; }

    std::array<char, Size> chars{};
};

} // namespace detail

/// The machine form of a type.
template <class T>
inline constexpr const ValueType& kValueType = detail::TypeOf<T>::type;

/// Texts for `FieldNotes::texts`: `.texts = oneOf<"Up", "Down">`. Of a number they stand for 0, 1 and so on.
template <detail::Literal... Text>
Vocabulary oneOf()
{
    static constexpr auto rows = [] {
        std::int64_t number = 0;
        return std::array{EnumText{number++, Text.view()}...};
    }();
    return {{}, rows};
}

/// The texts of an enumeration for `FieldNotes::texts`, of a string that holds one of them or of a number
/// that stands for one: `.texts = namesOf<AcmMode>`.
template <class Enum>
Vocabulary namesOf()
{
    return detail::vocabularyOf<Enum>();
}

/// Describes a member of a record, under the member's own name. Does not compile if the notes leave open what
/// they have to say, or say what doesn't fit the member's type.
/// @tparam Owner  the record that is described, if the member stands in a base of it
/// @param help    what it is, in a few words: "received level"
template <auto Member, class Owner = typename detail::MemberOf<Member>::Record>
consteval Field field(std::string_view help, FieldNotes notes = {})
{
    using Type = typename detail::MemberOf<Member>::Type;
    const ValueType& type = detail::TypeOf<Type>::type;
    detail::checkNotes(type, help, notes);
    return {memberName<Member>(),
            &type,
            [](void* record) -> void* { return &(static_cast<Owner*>(record)->*Member); },
            sizeof(Type),
            help,
            notes};
}

/// A pair travels as a struct of `first` and `second`.
template <class First, class Second>
struct RecordFields<std::pair<First, Second>>
{
    static constexpr std::array fields{
        field<&std::pair<First, Second>::first>("what the value is for"),
        field<&std::pair<First, Second>::second>("the value", {.unit = kUnitOfHolder}),
    };
};

} // namespace zyr_registration
