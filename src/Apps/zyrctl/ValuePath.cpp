#include "ValuePath.h"

#include "Failure.h"
#include "FieldValue.h"
#include "Suggestion.h"
#include "Text.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace zyr_ctl
{

namespace
{

// "events[0].isActive" and "events.0.isActive" become "events", "0", "isActive".
std::vector<std::string> stepsOf(const std::string& path)
{
    std::vector<std::string> steps(1);
    for (const char c : path) {
        if (c == '.' || c == '[') {
            steps.emplace_back();
        } else if (c != ']') {
            steps.back() += c;
        }
    }
    if (path.starts_with('[')) {
        steps.erase(steps.begin());
    }
    return steps;
}

std::optional<std::size_t> indexOf(const std::string& step)
{
    std::size_t index = 0;
    const auto [end, error] = std::from_chars(step.data(), step.data() + step.size(), index);
    return error == std::errc() && end == step.data() + step.size() ? std::optional(index) : std::nullopt;
}

std::vector<std::string> memberNames(const Value& object)
{
    std::vector<std::string> names;
    for (const auto& [name, value] : object.items()) {
        names.push_back(name);
    }
    return names;
}

[[noreturn]] void refuseMember(const Value& value, const std::string& step)
{
    const std::vector<std::string> names =
        value.is_object() ? memberNames(value) : std::vector<std::string>();
    const std::string hint = didYouMean(step, names);
    throw usageFailure("the answer has no field " + inQuotes(step) +
                       (hint.empty() && !names.empty() ? ", it has " + commaList(names) : hint));
}

const Value& elementAt(const Value& list, const std::string& step)
{
    const auto index = indexOf(step);
    if (!index || *index >= list.size()) {
        throw usageFailure("the answer has no element " + inQuotes(step) + " here, the list has " +
                           std::to_string(list.size()));
    }
    return list[*index];
}

void compareObjects(const Value& before, const Value& after, const std::string& path,
                    std::set<std::string>& changed);
void compareArrays(const Value& before, const Value& after, const std::string& path,
                   std::set<std::string>& changed);

void compare(const Value& before, const Value& after, const std::string& path, std::set<std::string>& changed)
{
    if (before == after) {
        return;
    }
    if (before.is_object() && after.is_object()) {
        compareObjects(before, after, path, changed);
    } else if (before.is_array() && after.is_array()) {
        compareArrays(before, after, path, changed);
    } else {
        changed.insert(path);
    }
}

void compareObjects(const Value& before, const Value& after, const std::string& path,
                    std::set<std::string>& changed)
{
    for (const auto& [name, value] : after.items()) {
        if (before.contains(name)) {
            compare(before.at(name), value, memberPath(path, name), changed);
        } else {
            changed.insert(memberPath(path, name));
        }
    }
    for (const auto& [name, value] : before.items()) {
        if (!after.contains(name)) {
            changed.insert(memberPath(path, name));
        }
    }
}

void compareArrays(const Value& before, const Value& after, const std::string& path,
                   std::set<std::string>& changed)
{
    const std::size_t common = std::min(before.size(), after.size());
    for (std::size_t index = 0; index < common; ++index) {
        compare(before[index], after[index], elementPath(path, index), changed);
    }
    for (std::size_t index = common; index < after.size(); ++index) {
        changed.insert(elementPath(path, index));
    }
    if (before.size() != after.size()) {
        changed.insert(path);
    }
}

} // namespace

Picked pick(const Value& answer, const std::vector<FieldDescription>& fields, const std::string& path)
{
    const Value* value = &answer;
    const std::vector<FieldDescription>* known = &fields;
    const FieldDescription* field = nullptr;
    for (const std::string& step : stepsOf(path)) {
        if (value->is_array()) {
            value = &elementAt(*value, step);
            field = field != nullptr && !field->element.empty() ? &field->element.front() : nullptr;
        } else if (value->is_object() && value->contains(step)) {
            value = &value->at(step);
            field = known != nullptr ? findField(*known, step) : nullptr;
        } else {
            refuseMember(*value, step);
        }
        known = field != nullptr ? &field->fields : nullptr;
    }
    return {*value, field};
}

std::string elementPath(const std::string& path, std::size_t index)
{
    return path + "[" + std::to_string(index) + "]";
}

std::set<std::string> changedPaths(const Value& before, const Value& after)
{
    std::set<std::string> changed;
    compare(before, after, {}, changed);
    return changed;
}

bool touches(const std::set<std::string>& paths, const std::string& path)
{
    return std::ranges::any_of(paths, [&](const std::string& changed) {
        const bool isInside = changed.starts_with(path) && changed.size() > path.size();
        return changed == path ||
               (isInside && (path.empty() || changed[path.size()] == '.' || changed[path.size()] == '['));
    });
}

} // namespace zyr_ctl
