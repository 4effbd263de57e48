#include "ForceLoopMode.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view forceLoopModeToString(ForceLoopMode value)
{
    static constexpr auto texts = std::to_array<std::string_view>(
        {"NormalOperation", "NormalOperationNoHysteresis", "ClosedLoop", "OpenLoop"});
    return textOf(texts, value, "Undefined");
}

} // namespace zyr_top_api
