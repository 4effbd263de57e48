#include "NodeDescription.h"

#include "Failure.h"
#include "Text.h"

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

using Range = std::pair<std::int64_t, std::int64_t>;

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

std::vector<EnumText> readRows(const Value& owner, const char* member)
{
    std::vector<EnumText> rows;
    for (const Value& row : owner.value(member, Value::array())) {
        rows.push_back({row.at("number").get<std::int64_t>(), row.at("text").get<std::string>()});
    }
    return rows;
}

FieldDescription readField(const Value& description)
{
    FieldDescription field;
    field.name = description.value("name", "");
    field.type = typeOf(description.at("type").get<std::string>());
    field.minimum = description.value("minimum", field.minimum);
    field.maximum = description.value("maximum", field.maximum);
    if (field.minimum > field.maximum) {
        throw Failure(ExitStatus::Protocol,
                      "the node describes a field that no number fits: " + inQuotes(printable(field.name)));
    }
    field.texts = readRows(description, "texts");
    field.form = description.value("form", "");
    field.values = description.value("values", std::vector<std::string>());
    field.unit = description.value("unit", "");
    field.noValues = readRows(description, "noValues");
    field.help = description.value("help", "");
    field.isRequired = description.value("required", false);
    if (description.contains("example")) {
        field.example = description.at("example");
    }
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
    const Value needs = description.value("needs", Value::object());
    command.nodeOptions = needs.value("options", "");
    command.before = needs.value("before", "");
    command.longest = std::chrono::milliseconds(description.value("longest_ms", std::int64_t{0}));
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

bool hasRangeOfItsOwn(const FieldDescription& field)
{
    constexpr std::array<Range, 8> ranges{{
        {INT8_MIN, INT8_MAX},
        {INT16_MIN, INT16_MAX},
        {INT32_MIN, INT32_MAX},
        {INT64_MIN, INT64_MAX},
        {0, UINT8_MAX},
        {0, UINT16_MAX},
        {0, UINT32_MAX},
        {0, INT64_MAX},
    }};
    return std::ranges::find(ranges, Range{field.minimum, field.maximum}) == ranges.end();
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
