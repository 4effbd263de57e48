#include "HelpText.h"

#include "FieldValue.h"
#include "Measure.h"
#include "Text.h"

#include <algorithm>

#include <fnmatch.h>

namespace zyr_ctl
{

namespace
{

using Rows = std::vector<std::vector<std::string>>;

constexpr std::size_t kLineWidth = 110;
constexpr std::size_t kLeastRoom = 40; // for the last column, however wide the others are

std::string rangeOf(const FieldDescription& field)
{
    return hasRangeOfItsOwn(field)
               ? " " + std::to_string(field.minimum) + ".." + std::to_string(field.maximum)
               : "";
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

// The text in pieces that a terminal has room for, cut at blanks.
std::vector<std::string> wrapped(const std::string& text, std::size_t width)
{
    std::vector<std::string> pieces(1);
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find(' ', start), text.size());
        const std::string word = text.substr(start, end - start);
        if (!pieces.back().empty() && widthOf(pieces.back()) + 1 + widthOf(word) > width) {
            pieces.emplace_back();
        }
        pieces.back() += pieces.back().empty() ? "" : " ";
        pieces.back() += word;
        start = end + 1;
    }
    return pieces;
}

std::vector<std::size_t> widthsOf(const Rows& rows)
{
    std::vector<std::size_t> widths(rows.front().size());
    for (const auto& row : rows) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            widths[column] = std::max(widths[column], widthOf(printable(row[column])));
        }
    }
    return widths;
}

std::string withoutEnd(const std::string& line)
{
    return line.substr(0, line.find_last_not_of(' ') + 1);
}

// Rows in columns, without headings; a column that is empty in all rows is left out, the last one is wrapped,
// below the others if they leave it no room.
void addColumns(std::vector<std::string>& lines, const Rows& rows, std::size_t lineWidth)
{
    constexpr std::size_t gap = 2;
    constexpr std::size_t indentBelow = 6;
    const std::vector<std::size_t> widths = widthsOf(rows);
    for (const auto& row : rows) {
        std::string front;
        for (std::size_t column = 0; column + 1 < row.size(); ++column) {
            front += widths[column] == 0 ? "" : "  " + padded(printable(row[column]), widths[column]);
        }
        if (widthOf(front) + gap + kLeastRoom > lineWidth) {
            lines.push_back(withoutEnd(front));
            front.assign(indentBelow - gap, ' ');
        }
        const std::size_t room = std::max(lineWidth - widthOf(front) - gap, kLeastRoom);
        for (const std::string& piece : wrapped(printable(row.back()), room)) {
            const std::size_t width = widthOf(front);
            front.append(gap, ' ').append(piece);
            if (const std::string line = withoutEnd(front); !line.empty()) {
                lines.push_back(line);
            }
            front.assign(width, ' ');
        }
    }
}

void addSection(std::vector<std::string>& lines, const std::string& title, const Rows& rows,
                std::size_t lineWidth)
{
    if (!rows.empty()) {
        lines.emplace_back();
        lines.push_back(title);
        addColumns(lines, rows, lineWidth);
    }
}

Rows fieldRows(const std::vector<FieldDescription>& fields, bool isRequest)
{
    Rows rows;
    addFieldRows(rows, {}, fields, isRequest);
    return rows;
}

void addNotes(std::vector<std::string>& lines, const CommandDescription& command)
{
    if (command.isTest) {
        lines.emplace_back("  Refused while the test family is closed; zyrnode --enable-ti opens it.");
    }
    if (command.isLongPoll) {
        lines.emplace_back(
            "  Answers when there is something to report; waits without a limit unless --timeout is given.");
    }
    if (command.longest > std::chrono::seconds(1)) {
        lines.push_back("  Can take up to " + measured(command.longest.count(), "ms") + ".");
    }
    if (command.disturbsTraffic) {
        lines.emplace_back("  Can disturb traffic: asks before it runs, unless --yes is given.");
    }
}

// For a node that gives no example.
std::string likelyValue(const FieldDescription& field)
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

// Some texts look like other numbers; the number itself is never taken for another.
std::string unmistakable(const FieldDescription& field, const std::string& text)
{
    const bool isDigits = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
    const auto row = std::ranges::find(field.texts, text, &EnumText::text);
    return isDigits && row != field.texts.end() ? std::to_string(row->number) : text;
}

std::string exampleValue(const FieldDescription& field)
{
    if (!field.example) {
        return likelyValue(field);
    }
    return field.example->is_string() ? unmistakable(field, field.example->get<std::string>())
                                      : compactJson(*field.example);
}

// The word as a shell takes it back.
std::string shellWord(const std::string& word)
{
    constexpr std::string_view harmless =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-+.,:=/@%";
    if (word.find_first_not_of(harmless) == std::string::npos) {
        return word;
    }
    std::string quoted = "'";
    for (const char c : word) {
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return quoted + "'";
}

void addExampleWords(std::string& line, const std::string& path, const std::vector<FieldDescription>& fields)
{
    for (const FieldDescription& field : fields) {
        const std::string name = memberPath(path, field.name);
        if (field.type == FieldType::Struct && field.example) {
            addExampleWords(line, name, field.fields);
        } else if (field.isRequired || field.example) {
            line += " " + shellWord(name + "=" + exampleValue(field));
        }
    }
}

void addExample(std::vector<std::string>& lines, const CommandDescription& command)
{
    std::string options = command.isTest ? " --enable-ti" : "";
    options += command.nodeOptions.empty() ? "" : " " + command.nodeOptions;
    const std::string node = options.empty() ? "" : ", on a node of zyrnode" + options;
    const std::string before = command.before.empty() ? "" : ", behind that of " + command.before;
    std::string line = "  zyrctl " + command.name;
    addExampleWords(line, {}, command.request);
    lines.emplace_back();
    lines.push_back(printable("Example" + node + before + ":"));
    lines.push_back(printable(line));
}

} // namespace

std::vector<std::string> helpLines(const CommandDescription& command, std::size_t room)
{
    const std::size_t lineWidth = room == 0 ? kLineWidth : std::min(room, kLineWidth);
    std::vector<std::string> lines{printable(command.name), "  " + printable(command.help)};
    addNotes(lines, command);
    addSection(lines, "Request:", fieldRows(command.request, true), lineWidth);
    addSection(lines, "Response:", fieldRows(command.response, false), lineWidth);
    Rows faults;
    for (const FaultDescription& fault : command.faults) {
        faults.push_back({std::to_string(fault.code), fault.result, fault.text, fault.meaning});
    }
    addSection(lines, "Faults:", faults, lineWidth);
    addExample(lines, command);
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
