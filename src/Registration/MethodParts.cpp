#include "MethodParts.h"

#include "BaseResponse.h"
#include "Conversion.h"
#include "Reference.h"

#include <algorithm>

namespace zyr_registration
{

namespace
{

// What a method of the test family answers while the family is closed.
constexpr FaultNote kFamilyClosed{eTI_E_OPERATION_NOT_ALLOWED, "Error: Command not available",
                                  "The test family is closed."};

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
        return std::string(texts().rows.front().text);
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

std::string_view unitOf(const Field& field, std::string_view holdersUnit)
{
    const std::string_view unit = field.notes.unit == kUnitOfHolder ? holdersUnit : field.notes.unit;
    return unit == kNoUnit ? std::string_view() : unit;
}

Value defaultOf(const Field& field, const void* defaults)
{
    Value members = valueOf({&field, 1}, defaults);
    return members.contains(field.name) ? members[std::string(field.name)] : Value();
}

Value exampleOf(const Field& field, std::uint32_t numberOfChannels)
{
    return exampleOf(*field.type, field.notes, numberOfChannels);
}

Value exampleRequest(const MethodNotes& method, std::uint32_t numberOfChannels)
{
    return exampleOf(method.request, numberOfChannels);
}

std::shared_ptr<void> defaultRequest(const MethodNotes& method)
{
    return method.makeRequest == nullptr ? nullptr : method.makeRequest();
}

std::string fullHelp(const Field& field)
{
    std::string text(field.help);
    for (const EnumText& row : field.notes.noValues) {
        text += "; " + std::to_string(row.number) + ": " + std::string(row.text);
    }
    if (!field.notes.neededFor.empty()) {
        text += "; needed for " + std::string(field.notes.neededFor);
    }
    return text + (field.notes.isSecret ? "; secret" : "");
}

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

} // namespace zyr_registration
