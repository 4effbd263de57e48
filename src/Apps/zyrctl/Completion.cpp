#include "Completion.h"

#include "FieldValue.h"

#include <algorithm>
#include <utility>

namespace zyr_ctl
{

namespace
{

// Longer ranges are no choice for anybody.
constexpr std::int64_t kMostNumbers = 16;

using Words = std::vector<std::string>;

bool contains(const Words& words, const std::string& word)
{
    return std::ranges::find(words, word) != words.end();
}

bool isOption(const std::string& word)
{
    return word.starts_with('-');
}

Words beginningWith(const Words& candidates, const std::string& prefix)
{
    Words fitting;
    std::ranges::copy_if(candidates, std::back_inserter(fitting),
                         [&](const std::string& candidate) { return candidate.starts_with(prefix); });
    return fitting;
}

Words joined(Words words, const Words& more)
{
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

// The words before the current one without options and their values.
Words positionals(const Words& words, const Words& valueOptions)
{
    Words found;
    for (std::size_t index = 0; index + 1 < words.size(); ++index) {
        const bool isValue = index > 0 && contains(valueOptions, words[index - 1]);
        if (!isOption(words[index]) && !isValue) {
            found.push_back(words[index]);
        }
    }
    return found;
}

Words choicesOf(const FieldDescription& field)
{
    Words choices;
    if (field.type == FieldType::Boolean) {
        choices = {"true", "false"};
    }
    for (const EnumText& row : field.texts) {
        choices.push_back(row.text);
    }
    const bool isShort = field.minimum > INT64_MIN / 2 && field.maximum < INT64_MAX / 2 &&
                         field.maximum - field.minimum < kMostNumbers;
    if (field.type == FieldType::Integer && field.texts.empty() && isShort) {
        for (std::int64_t number = field.minimum; number <= field.maximum; ++number) {
            choices.push_back(std::to_string(number));
        }
    }
    return choices;
}

// "channelId=", or the whole assignments if the word has its equals sign.
void addAssignments(const std::vector<FieldDescription>& fields, const std::string& path,
                    const std::string& current, Words& found)
{
    for (const FieldDescription& field : fields) {
        const std::string member = memberPath(path, field.name);
        const std::string start = member + "=";
        if (field.type == FieldType::Struct) {
            addAssignments(field.fields, member, current, found);
        } else if (!current.starts_with(start)) {
            found.push_back(start);
        } else {
            std::ranges::transform(choicesOf(field), std::back_inserter(found),
                                   [&](const std::string& choice) { return start + choice; });
        }
    }
}

bool isGiven(const Words& before, const std::string& assignment)
{
    const std::string start = assignment.substr(0, assignment.find('=') + 1);
    return std::ranges::any_of(before, [&](const std::string& word) { return word.starts_with(start); });
}

Words assignmentsFor(const std::string& command, const Words& before, const std::string& current,
                     const CompletionSource& source)
{
    Words found;
    if (const auto description = source.describe(command)) {
        addAssignments(description->request, {}, current, found);
    }
    std::erase_if(found, [&](const std::string& assignment) { return isGiven(before, assignment); });
    return found;
}

Words candidatesFor(const Words& before, const std::string& current, const CompletionSource& source)
{
    if (before.empty()) {
        return joined(source.subcommands, source.commands());
    }
    const std::string& first = before.front();
    if (first == "call" && before.size() > 1) {
        return assignmentsFor(before[1], before, current, source);
    }
    if (!contains(source.subcommands, first)) {
        return assignmentsFor(first, before, current, source);
    }
    if (before.size() > 1) {
        return {};
    }
    if (first == "completion") {
        return source.shells;
    }
    if (first == "help") {
        return joined(source.subcommands, source.commands());
    }
    return first == "call" || first == "list" ? source.commands() : Words();
}

} // namespace

std::vector<std::string> completionWords(std::string_view line)
{
    Words words(1);
    char quote = '\0';
    for (const char c : line) {
        if (quote != '\0') {
            if (c == quote) {
                quote = '\0';
            } else {
                words.back() += c;
            }
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c != ' ' && c != '\t') {
            words.back() += c;
        } else if (!words.back().empty()) {
            words.emplace_back();
        }
    }
    words.erase(words.begin()); // the program
    return words;
}

std::vector<std::string> completions(const std::vector<std::string>& words, const CompletionSource& source)
{
    if (words.empty()) {
        return {};
    }
    const std::string& current = words.back();
    if (isOption(current)) {
        return beginningWith(source.options, current);
    }
    const std::string before = words.size() > 1 ? words[words.size() - 2] : "";
    if (contains(source.valueOptions, before)) {
        return before == "--node" ? beginningWith(source.nodes(), current) : Words();
    }
    return beginningWith(candidatesFor(positionals(words, source.valueOptions), current, source), current);
}

std::optional<std::string> optionValue(const std::vector<std::string>& words, const std::string& option)
{
    for (std::size_t index = 0; index < words.size(); ++index) {
        if (words[index] == option && index + 1 < words.size()) {
            return words[index + 1];
        }
        if (words[index].starts_with(option + "=")) {
            return words[index].substr(option.size() + 1);
        }
    }
    return std::nullopt;
}

} // namespace zyr_ctl
