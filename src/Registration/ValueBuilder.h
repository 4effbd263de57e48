#pragma once

#include "ValueSink.h"

#include <nlohmann/json.hpp>

#include <string>
#include <utility>
#include <vector>

namespace zyr_registration
{

/// Makes a `Value` of what it takes.
class ValueBuilder : public ValueSink // NOLINT(bugprone-exception-escape): moving a value throws nothing
{
  public:
    void nil() override { value(nullptr); }
    void boolean(bool value) override { put(value); }
    void integer(std::int64_t number) override { put(number); }
    void real(double number) override { put(number); }
    void text(std::string_view text) override { put(std::string(text)); }
    void beginArray() override { m_open.push_back(nlohmann::ordered_json::array()); }
    void endArray() override { close(); }
    void beginStruct() override { m_open.push_back(nlohmann::ordered_json::object()); }
    void beginMember(std::string_view name) override { m_names.emplace_back(name); }
    void endMember() override {}
    void endStruct() override { close(); }
    void value(const nlohmann::ordered_json& value) override { put(value); }

    /// What has been made. To be called once.
    nlohmann::ordered_json take() { return std::move(m_value); }

  private:
    void put(nlohmann::ordered_json value)
    {
        if (m_open.empty()) {
            m_value = std::move(value);
        } else if (m_open.back().is_array()) {
            m_open.back().push_back(std::move(value));
        } else {
            m_open.back()[std::move(m_names.back())] = std::move(value);
            m_names.pop_back();
        }
    }

    void close()
    {
        nlohmann::ordered_json closed = std::move(m_open.back());
        m_open.pop_back();
        put(std::move(closed));
    }

    nlohmann::ordered_json m_value;
    std::vector<nlohmann::ordered_json> m_open; // arrays and structs, the innermost last
    std::vector<std::string> m_names;           // of the members that are open
};

} // namespace zyr_registration
