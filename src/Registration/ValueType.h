#pragma once

#include <nlohmann/json_fwd.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace zyr_registration
{

/// A value outside the library, whatever the wire form: null, bool, number, string, array or object.
using Value = nlohmann::ordered_json;

struct Field;

/// The shapes that a value can have.
enum class Kind
{
    Boolean,
    Integer, ///< enumerations too
    Double,
    String,
    Array,
    Struct,
    Optional, ///< a value of the element's type, or none
};

/// Numbers from `minimum` to `maximum`, both included.
struct Range
{
    std::int64_t minimum;
    std::int64_t maximum;
};

/// A number and what it stands for.
struct EnumText
{
    std::int64_t number;
    std::string_view text;
};

/// The texts of numbers, or all that a string can be.
struct Vocabulary
{
    std::string_view name; ///< that of the enumeration; empty: the texts of one field
    std::span<const EnumText> rows;
};

/// Gives a vocabulary, the same one for ever; or there is none. Says so by a flag: with the undefined
/// behaviour sanitizer the compiler doesn't know whether a function has an address.
class Texts
{
  public:
    constexpr Texts(std::nullptr_t = nullptr) {}
    constexpr Texts(Vocabulary (*give)()) : m_give(give), m_isThere(true) {}

    constexpr explicit operator bool() const { return m_isThere; }
    constexpr bool operator==(std::nullptr_t) const { return !m_isThere; }
    Vocabulary operator()() const { return m_give(); }

  private:
    Vocabulary (*m_give)() = nullptr;
    bool m_isThere = false;
};

/// Makes a record with its defaults.
using MakeRecord = std::shared_ptr<void> (*)();

/// How a number is taken from and put into an object.
struct NumberAccess
{
    std::int64_t (*get)(const void* object) = nullptr;
    void (*set)(void* object, std::int64_t number) = nullptr;
};

/// How an object is taken for its text and made from one. `set` gives false if the text is none of the
/// type's.
struct TextAccess
{
    std::string (*get)(const void* object) = nullptr;
    bool (*set)(void* object, const std::string& text) = nullptr;
};

/// How the elements of a container are reached; an optional is a container of at most one.
struct SequenceAccess
{
    std::size_t (*size)(const void* container) = nullptr;
    const void* (*at)(const void* container, std::size_t index) = nullptr;
    void* (*append)(void* container) = nullptr; ///< a new element with its defaults
    void (*clear)(void* container) = nullptr;
};

/// A type of the library's records as machines need it: what values it takes, and how they get in and out.
/// One constant per type, `kValueType<T>`. Only the members that belong to the kind are set.
struct ValueType
{
    Kind kind;
    Range range = {};                   ///< of an integer
    bool isChannel = false;             ///< an integer that is limited to the node's radio channels
    std::string_view form = {};         ///< of a string that isn't free text, such as "aa:bb:cc:dd:ee:ff"
    std::string_view pattern = {};      ///< the same as a regular expression
    Texts texts = nullptr;              ///< of an enumeration
    std::span<const Field> fields = {}; ///< of a struct
    MakeRecord make = nullptr;          ///< of a struct
    const ValueType* element = nullptr; ///< of an array or an optional
    NumberAccess number = {};
    TextAccess text = {};
    SequenceAccess sequence = {};
};

/// Says that a number is a count, a code or a ratio of one.
inline constexpr std::string_view kNoUnit = "none";

/// Stands for the unit that is said where the record is used.
inline constexpr std::string_view kUnitOfHolder = "holder's";

/// The units that a number can have: an optional factor, and what is counted.
inline constexpr std::array<std::string_view, 19> kUnits{
    kNoUnit,  kUnitOfHolder, "kHz",    "Hz", "s",    "ms",     "us",     "ns",   "0.1 dBm", "dBm",
    "0.1 dB", "dB",          "0.0001", "%",  "degC", "kbit/s", "Mbit/s", "byte", "min"};

/// What is to be known of a field beside its type and its help.
struct FieldNotes
{
    std::string_view unit = {}; ///< one of `kUnits`; must be said for every number that has no texts
    /// Narrower than the type's; for a channel instead of the node's channels.
    std::optional<Range> range = {};
    /// Of a string: all that it can be, or in a request all that the command can use; others reach the
    /// command nevertheless. Of a plain number: what it stands for. See `oneOf` and `namesOf`.
    Texts texts = nullptr;
    std::span<const EnumText> noValues = {}; ///< numbers that are no value, and why there is none
    /// A value that serves on the simulated node; of a string as it is, of others as JSON. Without it the
    /// example follows from the type: true, the first text, or a small number in range.
    std::string_view example = {};
    bool hasDefault = false; ///< a request may leave it out, the record's own default stands then
    bool changes = false;    ///< makes a command that only reads change something
    bool isChannel = false;  ///< a plain number that is a radio channel, limited like one
    bool isSecret = false;   ///< its value is shown nowhere
    /// Of a string: the command reads the whole number that it begins with. See `checkWholeNumbers`.
    bool isWholeNumber = false;
    /// Of an optional: what the command needs it for, and gives up without it: "the stop". See
    /// `refuseMissingOption`.
    std::string_view neededFor = {};
};

/// One field of a record.
struct Field
{
    std::string_view name;          ///< the member's, spelling and case included
    const ValueType* type;          ///< what it holds
    void* (*address)(void* record); ///< where it is in a record
    std::size_t size;               ///< of the member, in bytes
    std::string_view help;          ///< what it is, in a few words
    FieldNotes notes = {};

    /// The type behind an optional, or the type itself.
    const ValueType& valueType() const { return type->kind == Kind::Optional ? *type->element : *type; }

    /// True if a request without it is refused.
    bool isRequired() const
    {
        return !notes.hasDefault && type->kind != Kind::Optional && type->kind != Kind::Array;
    }

    bool isChannel() const { return valueType().isChannel || notes.isChannel; }
};

/// "boolean", "int", "double", "string", "array" or "struct": the kind as XML-RPC signatures name it; of an
/// optional, that of its value.
std::string_view kindName(const ValueType& type);

} // namespace zyr_registration
