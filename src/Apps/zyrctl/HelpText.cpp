#include "HelpText.h"

#include "FieldValue.h"
#include "Text.h"

#include <algorithm>
#include <fnmatch.h>

namespace zyr_ctl
{

namespace
{

using Rows = std::vector<std::vector<std::string>>;

std::string rangeOf(const FieldDescription& field)
{
    const bool isLimited = field.minimum != INT64_MIN || field.maximum != INT64_MAX;
    return isLimited ? " " + std::to_string(field.minimum) + ".." + std::to_string(field.maximum) : "";
}

std::string typeText(const FieldDescription& field)
{
    switch (field.type) {
    case FieldType::Boolean:
        return "boolean";
    case FieldType::Integer:
        return field.texts.empty() ? "integer" + rangeOf(field) : "enumeration";
    case FieldType::Double:
        return "number";
    case FieldType::String:
        return field.form.empty() ? "text" : "text like " + field.form;
    case FieldType::Array:
        return field.element.empty() ? "list" : "list of " + typeText(field.element.front());
    case FieldType::Struct:
        return "record";
    case FieldType::Other:
        break;
    }
    return "value";
}

// The type behind lists, which is the one that has texts and fields.
const FieldDescription& innermost(const FieldDescription& field)
{
    return field.element.empty() ? field : innermost(field.element.front());
}

std::string noteText(const FieldDescription& field)
{
    std::string note = field.help;
    std::vector<std::string> texts;
    for (const EnumText& row : innermost(field).texts) {
        texts.push_back(row.text + " (" + std::to_string(row.number) + ")");
    }
    if (!texts.empty()) {
        note += (note.empty() ? "" : ": ") + commaList(texts);
    }
    return note;
}

void addFieldRows(Rows& rows, const std::string& path, const std::vector<FieldDescription>& fields,
                  bool isRequest)
{
    for (const FieldDescription& field : fields) {
        const std::string name = memberPath(path, field.name);
        const std::string optional = isRequest && !field.isRequired ? "optional" : "";
        rows.push_back({name, typeText(field), field.unit, optional, noteText(field)});
        addFieldRows(rows, name + (field.type == FieldType::Array ? "[]" : ""), innermost(field).fields,
                     isRequest);
    }
}

// Rows in columns, without headings; a column that is empty in all rows is left out.
void addColumns(std::vector<std::string>& lines, const Rows& rows)
{
    const std::size_t first = lines.size();
    lines.resize(first + rows.size(), " ");
    for (std::size_t column = 0; !rows.empty() && column < rows.front().size(); ++column) {
        std::size_t width = 0;
        for (const auto& row : rows) {
            width = std::max(width, widthOf(printable(row[column])));
        }
        for (std::size_t index = 0; width != 0 && index < rows.size(); ++index) {
            lines[first + index] +=
                (column == 0 ? " " : "  ") + padded(printable(rows[index][column]), width);
        }
    }
    for (std::size_t index = first; index < lines.size(); ++index) {
        lines[index].erase(lines[index].find_last_not_of(' ') + 1);
    }
}

void addSection(std::vector<std::string>& lines, const std::string& title, const Rows& rows)
{
    if (!rows.empty()) {
        lines.push_back({});
        lines.push_back(title);
        addColumns(lines, rows);
    }
}

void addFields(std::vector<std::string>& lines, const std::string& title,
               const std::vector<FieldDescription>& fields, bool isRequest)
{
    Rows rows;
    addFieldRows(rows, {}, fields, isRequest);
    addSection(lines, title, rows);
}

void addNotes(std::vector<std::string>& lines, const CommandDescription& command)
{
    if (command.isTest) {
        lines.push_back("  Refused while the test family is closed.");
    }
    if (command.isLongPoll) {
        lines.push_back(
            "  Answers when there is something to report; waits without a limit unless --timeout is given.");
    }
    if (command.disturbsTraffic) {
        lines.push_back("  Can disturb traffic: asks before it runs, unless --yes is given.");
    }
}

std::string exampleValue(const FieldDescription& field)
{
    switch (field.type) {
    case FieldType::Boolean:
        return "true";
    case FieldType::Integer:
        return field.texts.empty() ? std::to_string(std::clamp<std::int64_t>(1, field.minimum, field.maximum))
                                   : field.texts.front().text;
    case FieldType::Double:
        return "1.5";
    case FieldType::String:
        return field.isSecret || field.form.empty() ? "TEXT" : field.form;
    default:
        return "JSON";
    }
}

std::string shellWord(const std::string& word)
{
    return word.find_first_of(" \"$&();<>|*?") == std::string::npos ? word : "'" + word + "'";
}

std::string example(const CommandDescription& command)
{
    std::string line = "zyrctl " + command.name;
    for (const FieldDescription& field : command.request) {
        if (field.isRequired) {
            line += " " + shellWord(field.name + "=" + exampleValue(field));
        }
    }
    return line;
}

} // namespace

std::vector<std::string> helpLines(const CommandDescription& command)
{
    std::vector<std::string> lines{printable(command.name), "  " + printable(command.help)};
    addNotes(lines, command);
    addFields(lines, "Request:", command.request, true);
    addFields(lines, "Response:", command.response, false);
    Rows faults;
    for (const FaultDescription& fault : command.faults) {
        faults.push_back({std::to_string(fault.code), fault.result, fault.text, fault.meaning});
    }
    addSection(lines, "Faults:", faults);
    addSection(lines, "Example:", {{example(command)}});
    return lines;
}

bool fitsPattern(const std::string& name, const std::string& pattern)
{
    const std::string small = lowerCase(name);
    const std::string wanted = lowerCase(pattern);
    if (wanted.find_first_of("*?") != std::string::npos) {
        return fnmatch(wanted.c_str(), small.c_str(), 0) == 0;
    }
    return small.find(wanted) != std::string::npos;
}

} // namespace zyr_ctl
