#pragma once

#include "Optional.h"
#include "TextWriter.h"

#include <string_view>

namespace zyr_top_api
{

/// Writes the fields that are present, separated by ", ".
class PresentFields
{
  public:
    explicit PresentFields(TextWriter& text) : m_text(text) {}

    template <class T>
    PresentFields& add(std::string_view label, const general_classes::Optional<T>& field)
    {
        if (field.hasValue()) {
            m_text << (m_isFirst ? "" : ", ") << label << field.value();
            m_isFirst = false;
        }
        return *this;
    }

  private:
    TextWriter& m_text;
    bool m_isFirst = true;
};

} // namespace zyr_top_api
