#include "ReferenceSec.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view referenceSecToString(ReferenceSec value)
{
    static constexpr auto texts =
        std::to_array<std::string_view>({"2", "4L", "4H", "5B", "6B", "5LB", "5HB", "6LB", "6HB", "7B"});
    return textOf(texts, value, "UNDEFINED");
}

} // namespace zyr_top_api
