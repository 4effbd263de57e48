#include "NodeDescription.h"

#include "Failure.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zyr_ctl
{

namespace
{

constexpr std::array<std::pair<std::string_view, FieldType>, 6> kTypes{{
    {"boolean", FieldType::Boolean},
    {"int", FieldType::Integer},
    {"double", FieldType::Double},
    {"string", FieldType::String},
    {"array", FieldType::Array},
    {"struct", FieldType::Struct},
}};

FieldType typeOf(const std::string& name)
{
    const auto* const row = std::ranges::find(kTypes, name, &std::pair<std::string_view, FieldType>::first);
    return row == kTypes.end() ? FieldType::Other : row->second;
}

FieldDescription readField(const Value& description);

std::vector<FieldDescription> readFields(const Value& owner, const char* member)
{
    std::vector<FieldDescription> fields;
    for (const Value& field : owner.value(member, Value::array())) {
        fields.push_back(readField(field));
    }
    return fields;
}

FieldDescription readField(const Value& description)
{
    FieldDescription field;
    field.name = description.value("name", "");
    field.type = typeOf(description.at("type").get<std::string>());
    field.minimum = description.value("minimum", field.minimum);
    field.maximum = description.value("maximum", field.maximum);
    for (const Value& row : description.value("texts", Value::array())) {
        field.texts.push_back({row.at("number").get<std::int64_t>(), row.at("text").get<std::string>()});
    }
    field.form = description.value("form", "");
    field.unit = description.value("unit", "");
    field.help = description.value("help", "");
    field.isRequired = description.value("required", false);
    field.isSecret = description.value("isSecret", false);
    field.fields = readFields(description, "fields");
    if (description.contains("element")) {
        field.element.push_back(readField(description.at("element")));
    }
    return field;
}

std::vector<FaultDescription> readFaults(const Value& owner)
{
    std::vector<FaultDescription> faults;
    for (const Value& fault : owner.value("faults", Value::array())) {
        faults.push_back({fault.at("faultCode").get<std::int64_t>(), fault.value("result", ""),
                          fault.at("text").get<std::string>(), fault.value("meaning", "")});
    }
    return faults;
}

CommandDescription readWholeCommand(const Value& description)
{
    CommandDescription command;
    command.name = description.at("name").get<std::string>();
    command.help = description.value("help", "");
    command.group = description.value("group", "");
    command.isTest = description.value("test", false);
    command.isLongPoll = description.value("longPoll", false);
    command.disturbsTraffic = description.value("disturbsTraffic", false);
    command.request = readFields(description, "request");
    command.response = readFields(description, "response");
    command.faults = readFaults(description);
    command.original = description;
    return command;
}

} // namespace

CommandDescription readCommand(const Value& description)
{
    try {
        return readWholeCommand(description);
    } catch (const Value::exception& error) {
        throw Failure(ExitStatus::Protocol,
                      std::string("the node describes a command in a way that this program does not know: ") +
                          error.what());
    }
}

std::vector<CommandDescription> readCommands(const Value& descriptions)
{
    if (!descriptions.is_object() || !descriptions.value("methods", Value()).is_array()) {
        throw Failure(ExitStatus::Protocol, "the node's description of its commands has no array of methods");
    }
    std::vector<CommandDescription> commands;
    std::ranges::transform(descriptions.at("methods"), std::back_inserter(commands), &readCommand);
    return commands;
}

const FieldDescription* findField(const std::vector<FieldDescription>& fields, std::string_view name)
{
    const auto field = std::ranges::find(fields, name, &FieldDescription::name);
    return field == fields.end() ? nullptr : &*field;
}

std::vector<std::string> namesOf(const std::vector<FieldDescription>& fields)
{
    std::vector<std::string> names;
    std::ranges::transform(fields, std::back_inserter(names), &FieldDescription::name);
    return names;
}

} // namespace zyr_ctl
