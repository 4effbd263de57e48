#include "Secrets.h"

#include "Text.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace zyr_ctl
{

namespace
{

constexpr std::string_view kHidden = "(hidden)";
constexpr std::string_view kNameStart = "<name>";
constexpr std::string_view kNameEnd = "</name>";
constexpr std::string_view kValueStart = "<value>";
constexpr std::string_view kValueEnd = "</value>";

bool isFlag(std::string_view xml)
{
    const std::size_t value = xml.find(kValueStart);
    return value != std::string_view::npos && xml.substr(value).starts_with("<value><boolean>");
}

// Where the value that begins at `start` ends, nested ones passed over; the end of the text if it is cut off.
std::size_t endOfValue(std::string_view xml, std::size_t start)
{
    std::size_t depth = 0;
    for (std::size_t at = start; at < xml.size(); ++at) {
        const std::string_view rest = xml.substr(at);
        if (rest.starts_with(kValueStart)) {
            ++depth;
        } else if (rest.starts_with(kValueEnd) && --depth == 0) {
            return at + kValueEnd.size();
        }
    }
    return xml.size();
}

} // namespace

bool isSecretName(std::string_view name)
{
    constexpr std::array<std::string_view, 4> words{"key", "password", "passphrase", "secret"};
    const std::string small = lowerCase(name);
    return std::ranges::any_of(words,
                               [&](std::string_view word) { return small.find(word) != std::string::npos; });
}

void SecretNames::learn(const std::vector<FieldDescription>& fields)
{
    for (const FieldDescription& field : fields) {
        if (field.isSecret) {
            m_described.insert(field.name);
        }
        learn(field.fields);
        learn(field.element);
    }
}

bool SecretNames::contains(std::string_view name) const
{
    return isSecretName(name) || m_described.contains(name);
}

std::vector<std::string> SecretNames::namesIn(const Value& value) const
{
    std::vector<std::string> names;
    for (const auto& [name, member] : value.items()) {
        const bool isBlank = member.is_string() && member.get_ref<const std::string&>().empty();
        const bool isSecret = value.is_object() && contains(name) && !member.is_boolean() && !isBlank;
        const std::vector<std::string> inner =
            member.is_structured() ? namesIn(member) : std::vector<std::string>();
        names.insert(names.end(), inner.begin(), inner.end());
        if (isSecret) {
            names.push_back(name);
        }
    }
    return names;
}

Value SecretNames::hiddenIn(const Value& value) const
{
    Value shown = value;
    if (shown.is_object()) {
        for (const auto& [name, member] : shown.items()) {
            // A flag is none; the node describes secret fields with one.
            const bool isSecret = contains(name) && !member.is_boolean();
            member = isSecret ? Value(kHidden) : hiddenIn(member);
        }
    } else if (shown.is_array()) {
        for (Value& element : shown) {
            element = hiddenIn(element);
        }
    }
    return shown;
}

void wipe(std::string& text)
{
    explicit_bzero(text.data(), text.size());
    text.clear();
}

std::string SecretNames::hiddenInXml(std::string_view xml) const
{
    std::string shown;
    for (;;) {
        const std::size_t start = xml.find(kNameStart);
        const std::size_t end = xml.find(kNameEnd, start);
        if (start == std::string_view::npos || end == std::string_view::npos) {
            return shown.append(xml);
        }
        const std::size_t name = start + kNameStart.size();
        const std::string_view behind = xml.substr(end + kNameEnd.size());
        const bool isSecret = contains(xml.substr(name, end - name)) && !isFlag(behind);
        shown.append(xml.substr(0, end + kNameEnd.size()));
        xml.remove_prefix(end + kNameEnd.size());
        if (isSecret) {
            shown.append(kValueStart).append(kHidden).append(kValueEnd);
            xml.remove_prefix(endOfValue(xml, 0));
        }
    }
}

} // namespace zyr_ctl
