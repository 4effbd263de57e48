#include "Reference.h"

#include "BaseResponse.h"
#include "CommandEntry.h"
#include "Conversion.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace zyr_registration
{

namespace
{

std::int32_t faultCodeOf(const FaultNote& fault)
{
    return zyr_top_api::BaseResponse(fault.result, {}).faultCode;
}

Value describeFields(std::span<const Field> fields, std::uint32_t numberOfChannels);

void describeNumber(const ValueType& type, const FieldNotes& notes, std::uint32_t numberOfChannels,
                    Value& shown)
{
    if (type.kind != Kind::Integer) {
        return;
    }
    const Range range = acceptedRange(type, notes, numberOfChannels);
    shown["minimum"] = range.minimum;
    shown["maximum"] = range.maximum;
    if (type.isChannel || notes.isChannel) {
        shown["isChannel"] = true;
    }
    if (type.texts == nullptr) {
        return;
    }
    shown["texts"] = Value::array();
    for (const EnumText& row : type.texts()) {
        shown["texts"].push_back({{"number", row.number}, {"text", std::string(row.text)}});
    }
}

void describeType(const ValueType& type, const FieldNotes& notes, std::uint32_t numberOfChannels,
                  Value& shown)
{
    if (type.kind == Kind::Optional) {
        return describeType(*type.element, notes, numberOfChannels, shown);
    }
    shown["type"] = std::string(kindName(type));
    describeNumber(type, notes, numberOfChannels, shown);
    if (!type.form.empty()) {
        shown["form"] = std::string(type.form);
    }
    if (type.kind == Kind::Struct) {
        shown["fields"] = describeFields(type.fields, numberOfChannels);
    }
    if (type.kind == Kind::Array) {
        Value element = Value::object();
        describeType(*type.element, notes, numberOfChannels, element);
        shown["element"] = std::move(element);
    }
}

Value describeField(const Field& field, std::uint32_t numberOfChannels)
{
    Value shown = Value::object();
    shown["name"] = std::string(field.name);
    describeType(*field.type, field.notes, numberOfChannels, shown);
    if (!field.notes.unit.empty()) {
        shown["unit"] = std::string(field.notes.unit);
    }
    shown["help"] = std::string(field.notes.help);
    shown["required"] = field.isRequired();
    if (field.notes.isSecret) {
        shown["isSecret"] = true;
    }
    return shown;
}

Value describeFields(std::span<const Field> fields, std::uint32_t numberOfChannels)
{
    Value shown = Value::array();
    for (const Field& field : fields) {
        shown.push_back(describeField(field, numberOfChannels));
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

// Whether a field of a response may be missing from an answer.
bool mayBeAbsent(const Field& field)
{
    return field.type->kind == Kind::Optional;
}

std::string presenceText(const Field& field)
{
    if (field.isRequired()) {
        return "yes";
    }
    return field.notes.presence == Presence::Defaulted ? "no, has a default" : "no";
}

std::string typeText(const Field& field, std::uint32_t numberOfChannels)
{
    const ValueType& type = field.valueType();
    return type.kind == Kind::Array
               ? "an array, each element " + acceptedText(*type.element, field.notes, numberOfChannels)
               : acceptedText(type, field.notes, numberOfChannels);
}

void writeFieldLines(std::string& text, std::span<const Field> fields, bool isRequest,
                     std::uint32_t numberOfChannels)
{
    if (!fields.empty()) {
        text += isRequest ? "Request:\n" : "Response:\n";
    }
    for (const Field& field : fields) {
        const bool isOptional = isRequest ? !field.isRequired() : mayBeAbsent(field);
        text += "  " + std::string(field.name) + (isOptional ? " (may be left out): " : ": ") +
                std::string(field.notes.help) + "; " + typeText(field, numberOfChannels) +
                (field.notes.unit.empty() ? "" : ", in " + std::string(field.notes.unit)) + "\n";
    }
}

void writeFieldRows(std::string& text, const std::string& path, std::span<const Field> fields, bool isRequest)
{
    for (const Field& field : fields) {
        const std::string name = path + std::string(field.name);
        const std::string absence = !isRequest && mayBeAbsent(field) ? ", or absent" : "";
        text.append("| `").append(name).append("` | ");
        text.append(escaped(typeText(field, 0))).append(absence).append(" | ");
        text.append(escaped(field.notes.unit)).append(" | ");
        text.append(isRequest ? presenceText(field) + " | " : "");
        text.append(escaped(field.notes.help)).append(" |\n");
        const ValueType& type = field.valueType();
        const bool isArray = type.kind == Kind::Array;
        writeFieldRows(text, name + (isArray ? "[]." : "."), isArray ? type.element->fields : type.fields,
                       isRequest);
    }
}

void writeFields(std::string& text, std::string_view title, std::span<const Field> fields, bool isRequest)
{
    if (fields.empty()) {
        text += std::string(title) + ": no fields.\n\n";
        return;
    }
    text += std::string(title) + ":\n\n";
    text += isRequest ? "| Field | Takes | Unit | Required | Meaning |\n|---|---|---|---|---|\n"
                      : "| Field | Holds | Unit | Meaning |\n|---|---|---|---|\n";
    writeFieldRows(text, {}, fields, isRequest);
    text += '\n';
}

void writeFaults(std::string& text, std::span<const FaultNote> faults)
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

void writeMethod(std::string& text, const MethodNotes& method)
{
    text += "## " + std::string(method.name) + "\n\n" + escaped(method.help) + "\n\n";
    if (method.isTest) {
        text += "Refused while the test family is closed.\n\n";
    }
    if (method.isLongPoll) {
        text += "Blocks until there is something to report.\n\n";
    }
    if (method.disturbsTraffic) {
        text += "Can disturb traffic.\n\n";
    }
    writeFields(text, "Request", method.request, true);
    writeFields(text, "Response", method.response, false);
    writeFaults(text, method.faults);
}

} // namespace

Value describe(const MethodNotes& method, std::uint32_t numberOfChannels)
{
    Value shown = Value::object();
    shown["name"] = std::string(method.name);
    shown["help"] = std::string(method.help);
    shown["test"] = method.isTest;
    shown["longPoll"] = method.isLongPoll;
    shown["disturbsTraffic"] = method.disturbsTraffic;
    shown["request"] = describeFields(method.request, numberOfChannels);
    shown["response"] = describeFields(method.response, numberOfChannels);
    shown["faults"] = Value::array();
    for (const FaultNote& fault : method.faults) {
        shown["faults"].push_back(describeFault(fault));
    }
    return shown;
}

std::string helpText(const MethodNotes& method, std::uint32_t numberOfChannels)
{
    std::string text = std::string(method.help) + "\n";
    if (method.isTest) {
        text += "Refused while the test family is closed.\n";
    }
    if (method.isLongPoll) {
        text += "Blocks until there is something to report.\n";
    }
    if (method.disturbsTraffic) {
        text += "Can disturb traffic.\n";
    }
    writeFieldLines(text, method.request, true, numberOfChannels);
    writeFieldLines(text, method.response, false, numberOfChannels);
    if (!method.faults.empty()) {
        text += "Faults:\n";
    }
    for (const FaultNote& fault : method.faults) {
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
        "number; a request may give the text instead.\n\n";
    for (const CommandEntry& command : allCommands()) {
        writeMethod(text, command.notes);
    }
    text.pop_back(); // the last blank line
    return text;
}

} // namespace zyr_registration
