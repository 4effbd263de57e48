#include "Missing.h"

#include "TextWriter.h"

#include <stdexcept>
#include <string>

namespace zyr_top_api
{

void throwMissing(std::string_view what, std::uint32_t channel)
{
    throw std::out_of_range(
        written([&](TextWriter& text) { text << what << " of radio channel " << channel; }));
}

void throwMissing(std::string_view what)
{
    throw std::out_of_range(std::string(what) + " of the node");
}

} // namespace zyr_top_api
