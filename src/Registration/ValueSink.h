#pragma once

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <string_view>

namespace zyr_registration
{

/// Takes one value piece by piece, in the order in which a document holds it: so that a record can be written
/// without a copy of it in between.
class ValueSink
{
  public:
    virtual ~ValueSink() = default;

    virtual void nil() = 0;
    virtual void boolean(bool value) = 0;
    virtual void integer(std::int64_t number) = 0;
    virtual void real(double number) = 0;
    virtual void text(std::string_view text) = 0;

    /// The values in between are the elements.
    virtual void beginArray() = 0;
    virtual void endArray() = 0;

    /// In between stand members: each begins with its name, has one value, and ends.
    virtual void beginStruct() = 0;
    virtual void beginMember(std::string_view name) = 0;
    virtual void endMember() = 0;
    virtual void endStruct() = 0;

    /// A whole value at once.
    virtual void value(const nlohmann::ordered_json& value) = 0;
};

} // namespace zyr_registration
