#include "Conversion.h"

#include "RecordError.h"
#include "ValueBuilder.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

namespace zyr_registration
{

namespace
{

using zyr_top_api::ETIResult;

// Longer texts are cut in error texts.
constexpr std::size_t kLongestQuote = 64;

// A value on its way into a record: what is to be known of it to read it and to tell what is wrong with it.
struct Place
{
    std::string_view method;
    std::uint32_t numberOfChannels;
    std::string path; // "loops[2].closed"
    const Field& field;
};

std::string inQuotes(std::string_view text)
{
    return '"' + std::string(text) + '"';
}

std::string listed(std::span<const Field> fields)
{
    std::string list;
    for (const Field& field : fields) {
        list += (list.empty() ? "" : ", ") + std::string(field.name);
    }
    return list.empty() ? "none" : list;
}

std::string rangeText(Range range)
{
    return "an integer from " + std::to_string(range.minimum) + " to " + std::to_string(range.maximum);
}

std::string numberedList(std::span<const EnumText> texts)
{
    std::string list;
    for (const EnumText& row : texts) {
        list += (list.empty() ? "" : ", ") + inQuotes(row.text) + " (" + std::to_string(row.number) + ")";
    }
    return list;
}

std::string textList(std::span<const EnumText> texts)
{
    std::string list;
    for (const EnumText& row : texts) {
        list += (list.empty() ? "" : ", ") + inQuotes(row.text);
    }
    return list;
}

std::string stringText(const ValueType& type, const FieldNotes& notes)
{
    if (notes.isWholeNumber) {
        const std::string number =
            rangeText({std::numeric_limits<int>::min(), std::numeric_limits<int>::max()});
        return "a string that begins with " + number +
               (notes.texts != nullptr ? ", known are " + textList(notes.texts().rows) : "");
    }
    if (notes.texts != nullptr) {
        return "a string, one of " + textList(notes.texts().rows);
    }
    return type.form.empty() ? "a string" : "a string like " + inQuotes(type.form);
}

std::string integerText(const ValueType& type, const FieldNotes& notes, std::uint32_t numberOfChannels)
{
    const std::string range = rangeText(acceptedRange(type, notes, numberOfChannels));
    if (const Texts texts = textsOf(type, notes)) {
        return "one of " + numberedList(texts().rows) + ", or " + range;
    }
    const bool isAnyChannel = (type.isChannel || notes.isChannel) && numberOfChannels == 0 && !notes.range;
    return isAnyChannel ? "a radio channel of the node, from 1" : range;
}

std::string shownString(const std::string& text)
{
    const bool isCut = text.size() > kLongestQuote;
    return "the string " + inQuotes(text.substr(0, kLongestQuote)) + (isCut ? " and more" : "");
}

std::string given(const Value& value)
{
    switch (value.type()) {
    case Value::value_t::null:
        return "nil";
    case Value::value_t::boolean:
        return value.get<bool>() ? "the boolean true" : "the boolean false";
    case Value::value_t::string:
        return shownString(value.get_ref<const std::string&>());
    case Value::value_t::array:
        return "an array";
    case Value::value_t::object:
        return "a struct";
    case Value::value_t::binary:
        return value.get_binary().has_subtype() ? "a dateTime.iso8601" : "base64";
    default:
        return value.dump();
    }
}

[[noreturn]] void refuse(ETIResult result, const Place& place, const ValueType& type, const Value& value)
{
    const std::string shown = place.field.notes.isSecret ? "a value that is not shown" : given(value);
    throw RecordError(result, std::string(place.method) + ": " + place.path + " is " + shown + ", it takes " +
                                  acceptedText(type, place.field.notes, place.numberOfChannels));
}

[[noreturn]] void refuseType(const Place& place, const ValueType& type, const Value& value)
{
    refuse(zyr_top_api::eTI_E_PARAMETER_TYPE_INVALID, place, type, value);
}

[[noreturn]] void refuseValue(const Place& place, const ValueType& type, const Value& value)
{
    refuse(zyr_top_api::eTI_E_PARAMETER_INVALID, place, type, value);
}

void readFields(const Place& place, std::span<const Field> fields, const Value& members, void* record);
void readValue(const Place& place, const ValueType& type, const Value& value, void* object);

// Some clients can send a big integer only as a double, so an integral one will do.
std::int64_t integerIn(const Place& place, const ValueType& type, const Value& value)
{
    constexpr double limit = 9223372036854775808.0; // 2^63
    if (value.is_number_unsigned()) {
        const auto number = value.get<std::uint64_t>();
        if (number > static_cast<std::uint64_t>(INT64_MAX)) {
            refuseValue(place, type, value);
        }
        return static_cast<std::int64_t>(number);
    }
    if (value.is_number_integer()) {
        return value.get<std::int64_t>();
    }
    if (!value.is_number_float()) {
        refuseType(place, type, value);
    }
    const double number = value.get<double>();
    if (std::trunc(number) != number) {
        refuseType(place, type, value);
    }
    if (number < -limit || number >= limit) {
        refuseValue(place, type, value);
    }
    return static_cast<std::int64_t>(number);
}

std::int64_t numberOfText(const Place& place, const ValueType& type, const Value& value)
{
    const auto texts = textsOf(type, place.field.notes)().rows;
    const auto row = std::ranges::find(texts, value.get_ref<const std::string&>(), &EnumText::text);
    if (row == texts.end()) {
        refuseValue(place, type, value);
    }
    return row->number;
}

// Some clients have no booleans and send 0 and 1.
void readBoolean(const Place& place, const ValueType& type, const Value& value, void* object)
{
    if (value.is_boolean()) {
        *static_cast<bool*>(object) = value.get<bool>();
        return;
    }
    const std::int64_t number = value.is_number_integer() ? value.get<std::int64_t>() : -1;
    if (number != 0 && number != 1) {
        refuseType(place, type, value);
    }
    *static_cast<bool*>(object) = number == 1;
}

void readInteger(const Place& place, const ValueType& type, const Value& value, void* object)
{
    const bool isText = textsOf(type, place.field.notes) != nullptr && value.is_string();
    const std::int64_t number = isText ? numberOfText(place, type, value) : integerIn(place, type, value);
    const Range range = acceptedRange(type, place.field.notes, place.numberOfChannels);
    if (number < range.minimum || number > range.maximum) {
        refuseValue(place, type, value);
    }
    type.number.set(object, number);
}

void readDouble(const Place& place, const ValueType& type, const Value& value, void* object)
{
    if (!value.is_number()) {
        refuseType(place, type, value);
    }
    const double number = value.get<double>();
    if (!std::isfinite(number)) {
        refuseValue(place, type, value);
    }
    *static_cast<double*>(object) = number;
}

void readString(const Place& place, const ValueType& type, const Value& value, void* object)
{
    if (!value.is_string()) {
        refuseType(place, type, value);
    }
    if (!type.text.set(object, value.get_ref<const std::string&>())) {
        refuseValue(place, type, value);
    }
}

void readArray(const Place& place, const ValueType& type, const Value& value, void* object)
{
    if (!value.is_array()) {
        refuseType(place, type, value);
    }
    type.sequence.clear(object);
    for (std::size_t index = 0; index < value.size(); ++index) {
        Place element = place;
        element.path += "[" + std::to_string(index) + "]";
        readValue(element, *type.element, value[index], type.sequence.append(object));
    }
}

// Some clients can't tell an empty struct from an empty array.
void readStruct(const Place& place, const ValueType& type, const Value& value, void* object)
{
    const bool isEmptyArray = value.is_array() && value.empty();
    if (!value.is_object() && !isEmptyArray) {
        refuseType(place, type, value);
    }
    readFields(place, type.fields, isEmptyArray ? Value::object() : value, object);
}

void readOptional(const Place& place, const ValueType& type, const Value& value, void* object)
{
    type.sequence.clear(object);
    if (!value.is_null()) {
        readValue(place, *type.element, value, type.sequence.append(object));
    }
}

void readValue(const Place& place, const ValueType& type, const Value& value, void* object)
{
    switch (type.kind) {
    case Kind::Boolean:
        return readBoolean(place, type, value, object);
    case Kind::Integer:
        return readInteger(place, type, value, object);
    case Kind::Double:
        return readDouble(place, type, value, object);
    case Kind::String:
        return readString(place, type, value, object);
    case Kind::Array:
        return readArray(place, type, value, object);
    case Kind::Struct:
        return readStruct(place, type, value, object);
    case Kind::Optional:
        return readOptional(place, type, value, object);
    }
}

std::string pathOf(const std::string& parent, std::string_view name)
{
    return parent.empty() ? std::string(name) : parent + "." + std::string(name);
}

void refuseUnknown(std::string_view method, const std::string& path, std::span<const Field> fields,
                   const Value& members)
{
    for (const auto& [name, value] : members.get_ref<const Value::object_t&>()) {
        if (std::ranges::find(fields, name, &Field::name) == fields.end()) {
            throw RecordError(zyr_top_api::eTI_E_PARAMETER_INVALID,
                              std::string(method) + ": " + pathOf(path, name.substr(0, kLongestQuote)) +
                                  " is not a member, accepted are: " + listed(fields));
        }
    }
}

void readMembers(std::string_view method, std::uint32_t numberOfChannels, const std::string& path,
                 std::span<const Field> fields, const Value& members, void* record)
{
    refuseUnknown(method, path, fields, members);
    for (const Field& field : fields) {
        const Place place{method, numberOfChannels, pathOf(path, field.name), field};
        const auto member = members.find(field.name);
        // A member that may be left out may be nil as well.
        const bool isGiven = member != members.end() &&
                             (field.isRequired() || field.type->kind == Kind::Optional || !member->is_null());
        if (isGiven) {
            readValue(place, *field.type, *member, field.address(record));
        } else if (field.isRequired()) {
            throw RecordError(zyr_top_api::eTI_E_REQUIRED_INPUT_MISSING,
                              std::string(method) + ": " + place.path + " is missing, it takes " +
                                  acceptedText(*field.type, field.notes, numberOfChannels));
        }
    }
}

void readFields(const Place& place, std::span<const Field> fields, const Value& members, void* record)
{
    readMembers(place.method, place.numberOfChannels, place.path, fields, members, record);
}

bool beginsWithWholeNumber(const std::string& text)
{
    try {
        static_cast<void>(std::stoi(text)); // as commands read it
        return true;
    } catch (const std::logic_error&) { // `invalid_argument` or `out_of_range`
        return false;
    }
}

void write(const ValueType& type, const void* object, ValueSink& sink)
{
    switch (type.kind) {
    case Kind::Boolean:
        return sink.boolean(*static_cast<const bool*>(object));
    case Kind::Integer:
        return sink.integer(type.number.get(object));
    case Kind::Double:
        return sink.real(*static_cast<const double*>(object));
    case Kind::String:
        return sink.text(type.text.get(object));
    case Kind::Array:
        sink.beginArray();
        for (std::size_t index = 0; index < type.sequence.size(object); ++index) {
            write(*type.element, type.sequence.at(object, index), sink);
        }
        return sink.endArray();
    case Kind::Struct:
        sink.beginStruct();
        writeRecord(type.fields, object, sink);
        return sink.endStruct();
    case Kind::Optional:
        return type.sequence.size(object) == 0 ? sink.nil()
                                               : write(*type.element, type.sequence.at(object, 0), sink);
    }
}

} // namespace

std::string_view kindName(const ValueType& type)
{
    switch (type.kind) {
    case Kind::Boolean:
        return "boolean";
    case Kind::Integer:
        return "int";
    case Kind::Double:
        return "double";
    case Kind::String:
        return "string";
    case Kind::Array:
        return "array";
    case Kind::Struct:
        return "struct";
    case Kind::Optional:
        return kindName(*type.element);
    }
    return {};
}

Texts textsOf(const ValueType& type, const FieldNotes& notes)
{
    return notes.texts != nullptr ? notes.texts : type.texts;
}

Range acceptedRange(const ValueType& type, const FieldNotes& notes, std::uint32_t numberOfChannels)
{
    if (notes.range) {
        return *notes.range;
    }
    const bool isLimited = (type.isChannel || notes.isChannel) && numberOfChannels != 0;
    return isLimited ? Range{1, numberOfChannels} : type.range;
}

std::string acceptedText(const ValueType& type, const FieldNotes& notes, std::uint32_t numberOfChannels)
{
    switch (type.kind) {
    case Kind::Boolean:
        return "a boolean";
    case Kind::Integer:
        return integerText(type, notes, numberOfChannels);
    case Kind::Double:
        return "a number";
    case Kind::String:
        return stringText(type, notes);
    case Kind::Array:
        return "an array";
    case Kind::Struct:
        return "a struct of " + listed(type.fields);
    case Kind::Optional:
        return acceptedText(*type.element, notes, numberOfChannels);
    }
    return {};
}

void readRecord(std::string_view method, std::span<const Field> fields, const Value& members,
                std::uint32_t numberOfChannels, void* record)
{
    readMembers(method, numberOfChannels, {}, fields, members, record);
}

void checkWholeNumbers(std::string_view method, std::span<const Field> fields, const Value& members)
{
    for (const Field& field : fields) {
        const auto member = members.find(field.name);
        if (field.notes.isWholeNumber && member != members.end() &&
            !beginsWithWholeNumber(member->get_ref<const std::string&>())) {
            refuse(zyr_top_api::eTI_E_INVALID_ARGUMENT, {method, 0, std::string(field.name), field},
                   *field.type, *member);
        }
    }
}

void refuseMissingOption(std::string_view method, std::span<const Field> fields, const Value& members)
{
    for (const Field& field : fields) {
        const auto member = members.find(field.name);
        const bool isLeftOut = member == members.end() || member->is_null();
        if (isLeftOut && !field.notes.neededFor.empty()) {
            throw RecordError(zyr_top_api::eTI_E_REQUIRED_INPUT_MISSING,
                              std::string(method) + ": " + std::string(field.name) +
                                  " is missing, it is needed for " + std::string(field.notes.neededFor) +
                                  " and takes " + acceptedText(*field.type, field.notes, 0));
        }
    }
}

void writeRecord(std::span<const Field> fields, const void* record, ValueSink& sink)
{
    for (const Field& field : fields) {
        // The address is only read here; the one accessor serves both ways.
        const void* const object = field.address(const_cast<void*>(record));
        if (field.type->kind != Kind::Optional || field.type->sequence.size(object) != 0) {
            sink.beginMember(field.name);
            write(*field.type, object, sink);
            sink.endMember();
        }
    }
}

Value valueOf(std::span<const Field> fields, const void* record)
{
    ValueBuilder builder;
    builder.beginStruct();
    writeRecord(fields, record, builder);
    builder.endStruct();
    return builder.take();
}

} // namespace zyr_registration
