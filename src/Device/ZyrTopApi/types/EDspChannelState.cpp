#include "EDspChannelState.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view dspChannelStateToString(EDspChannelState value)
{
    static constexpr auto texts = std::to_array<std::string_view>(
        {"blocked", "configured", "acm configured", "incomplete configuration"});
    return textOf(texts, value, "invalid");
}

} // namespace zyr_top_api
