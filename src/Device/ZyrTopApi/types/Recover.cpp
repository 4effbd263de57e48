#include "Recover.h"

#include "EnumText.h"

namespace zyr_top_api
{

std::string_view recoverToString(Recover value)
{
    static constexpr auto texts = std::to_array<std::string_view>({"Undefined", "DspWithoutConfig", "Dsp"});
    return textOf(texts, value, "Undefined");
}

} // namespace zyr_top_api
