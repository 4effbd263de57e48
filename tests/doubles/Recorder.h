#pragma once

#include "Transcript.h"

#include <concepts>
#include <cstdint>
#include <cstdio>
#include <ranges>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace zyr_test
{

/// The text of an argument: flags as words, numbers and enumerators as decimal numbers, texts in quotes,
/// lists in brackets, records by their own text.
template <class Value>
std::string describe(const Value& value)
{
    if constexpr (std::same_as<Value, bool>) {
        return value ? "true" : "false";
    } else if constexpr (std::is_enum_v<Value>) {
        return std::to_string(static_cast<std::underlying_type_t<Value>>(value));
    } else if constexpr (std::integral<Value>) {
        return std::to_string(value);
    } else if constexpr (std::floating_point<Value>) {
        char digits[40];
        std::snprintf(digits, sizeof digits, "%g", value);
        return digits;
    } else if constexpr (std::convertible_to<Value, std::string_view>) {
        return '"' + std::string(std::string_view(value)) + '"';
    } else if constexpr (std::is_pointer_v<Value>) {
        return value == nullptr ? "null" : "object";
    } else if constexpr (requires { value.toString(); }) {
        return "{" + value.toString() + "}";
    } else if constexpr (requires { value.first; }) {
        return describe(value.first) + ": " + describe(value.second);
    } else if constexpr (std::ranges::range<Value>) {
        std::string list;
        for (const auto& element : value) {
            list += (list.empty() ? "" : ", ") + describe(element);
        }
        return "[" + list + "]";
    } else {
        return std::to_string(static_cast<std::uint32_t>(value)); // a radio channel
    }
}

/// What all doubles have: a name, under which they publish themselves and stand in the transcript.
class Recorder
{
  public:
    Recorder(Transcript& transcript, std::string name) : m_transcript(transcript), m_name(std::move(name)) {}

    const std::string& name() const { return m_name; }

    /// Whether the operations for which the interface has a body of its own answer by that, instead of by
    /// what the test has set.
    bool defaultsInForce = false;

  protected:
    ~Recorder() = default;

    /// Writes "<name>.<operation>(<arguments>)"; of the arguments only what goes in.
    template <class... Arguments>
    void record(std::string_view operation, const Arguments&... arguments) const
    {
        std::string list;
        ((list += (list.empty() ? "" : ", ") + describe(arguments)), ...);
        m_transcript.add(m_name + "." + std::string(operation) + "(" + list + ")");
    }

    Transcript& transcript() const { return m_transcript; }

  private:
    Transcript& m_transcript;
    std::string m_name;
};

} // namespace zyr_test
