#include "Reference.h"

#include "Conversion.h"
#include "MethodParts.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cinttypes>
#include <cstdio>
#include <memory>
#include <utility>
#include <vector>

namespace zyr_registration
{

namespace
{

Value describeFields(const FieldList& list);

Value describeRows(std::span<const EnumText> rows)
{
    Value shown = Value::array();
    for (const EnumText& row : rows) {
        shown.push_back({{"number", row.number}, {"text", std::string(row.text)}});
    }
    return shown;
}

void describeName(const Vocabulary& vocabulary, Value& shown)
{
    if (!vocabulary.name.empty()) {
        shown["vocabulary"] = std::string(vocabulary.name);
    }
}

void describeNumber(const ValueType& type, const FieldNotes& notes, std::uint32_t numberOfChannels,
                    Value& shown)
{
    const Range range = acceptedRange(type, notes, numberOfChannels);
    shown["minimum"] = range.minimum;
    shown["maximum"] = range.maximum;
    if (type.isChannel || notes.isChannel) {
        shown["isChannel"] = true;
    }
    if (const Texts texts = textsOf(type, notes)) {
        describeName(texts(), shown);
        shown["texts"] = describeRows(texts().rows);
    }
}

void describeText(const ValueType& type, const FieldNotes& notes, Value& shown)
{
    if (!type.form.empty()) {
        shown["form"] = std::string(type.form);
    }
    if (notes.texts != nullptr) {
        describeName(notes.texts(), shown);
        shown["values"] = Value::array();
        for (const EnumText& row : notes.texts().rows) {
            shown["values"].push_back(std::string(row.text));
        }
    }
}

// A type, as the notes of its field narrow it.
// @param list  the fields among which it stands; of a struct, `defaults` is a record of its own
void describeType(const ValueType& type, const Field& field, const FieldList& list, const void* defaults,
                  Value& shown)
{
    if (type.kind == Kind::Optional) {
        return describeType(*type.element, field, list, nullptr, shown);
    }
    shown["type"] = std::string(kindName(type));
    if (type.kind == Kind::Integer) {
        describeNumber(type, field.notes, list.numberOfChannels, shown);
    } else if (type.kind == Kind::String) {
        describeText(type, field.notes, shown);
    } else if (type.kind == Kind::Struct) {
        const std::shared_ptr<void> made = defaults == nullptr ? type.make() : nullptr;
        shown["fields"] = describeFields({.fields = type.fields,
                                          .isRequest = list.isRequest,
                                          .numberOfChannels = list.numberOfChannels,
                                          .defaults = defaults == nullptr ? made.get() : defaults,
                                          .holdersUnit = unitOf(field, list.holdersUnit)});
    } else if (type.kind == Kind::Array) {
        Value element = Value::object();
        describeType(*type.element, field, list, nullptr, element);
        shown["element"] = std::move(element);
    }
}

void describeRequestField(const Field& field, const FieldList& list, Value& shown)
{
    shown["required"] = field.isRequired();
    if (field.notes.hasDefault && list.defaults != nullptr) {
        shown["default"] = defaultOf(field, list.defaults);
    }
    if (field.isRequired() || !field.notes.example.empty()) {
        shown["example"] = exampleOf(field, list.numberOfChannels);
    }
    if (field.notes.changes) {
        shown["changes"] = true;
    }
}

Value describeField(const Field& field, const FieldList& list)
{
    Value shown = Value::object();
    shown["name"] = std::string(field.name);
    const void* const defaults =
        list.defaults == nullptr ? nullptr : field.address(const_cast<void*>(list.defaults));
    describeType(*field.type, field, list, defaults, shown);
    if (const std::string_view unit = unitOf(field, list.holdersUnit); !unit.empty()) {
        shown["unit"] = std::string(unit);
    }
    if (!field.notes.noValues.empty()) {
        shown["noValues"] = describeRows(field.notes.noValues);
    }
    shown["help"] = std::string(field.help);
    if (list.isRequest) {
        describeRequestField(field, list, shown);
    } else {
        shown["required"] = field.type->kind != Kind::Optional;
    }
    if (field.notes.isSecret) {
        shown["isSecret"] = true;
    }
    return shown;
}

Value describeFields(const FieldList& list)
{
    Value shown = Value::array();
    for (const Field& field : list.fields) {
        shown.push_back(describeField(field, list));
    }
    return shown;
}

Value describeFault(const FaultNote& fault)
{
    return {{"result", std::string(zyr_top_api::etiResultToString(fault.result))},
            {"faultCode", faultCodeOf(fault)},
            {"text", std::string(fault.text)},
            {"meaning", std::string(fault.meaning)}};
}

std::string typeText(const Field& field, std::uint32_t numberOfChannels)
{
    const ValueType& type = field.valueType();
    return type.kind == Kind::Array
               ? "an array, each element " + acceptedText(*type.element, field.notes, numberOfChannels)
               : acceptedText(type, field.notes, numberOfChannels);
}

void writeFieldLines(std::string& text, const FieldList& list)
{
    if (!list.fields.empty()) {
        text += list.isRequest ? "Request:\n" : "Response:\n";
    }
    for (const Field& field : list.fields) {
        const bool isOptional = list.isRequest ? !field.isRequired() : field.type->kind == Kind::Optional;
        const std::string_view unit = unitOf(field, {});
        text += "  " + std::string(field.name) + (isOptional ? " (may be left out): " : ": ") +
                fullHelp(field) + "; " + typeText(field, list.numberOfChannels) +
                (unit.empty() ? "" : ", in " + std::string(unit)) + "\n";
    }
}

} // namespace

Value describe(const MethodNotes& method, std::uint32_t numberOfChannels)
{
    const auto defaults = defaultRequest(method);
    Value shown = Value::object();
    shown["name"] = std::string(method.name);
    shown["help"] = std::string(method.help);
    shown["group"] = std::string(groupName(method.group));
    shown["test"] = method.isTest;
    shown["longPoll"] = method.isLongPoll;
    shown["readOnly"] = method.effect == Effect::Reads;
    shown["disturbsTraffic"] = method.effect == Effect::DisturbsTraffic;
    if (!method.isLongPoll) {
        shown["longest_ms"] = method.longest.count();
    }
    if (!method.needs.options.empty() || !method.needs.before.empty()) {
        shown["needs"] = {{"options", std::string(method.needs.options)},
                          {"before", std::string(method.needs.before)}};
    }
    shown["request"] = describeFields({.fields = method.request,
                                       .isRequest = true,
                                       .numberOfChannels = numberOfChannels,
                                       .defaults = defaults.get()});
    shown["response"] =
        describeFields({.fields = method.response, .isRequest = false, .numberOfChannels = numberOfChannels});
    shown["faults"] = Value::array();
    for (const FaultNote& fault : faultsOf(method)) {
        shown["faults"].push_back(describeFault(fault));
    }
    return shown;
}

std::string hashOf(const Value& descriptions)
{
    std::uint64_t hash = 0xCBF29CE484222325; // FNV-1a
    for (const char c : descriptions.dump()) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    }
    std::array<char, 17> digits{};
    std::snprintf(digits.data(), digits.size(), "%016" PRIx64, hash);
    return digits.data();
}

std::string helpText(const MethodNotes& method, std::uint32_t numberOfChannels)
{
    std::string text = std::string(method.help) + "\n" + methodText(method) + "\n";
    writeFieldLines(text,
                    {.fields = method.request, .isRequest = true, .numberOfChannels = numberOfChannels});
    writeFieldLines(text,
                    {.fields = method.response, .isRequest = false, .numberOfChannels = numberOfChannels});
    const std::vector<FaultNote> faults = faultsOf(method);
    text += faults.empty() ? "" : "Faults:\n";
    for (const FaultNote& fault : faults) {
        text += "  " + std::to_string(faultCodeOf(fault)) + " \"" + std::string(fault.text) +
                "\": " + std::string(fault.meaning) + "\n";
    }
    return text;
}

} // namespace zyr_registration
