#include "Rendering.h"

#include "FieldValue.h"
#include "Measure.h"
#include "Scalars.h"
#include "Text.h"
#include "ValuePath.h"

#include <algorithm>

namespace zyr_ctl
{

namespace
{

constexpr std::size_t kIndent = 2;
const std::vector<FieldDescription> kNoFields;

using Lines = std::vector<Line>;
using Paths = std::set<std::string>;

bool isScalar(const Value& value)
{
    return !value.is_structured();
}

bool isText(const Value& value)
{
    return value.is_string() && value.get_ref<const std::string&>().find('\n') != std::string::npos;
}

bool isListOfScalars(const Value& value)
{
    return value.is_array() && std::ranges::all_of(value, isScalar);
}

// A record each of whose members has room in a cell.
bool isRow(const Value& value)
{
    const auto fitsCell = [](const Value& member) { return isScalar(member) || isListOfScalars(member); };
    return value.is_object() && std::ranges::all_of(value, fitsCell);
}

bool isTable(const Value& value)
{
    return value.is_array() && !value.empty() && std::ranges::all_of(value, isRow);
}

const std::vector<FieldDescription>& fieldsOf(const FieldDescription* field)
{
    return field == nullptr ? kNoFields : field->fields;
}

const FieldDescription* elementOf(const FieldDescription* field)
{
    return field == nullptr || field->element.empty() ? nullptr : &field->element.front();
}

CommonUnit unitOf(const FieldDescription* field)
{
    return field == nullptr ? CommonUnit() : commonUnit(field->unit);
}

std::string plainScalar(const Value& value)
{
    if (value.is_string()) {
        return printable(value.get_ref<const std::string&>());
    }
    if (value.is_number_float()) {
        return zyr_gateway::scalars::text(value.get<double>());
    }
    return value.is_null() ? "-" : compactJson(value);
}

// The text that stands for a number, if there is one.
const EnumText* textOf(const Value& value, const FieldDescription* field)
{
    if (field == nullptr || !value.is_number_integer()) {
        return nullptr;
    }
    for (const auto* rows : {&field->texts, &field->noValues}) {
        const auto row = std::ranges::find(*rows, value.get<std::int64_t>(), &EnumText::number);
        if (row != rows->end()) {
            return &*row;
        }
    }
    return nullptr;
}

// A scalar whose unit stands elsewhere.
std::string digitsOf(const Value& value, const FieldDescription* field)
{
    if (const EnumText* const row = textOf(value, field)) {
        return printable(row->text) + " (" + plainScalar(value) + ")";
    }
    const bool isMeasured = value.is_number() && field != nullptr && !field->unit.empty();
    return isMeasured ? digitsIn(unitOf(field), value) : plainScalar(value);
}

std::string listText(const Value& list, const FieldDescription* field)
{
    FieldDescription element = elementOf(field) == nullptr ? FieldDescription() : *elementOf(field);
    element.unit = field == nullptr ? "" : field->unit;
    std::vector<std::string> words;
    std::ranges::transform(list, std::back_inserter(words),
                           [&](const Value& value) { return digitsOf(value, &element); });
    return words.empty() ? "(none)" : commaList(words);
}

std::string cellText(const Value& record, const std::string& name, const FieldDescription* field)
{
    if (!record.contains(name)) {
        return "-";
    }
    const Value& value = record.at(name);
    return isScalar(value) ? digitsOf(value, field) : listText(value, field);
}

// The members of all records, in the order in which they first appear.
std::vector<std::string> columnsOf(const Value& records)
{
    std::vector<std::string> columns;
    for (const Value& record : records) {
        for (const auto& [name, value] : record.items()) {
            if (std::ranges::find(columns, name) == columns.end()) {
                columns.push_back(name);
            }
        }
    }
    return columns;
}

std::string headingOf(const std::string& name, const FieldDescription* field)
{
    const std::string unit = unitOf(field).name;
    return printable(name) + (unit.empty() ? "" : " [" + unit + "]");
}

bool isNumber(const std::string& cell)
{
    return !cell.empty() && cell.find_first_not_of("0123456789.- ") == std::string::npos;
}

// One way through an answer; the path is that of the value in hand.
class Renderer
{
  public:
    Renderer(const Paths& changed, std::size_t room) : m_changed(changed), m_room(room) {}

    void record(const Value& object, const std::vector<FieldDescription>& fields, const std::string& path,
                std::size_t indent);
    void list(const Value& values, const FieldDescription* element, const std::string& path,
              std::size_t indent);

    Lines lines;

  private:
    void add(std::size_t indent, const std::string& text, bool isChanged)
    {
        lines.push_back({std::string(indent, ' ') + text, isChanged});
    }
    void member(const std::string& name, const Value& value, const FieldDescription* field,
                const std::string& path, std::size_t indent, std::size_t width);
    bool table(const Value& records, const FieldDescription* element, const std::string& path,
               std::size_t indent);
    void goneMembers(const Value& object, const std::string& path, std::size_t indent);

    const Paths& m_changed;
    std::size_t m_room;
};

bool standsInOneLine(const Value& value)
{
    return (isScalar(value) && !isText(value)) || isListOfScalars(value);
}

void Renderer::record(const Value& object, const std::vector<FieldDescription>& fields,
                      const std::string& path, std::size_t indent)
{
    std::size_t width = 0;
    for (const auto& [name, value] : object.items()) {
        width = std::max(width, standsInOneLine(value) ? widthOf(printable(name)) : 0);
    }
    for (const auto& [name, value] : object.items()) {
        member(name, value, findField(fields, name), memberPath(path, name), indent, width);
    }
    goneMembers(object, path, indent);
}

void Renderer::member(const std::string& name, const Value& value, const FieldDescription* field,
                      const std::string& path, std::size_t indent, std::size_t width)
{
    const std::string shown = printable(name);
    if (standsInOneLine(value)) {
        add(indent, padded(shown, width) + "  " + shownValue(value, field), touches(m_changed, path));
    } else if (isText(value)) {
        add(indent, shown, false);
        for (const std::string& line : linesOf(value.get_ref<const std::string&>())) {
            add(indent + kIndent, printable(line), touches(m_changed, path));
        }
    } else if (value.is_object()) {
        add(indent, shown, m_changed.contains(path));
        record(value, fieldsOf(field), path, indent + kIndent);
    } else {
        add(indent, shown + " (" + std::to_string(value.size()) + ")", m_changed.contains(path));
        list(value, elementOf(field), path, indent + kIndent);
    }
}

void Renderer::list(const Value& values, const FieldDescription* element, const std::string& path,
                    std::size_t indent)
{
    if (isTable(values) && table(values, element, path, indent)) {
        return;
    }
    for (std::size_t index = 0; index < values.size(); ++index) {
        const Value& value = values[index];
        const std::string place = elementPath(path, index);
        if (value.is_object()) {
            add(indent, elementPath({}, index), m_changed.contains(place));
            record(value, fieldsOf(element), place, indent + kIndent);
        } else {
            const std::string text =
                isScalar(value) ? digitsOf(value, element) : printable(compactJson(value));
            add(indent, text, touches(m_changed, place));
        }
    }
}

// False if the table is wider than the room for it.
bool Renderer::table(const Value& records, const FieldDescription* element, const std::string& path,
                     std::size_t indent)
{
    std::vector<std::string> headings;
    std::vector<std::vector<std::string>> rows(records.size());
    for (const std::string& column : columnsOf(records)) {
        const FieldDescription* const field = findField(fieldsOf(element), column);
        headings.push_back(headingOf(column, field));
        for (std::size_t index = 0; index < records.size(); ++index) {
            rows[index].push_back(cellText(records[index], column, field));
        }
    }
    const std::vector<std::string> table = renderTable(headings, rows);
    const bool fits = std::ranges::all_of(
        table, [&](const std::string& line) { return m_room == 0 || indent + widthOf(line) <= m_room; });
    if (!fits) {
        return false;
    }
    add(indent, table.front(), false);
    for (std::size_t index = 0; index < rows.size(); ++index) {
        add(indent, table[index + 1], touches(m_changed, elementPath(path, index)));
    }
    return true;
}

// What has changed and is no longer there has gone.
void Renderer::goneMembers(const Value& object, const std::string& path, std::size_t indent)
{
    for (const std::string& changed : m_changed) {
        const std::string name = changed.substr(changed.find_last_of('.') + 1);
        const bool isMine = memberPath(path, name) == changed && name.find('[') == std::string::npos;
        if (isMine && !name.empty() && !object.contains(name)) {
            add(indent, printable(name) + "  (gone)", true);
        }
    }
}

Lines rendered(const Value& value, const std::vector<FieldDescription>& fields,
               const FieldDescription* element, const Paths& changed, std::size_t room)
{
    Renderer renderer(changed, room);
    if (value.is_object()) {
        renderer.record(value, fields, {}, 0);
    } else if (value.is_array()) {
        renderer.list(value, element, {}, 0);
    } else if (isText(value)) {
        for (const std::string& line : linesOf(value.get_ref<const std::string&>())) {
            renderer.lines.push_back({printable(line), touches(changed, {})});
        }
    } else {
        renderer.lines.push_back({plainScalar(value), touches(changed, {})});
    }
    return renderer.lines;
}

} // namespace

std::string shownValue(const Value& value, const FieldDescription* field)
{
    if (value.is_array()) {
        const std::string unit = value.empty() ? "" : unitOf(field).name;
        return listText(value, field) + (unit.empty() ? "" : " " + unit);
    }
    const bool isMeasured = value.is_number() && field != nullptr && textOf(value, field) == nullptr;
    return isMeasured ? measured(value, field->unit) : digitsOf(value, field);
}

std::vector<Line> renderAnswer(const Value& answer, const std::vector<FieldDescription>& fields,
                               const std::set<std::string>& changed, std::size_t room)
{
    return rendered(answer, fields, nullptr, changed, room);
}

std::vector<Line> renderPicked(const Value& value, const FieldDescription* field, std::size_t room)
{
    return rendered(value, fieldsOf(field), elementOf(field), {}, room);
}

std::vector<std::string> renderTable(const std::vector<std::string>& headings,
                                     const std::vector<std::vector<std::string>>& rows)
{
    std::vector<std::string> lines(rows.size() + 1);
    for (std::size_t column = 0; column < headings.size(); ++column) {
        std::size_t width = widthOf(headings[column]);
        bool isNumeric = !rows.empty();
        for (const auto& row : rows) {
            width = std::max(width, widthOf(row[column]));
            isNumeric = isNumeric && isNumber(row[column]);
        }
        for (std::size_t index = 0; index < lines.size(); ++index) {
            const std::string& cell = index == 0 ? headings[column] : rows[index - 1][column];
            const std::string blanks(width - widthOf(cell), ' ');
            lines[index] += (column == 0 ? "" : "  ") + (isNumeric ? blanks + cell : cell + blanks);
        }
    }
    for (std::string& line : lines) {
        line.erase(line.find_last_not_of(' ') + 1);
    }
    return lines;
}

} // namespace zyr_ctl
