#pragma once

#include "ValueSink.h"
#include "ValueWriter.h"

namespace zyr_gateway
{

/// Lets a method write its answer into a document.
class DocumentSink final : public zyr_registration::ValueSink
{
  public:
    explicit DocumentSink(ValueWriter& writer) : m_writer(writer) {}

    void nil() override { m_writer.nil(); }
    void boolean(bool value) override { m_writer.boolean(value); }
    void integer(std::int64_t number) override { m_writer.integer(number); }
    void real(double number) override { m_writer.real(number); }
    void text(std::string_view text) override { m_writer.text(text); }
    void beginArray() override { m_writer.beginArray(); }
    void endArray() override { m_writer.endArray(); }
    void beginStruct() override { m_writer.beginStruct(); }
    void beginMember(std::string_view name) override { m_writer.beginMember(name); }
    void endMember() override { m_writer.endMember(); }
    void endStruct() override { m_writer.endStruct(); }
    void value(const Value& value) override { m_writer.value(value); }

  private:
    ValueWriter& m_writer;
};

} // namespace zyr_gateway
