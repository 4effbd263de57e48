#include "Reference.h"

#include "BaseResponse.h"
#include "CommandEntry.h"
#include "Conversion.h"

#include <nlohmann/json.hpp>

#include <algorithm>
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

// What a method of the test family answers while the family is closed.
constexpr FaultNote kFamilyClosed{eTI_E_OPERATION_NOT_ALLOWED, "Error: Command not available",
                                  "The test family is closed."};

std::vector<FaultNote> faultsOf(const MethodNotes& method)
{
    std::vector<FaultNote> faults(method.faults.begin(), method.faults.end());
    if (method.isTest) {
        faults.push_back(kFamilyClosed);
    }
    return faults;
}

std::int32_t faultCodeOf(const FaultNote& fault)
{
    return zyr_top_api::BaseResponse(fault.result, {}).faultCode;
}

// The fields of one record, and what is to be known to describe them.
struct FieldList
{
    std::span<const Field> fields;
    bool isRequest;
    std::uint32_t numberOfChannels;
    const void* defaults = nullptr;    // a record with its defaults; null if that doesn't matter
    std::string_view holdersUnit = {}; // of the field that holds the record
};

std::string_view unitOf(const Field& field, std::string_view holdersUnit)
{
    const std::string_view unit = field.notes.unit == kUnitOfHolder ? holdersUnit : field.notes.unit;
    return unit == kNoUnit ? std::string_view() : unit;
}

// What the record's own default of a field is. The address is only read; the one accessor serves both ways.
Value defaultOf(const Field& field, const void* defaults)
{
    Value members = Value::object();
    writeRecord({&field, 1}, defaults, members);
    return members.contains(field.name) ? members[std::string(field.name)] : Value();
}

Value exampleOf(const ValueType& type, const FieldNotes& notes, std::uint32_t numberOfChannels);

Value exampleOf(std::span<const Field> fields, std::uint32_t numberOfChannels)
{
    Value example = Value::object();
    for (const Field& field : fields) {
        if (field.isRequired() || !field.notes.example.empty()) {
            example[std::string(field.name)] = exampleOf(*field.type, field.notes, numberOfChannels);
        }
    }
    return example;
}

Value exampleOf(const ValueType& type, const FieldNotes& notes, std::uint32_t numberOfChannels)
{
    if (!notes.example.empty()) {
        return type.kind == Kind::String ? Value(std::string(notes.example)) : Value::parse(notes.example);
    }
    const Texts texts = textsOf(type, notes);
    if (texts != nullptr) {
        return std::string(texts().front().text);
    }
    const Range range = acceptedRange(type, notes, numberOfChannels);
    switch (type.kind) {
    case Kind::Boolean:
        return true;
    case Kind::Integer:
        return std::clamp<std::int64_t>(1, range.minimum, range.maximum);
    case Kind::Double:
        return 1.5;
    case Kind::String:
        return type.form.empty() ? "text" : std::string(type.form);
    case Kind::Array:
        return Value::array();
    case Kind::Struct:
        return exampleOf(type.fields, numberOfChannels);
    case Kind::Optional:
        return exampleOf(*type.element, notes, numberOfChannels);
    }
    return {};
}

Value describeFields(const FieldList& list);

Value describeRows(std::span<const EnumText> rows)
{
    Value shown = Value::array();
    for (const EnumText& row : rows) {
        shown.push_back({{"number", row.number}, {"text", std::string(row.text)}});
    }
    return shown;
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
        shown["texts"] = describeRows(texts());
    }
}

void describeText(const ValueType& type, const FieldNotes& notes, Value& shown)
{
    if (!type.form.empty()) {
        shown["form"] = std::string(type.form);
    }
    if (notes.texts != nullptr) {
        shown["values"] = Value::array();
        for (const EnumText& row : notes.texts()) {
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
        shown["example"] = exampleOf(*field.type, field.notes, list.numberOfChannels);
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

// A text that Markdown shows as it is, inside a table too.
std::string escaped(std::string_view text)
{
    std::string shown;
    for (const char c : text) {
        if (std::string_view("|<>*_`\\[]").find(c) != std::string_view::npos) {
            shown += '\\';
        }
        shown += c;
    }
    return shown;
}

std::string presenceText(const Field& field, const void* defaults)
{
    if (field.isRequired()) {
        return "yes";
    }
    if (!field.notes.hasDefault || defaults == nullptr) {
        return "no";
    }
    return "no, else " + defaultOf(field, defaults).dump();
}

std::string typeText(const Field& field, std::uint32_t numberOfChannels)
{
    const ValueType& type = field.valueType();
    return type.kind == Kind::Array
               ? "an array, each element " + acceptedText(*type.element, field.notes, numberOfChannels)
               : acceptedText(type, field.notes, numberOfChannels);
}

// The help of a field, with all that has no place of its own.
std::string fullHelp(const Field& field)
{
    std::string text(field.help);
    for (const EnumText& row : field.notes.noValues) {
        text += "; " + std::to_string(row.number) + ": " + std::string(row.text);
    }
    return text + (field.notes.isSecret ? "; secret" : "");
}

std::string effectText(const MethodNotes& method)
{
    switch (method.effect) {
    case Effect::Reads:
        return "Only reads";
    case Effect::Changes:
        return "Changes the node";
    case Effect::DisturbsTraffic:
        return "Can disturb traffic";
    }
    return {};
}

std::string timeText(std::chrono::milliseconds time)
{
    return time.count() % 1000 == 0 ? std::to_string(time.count() / 1000) + " s"
                                    : std::to_string(time.count()) + " ms";
}

// What is to be known of a method as a whole.
std::string methodText(const MethodNotes& method)
{
    std::string text = "Group " + std::string(groupName(method.group)) + ". " + effectText(method);
    for (const Field& field : method.request) {
        text += field.notes.changes ? ", without " + std::string(field.name) : "";
    }
    text += ". ";
    text += method.isLongPoll ? "Blocks until there is something to report."
                              : "Answers within " + timeText(method.longest) + ".";
    return text + (method.isTest ? " Refused while the test family is closed." : "");
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

void writeFieldRows(std::string& text, const std::string& path, const FieldList& list)
{
    for (const Field& field : list.fields) {
        const std::string name = path + std::string(field.name);
        const bool mayBeAbsent = !list.isRequest && field.type->kind == Kind::Optional;
        text.append("| `").append(name).append("` | ");
        text.append(escaped(typeText(field, 0))).append(mayBeAbsent ? ", or absent | " : " | ");
        text.append(escaped(unitOf(field, list.holdersUnit))).append(" | ");
        text.append(list.isRequest ? escaped(presenceText(field, list.defaults)) + " | " : "");
        text.append(escaped(fullHelp(field))).append(" |\n");
        const bool isArray = field.valueType().kind == Kind::Array;
        const ValueType& inner = isArray ? *field.valueType().element : field.valueType();
        const std::shared_ptr<void> defaults = inner.make == nullptr ? nullptr : inner.make();
        writeFieldRows(text, name + (isArray ? "[]." : "."),
                       {.fields = inner.fields,
                        .isRequest = list.isRequest,
                        .numberOfChannels = list.numberOfChannels,
                        .defaults = defaults.get(),
                        .holdersUnit = unitOf(field, list.holdersUnit)});
    }
}

void writeFields(std::string& text, std::string_view title, const FieldList& list)
{
    if (list.fields.empty()) {
        text += std::string(title) + ": no fields.\n\n";
        return;
    }
    text += std::string(title) + ":\n\n";
    text += list.isRequest ? "| Field | Takes | Unit | Required | Meaning |\n|---|---|---|---|---|\n"
                           : "| Field | Holds | Unit | Meaning |\n|---|---|---|---|\n";
    writeFieldRows(text, {}, list);
    text += '\n';
}

void writeFaults(std::string& text, const std::vector<FaultNote>& faults)
{
    if (faults.empty()) {
        return;
    }
    text += "Faults:\n\n| Code | Result | Text | Meaning |\n|---|---|---|---|\n";
    for (const FaultNote& fault : faults) {
        text += "| " + std::to_string(faultCodeOf(fault)) + " | `" +
                std::string(zyr_top_api::etiResultToString(fault.result)) + "` | " + escaped(fault.text) +
                " | " + escaped(fault.meaning) + " |\n";
    }
    text += '\n';
}

// A method's record of its request with its defaults.
std::shared_ptr<void> defaultRequest(const MethodNotes& method)
{
    return method.makeRequest == nullptr ? nullptr : method.makeRequest();
}

void writeMethod(std::string& text, const MethodNotes& method)
{
    const auto defaults = defaultRequest(method);
    text += "## " + std::string(method.name) + "\n\n" + escaped(method.help) + "\n\n" +
            escaped(methodText(method)) + "\n\n";
    writeFields(
        text, "Request",
        {.fields = method.request, .isRequest = true, .numberOfChannels = 0, .defaults = defaults.get()});
    writeFields(text, "Response", {.fields = method.response, .isRequest = false, .numberOfChannels = 0});
    writeFaults(text, faultsOf(method));
}

} // namespace

std::string_view groupName(Group group)
{
    switch (group) {
    case Group::Catalogue:
        return "catalogue";
    case Group::Events:
        return "events";
    case Group::Loops:
        return "loops";
    case Group::Acm:
        return "acm";
    case Group::Configuration:
        return "configuration";
    case Group::Power:
        return "power";
    case Group::Lifecycle:
        return "lifecycle";
    case Group::Status:
        return "status";
    case Group::RadioUnit:
        return "radio-unit";
    case Group::Diversity:
        return "diversity";
    case Group::Timing:
        return "timing";
    case Group::XpicMimo:
        return "xpic-mimo";
    case Group::Encryption:
        return "encryption";
    case Group::TestPower:
        return "test-power";
    case Group::TestDsp:
        return "test-dsp";
    case Group::TestRf:
        return "test-rf";
    case Group::Simulation:
        return "simulation";
    }
    return {};
}

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

Value exampleRequest(const MethodNotes& method, std::uint32_t numberOfChannels)
{
    return exampleOf(method.request, numberOfChannels);
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

std::string referenceMarkdown()
{
    std::string text =
        "# Commands\n\n"
        "Generated from the command list of the node by `zyrnode --print-reference`; "
        "not to be edited by hand.\n\n"
        "Each command is an XML-RPC method with one struct parameter of the request's fields; "
        "a command without fields takes no parameter or an empty struct. The answer is a struct "
        "of `tiResult` and the response's fields, or a fault. An enumeration travels as its "
        "number; a request may give the text instead. "
        "The time within which a command answers counts from its start: dispatched commands run one at a "
        "time.\n\n";
    for (const CommandEntry& command : allCommands()) {
        writeMethod(text, command.notes);
    }
    text.pop_back(); // the last blank line
    return text;
}

} // namespace zyr_registration
