#pragma once

#include "Optional.h"
#include "TextWriter.h"

namespace zyr_top_api
{

/// Writes a label and the value behind it; nothing at all for an empty optional.
template <class T>
void printIfPresent(TextWriter& text, const char* label, const general_classes::Optional<T>& value)
{
    if (value.hasValue()) {
        text << label << value.value();
    }
}

} // namespace zyr_top_api
