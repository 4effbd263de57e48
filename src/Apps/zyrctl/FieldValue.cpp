#include "FieldValue.h"

#include "Failure.h"
#include "Suggestion.h"
#include "Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace zyr_ctl
{

namespace
{

std::vector<std::string> textsOf(const FieldDescription& field)
{
    std::vector<std::string> texts;
    std::ranges::transform(field.texts, std::back_inserter(texts), &EnumText::text);
    return texts;
}

[[noreturn]] void refuse(const FieldDescription& field, const std::string& path, const std::string& given,
                         const std::string& hint = {})
{
    throw usageFailure(path + " is " + (field.isSecret ? "a value that is not shown" : given) +
                       ", it takes " + acceptedText(field) + hint);
}

[[noreturn]] void refuseValue(const FieldDescription& field, const std::string& path, const Value& value)
{
    refuse(field, path, compactJson(value));
}

std::optional<bool> booleanOf(const std::string& text)
{
    const std::string word = lowerCase(text);
    if (word == "true" || word == "on" || word == "1") {
        return true;
    }
    if (word == "false" || word == "off" || word == "0") {
        return false;
    }
    return std::nullopt;
}

bool flagOfText(const FieldDescription& field, const std::string& path, const std::string& text)
{
    const auto flag = booleanOf(text);
    if (!flag) {
        refuse(field, path, inQuotes(text));
    }
    return *flag;
}

std::optional<std::int64_t> decimalOrHex(std::string_view text)
{
    const bool isHex = text.starts_with("0x") || text.starts_with("0X");
    const std::string_view digits = isHex ? text.substr(2) : text;
    std::int64_t number = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), number, isHex ? 16 : 10);
    const bool isWhole = error == std::errc() && end == digits.data() + digits.size();
    return isWhole && !(isHex && number < 0) ? std::optional(number) : std::nullopt;
}

// The text as it is, or the only one that differs in capitals alone.
std::optional<std::int64_t> numberOfText(const FieldDescription& field, const std::string& text)
{
    const auto exact = std::ranges::find(field.texts, text, &EnumText::text);
    if (exact != field.texts.end()) {
        return exact->number;
    }
    const auto isAlike = [small = lowerCase(text)](const EnumText& row) {
        return lowerCase(row.text) == small;
    };
    const auto alike = std::ranges::find_if(field.texts, isAlike);
    const bool isOnlyOne = std::ranges::count_if(field.texts, isAlike) == 1;
    return isOnlyOne ? std::optional(alike->number) : std::nullopt;
}

std::string rangeWords(const FieldDescription& field)
{
    return " from " + std::to_string(field.minimum) + " to " + std::to_string(field.maximum);
}

std::int64_t inRange(const FieldDescription& field, const std::string& path, std::int64_t number)
{
    if (number < field.minimum || number > field.maximum) {
        // That of the type goes without saying only as long as it is kept.
        const bool isUntold = field.texts.empty() && !hasRangeOfItsOwn(field);
        refuse(field, path, std::to_string(number), isUntold ? rangeWords(field) : "");
    }
    return number;
}

[[noreturn]] void refuseText(const FieldDescription& field, const std::string& path, const std::string& text)
{
    refuse(field, path, inQuotes(text), field.isSecret ? "" : didYouMean(text, textsOf(field)));
}

// Some texts look like numbers, and like those of other texts; a guess could set the wrong one.
[[noreturn]] void refuseTwofold(const FieldDescription& field, const std::string& path,
                                const std::string& text, std::int64_t numberOfThatText)
{
    refuse(field, path, inQuotes(text),
           "; say " + std::to_string(numberOfThatText) + " for the text " + inQuotes(text) +
               ", or for the number " + text + " its text");
}

std::int64_t integerOfText(const FieldDescription& field, const std::string& path, const std::string& text)
{
    const auto named = numberOfText(field, text);
    const auto counted = decimalOrHex(text);
    if (named && counted && *named != *counted) {
        refuseTwofold(field, path, text, *named);
    }
    if (named) {
        return *named;
    }
    if (counted) {
        return inRange(field, path, *counted);
    }
    refuseText(field, path, text);
}

std::int64_t integerOfJson(const FieldDescription& field, const std::string& path, const Value& value)
{
    if (value.is_string() && !field.texts.empty()) {
        const auto text = value.get<std::string>();
        if (const auto named = numberOfText(field, text)) {
            return *named;
        }
        refuseText(field, path, text);
    }
    if (value.is_number_unsigned() && value.get<std::uint64_t>() > static_cast<std::uint64_t>(INT64_MAX)) {
        refuseValue(field, path, value);
    }
    if (value.is_number_integer()) {
        return inRange(field, path, value.get<std::int64_t>());
    }
    constexpr double limit = 9007199254740992.0; // 2^53: up to here doubles hold every integer
    const double number = value.is_number_float() ? value.get<double>() : NAN;
    if (std::trunc(number) != number || std::abs(number) > limit) { // also refuses NAN
        refuseValue(field, path, value);
    }
    return inRange(field, path, static_cast<std::int64_t>(number));
}

double realOfText(const FieldDescription& field, const std::string& path, const std::string& text)
{
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(number)) {
        refuse(field, path, inQuotes(text));
    }
    return number;
}

Value checkedArray(const FieldDescription& field, const std::string& path, const Value& value)
{
    if (!value.is_array()) {
        refuseValue(field, path, value);
    }
    if (field.element.empty()) {
        return value;
    }
    Value checked = Value::array();
    for (std::size_t index = 0; index < value.size(); ++index) {
        checked.push_back(
            checkedValue(field.element.front(), path + "[" + std::to_string(index) + "]", value[index]));
    }
    return checked;
}

std::string integerText(const FieldDescription& field)
{
    if (field.texts.empty()) {
        return "an integer" + (hasRangeOfItsOwn(field) ? rangeWords(field) : "");
    }
    std::vector<std::string> rows;
    for (const EnumText& row : field.texts) {
        rows.push_back(inQuotes(row.text) + " (" + std::to_string(row.number) + ")");
    }
    return "one of " + alternatives(rows);
}

} // namespace

Value valueOfText(const FieldDescription& field, const std::string& path, const std::string& text)
{
    switch (field.type) {
    case FieldType::Boolean:
        return flagOfText(field, path, text);
    case FieldType::Integer:
        return integerOfText(field, path, text);
    case FieldType::Double:
        return realOfText(field, path, text);
    case FieldType::String:
        return text;
    case FieldType::Array:
    case FieldType::Struct:
    case FieldType::Other:
        break;
    }
    return checkedValue(field, path, parseJson(path, text));
}

Value checkedValue(const FieldDescription& field, const std::string& path, const Value& value)
{
    switch (field.type) {
    case FieldType::Boolean:
        if (!value.is_boolean()) {
            refuseValue(field, path, value);
        }
        return value;
    case FieldType::Integer:
        return integerOfJson(field, path, value);
    case FieldType::Double:
        if (!value.is_number()) {
            refuseValue(field, path, value);
        }
        return value;
    case FieldType::String:
        if (!value.is_string()) {
            refuseValue(field, path, value);
        }
        return value;
    case FieldType::Array:
        return checkedArray(field, path, value);
    case FieldType::Struct:
        if (!value.is_object()) {
            refuseValue(field, path, value);
        }
        return checkedMembers(field.fields, path, path, value);
    case FieldType::Other:
        break;
    }
    return value;
}

Value checkedMembers(const std::vector<FieldDescription>& fields, const std::string& owner,
                     const std::string& path, const Value& members)
{
    Value checked = Value::object();
    for (const auto& [name, value] : members.items()) {
        const FieldDescription* const field = findField(fields, name);
        if (field == nullptr) {
            refuseUnknownField(fields, owner, name);
        }
        if (!value.is_null()) {
            checked[name] = checkedValue(*field, memberPath(path, name), value);
        }
    }
    for (const FieldDescription& field : fields) {
        if (field.isRequired && !checked.contains(field.name)) {
            throw usageFailure(owner + " needs " + memberPath(path, field.name) + ", it takes " +
                               acceptedText(field));
        }
    }
    return checked;
}

std::string acceptedText(const FieldDescription& field)
{
    switch (field.type) {
    case FieldType::Boolean:
        return "true, false, on, off, 1 or 0";
    case FieldType::Integer:
        return integerText(field);
    case FieldType::Double:
        return "a number";
    case FieldType::String:
        return field.form.empty() ? "a text" : "a text like " + inQuotes(field.form);
    case FieldType::Array:
        return field.element.empty() ? "a list, as JSON"
                                     : "a list, as JSON, of " + acceptedText(field.element.front());
    case FieldType::Struct:
        return "a record, as JSON, of " + commaList(namesOf(field.fields));
    case FieldType::Other:
        break;
    }
    return "a value, as JSON";
}

std::string memberPath(const std::string& path, const std::string& name)
{
    return path.empty() ? name : path + "." + name;
}

void refuseUnknownField(const std::vector<FieldDescription>& fields, const std::string& owner,
                        const std::string& name)
{
    const std::vector<std::string> names = namesOf(fields);
    const std::string hint = didYouMean(name, names);
    const std::string all = names.empty() ? ", it has none" : ", it has " + commaList(names);
    throw usageFailure(owner + " has no field \"" + name + '"' + (hint.empty() ? all : hint));
}

Value parseJson(const std::string& what, const std::string& text)
{
    try {
        return Value::parse(text);
    } catch (const Value::parse_error& error) {
        // The library's own text quotes what was given, which may be secret.
        throw usageFailure(what + " is not JSON: wrong at character " + std::to_string(error.byte));
    }
}

} // namespace zyr_ctl
