#include "PpsSource.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view ppsSourceToString(PpsSource value)
{
    static constexpr auto texts =
        std::to_array<std::string_view>({"Internal", "External", "PeerSC", "External2"});
    return textOf(texts, value, "Unknown");
}

} // namespace zyr_top_api
