#include "Request.h"

#include "Failure.h"
#include "FieldValue.h"
#include "Text.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace zyr_ctl
{

namespace
{

// "path=value", taken apart.
struct Assignment
{
    std::string path;
    std::string text;
};

// "; say channelId=1" for a value that stands alone where that field could be meant.
std::string hintFor(const std::vector<FieldDescription>& fields, std::size_t position,
                    const std::string& word)
{
    const bool isBare = position < fields.size() && word.find('=') == std::string::npos;
    return isBare ? "; did you mean " + fields[position].name + "=" +
                        (fields[position].isSecret ? "..." : word) + "?"
                  : "";
}

// @param fields  those that values without a name could be meant for
std::vector<Assignment> assignmentsOf(const std::vector<std::string>& words,
                                      const std::vector<FieldDescription>& fields = {})
{
    std::vector<Assignment> assignments;
    std::set<std::string> paths;
    for (const std::string& word : words) {
        const std::size_t equals = word.find('=');
        if (equals == std::string::npos || equals == 0) {
            const auto position = static_cast<std::size_t>(&word - words.data());
            throw usageFailure(inQuotes(word) + " is not of the form field=value" +
                               hintFor(fields, position, word));
        }
        assignments.push_back({word.substr(0, equals), word.substr(equals + 1)});
        if (!paths.insert(assignments.back().path).second) {
            throw usageFailure(assignments.back().path + " is given twice");
        }
    }
    return assignments;
}

Value objectOf(const std::optional<Value>& data)
{
    if (data && !data->is_object()) {
        throw usageFailure("the data must be a JSON object with the members of the request");
    }
    return data.value_or(Value::object());
}

Value& memberOf(Value& record, const std::string& name)
{
    Value& member = record[name];
    if (!member.is_object()) {
        member = Value::object();
    }
    return member;
}

// Follows the path down to the field that it names, through nested records.
void assign(const CommandDescription& command, const Assignment& assignment, Value& request)
{
    const std::vector<FieldDescription>* fields = &command.request;
    Value* record = &request;
    std::string owner = command.name;
    std::string path;
    for (std::string rest = assignment.path;;) {
        const std::size_t dot = rest.find('.');
        const std::string name = rest.substr(0, dot);
        const FieldDescription* const field = findField(*fields, name);
        if (field == nullptr) {
            refuseUnknownField(*fields, owner, name);
        }
        path = memberPath(path, name);
        if (dot == std::string::npos) {
            (*record)[name] = valueOfText(*field, path, assignment.text);
            return;
        }
        if (field->type != FieldType::Struct) {
            throw usageFailure(path + " has no fields, it takes " + acceptedText(*field));
        }
        record = &memberOf(*record, name);
        fields = &field->fields;
        owner = path;
        rest.erase(0, dot + 1);
    }
}

Value jsonOrText(const std::string& text)
{
    Value value = Value::parse(text, nullptr, false);
    // The blank is that of `withWholeLists`.
    return !value.is_discarded() ? value : Value(text.starts_with(" [") ? text.substr(1) : text);
}

void assignUnchecked(const Assignment& assignment, Value& request)
{
    Value* record = &request;
    std::string rest = assignment.path;
    for (std::size_t dot = rest.find('.'); dot != std::string::npos; dot = rest.find('.')) {
        record = &memberOf(*record, rest.substr(0, dot));
        rest.erase(0, dot + 1);
    }
    (*record)[rest] = jsonOrText(assignment.text);
}

} // namespace

std::vector<Value> checkedParams(const CommandDescription& command, const std::optional<Value>& data,
                                 const std::vector<std::string>& assignments)
{
    Value request = objectOf(data);
    for (const Assignment& assignment : assignmentsOf(assignments, command.request)) {
        assign(command, assignment, request);
    }
    request = checkedMembers(command.request, command.name, {}, request);
    return command.request.empty() ? std::vector<Value>() : std::vector<Value>{request};
}

std::vector<Value> uncheckedParams(const std::optional<Value>& data, const std::vector<std::string>& words)
{
    if (!data && words.empty()) {
        return {};
    }
    if (data && data->is_array() && words.empty()) {
        return {data->begin(), data->end()};
    }
    const bool areValues = std::ranges::none_of(
        words, [](const std::string& word) { return word.find('=') != std::string::npos; });
    if (!data && areValues) {
        std::vector<Value> params;
        std::ranges::transform(words, std::back_inserter(params), &jsonOrText);
        return params;
    }
    Value request = objectOf(data);
    for (const Assignment& assignment : assignmentsOf(words)) {
        assignUnchecked(assignment, request);
    }
    return {request};
}

} // namespace zyr_ctl
