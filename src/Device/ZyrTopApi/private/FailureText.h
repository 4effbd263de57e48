#pragma once

#include "TextWriter.h"

#include <string>

namespace zyr_top_api
{

/// The text of a failure, built from its pieces.
template <class... Pieces>
std::string failureText(const Pieces&... pieces)
{
    std::string text;
    TextWriter writer(text);
    (writer << ... << pieces);
    return text;
}

} // namespace zyr_top_api
