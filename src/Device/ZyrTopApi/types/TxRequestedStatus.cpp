#include "TxRequestedStatus.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view txRequestedStatusToString(TxRequestedStatus value)
{
    static constexpr auto texts = std::to_array<std::string_view>({"Off", "On"});
    return textOf(texts, value, "Undefined");
}

} // namespace zyr_top_api
