#include "ModemChain.h"

#include "EnumText.h"

namespace bcm::types
{

std::string_view modemChainToString(ModemChain value)
{
    static constexpr auto texts =
        std::to_array<std::string_view>({"Main", "XpicSlave", "MrcDiversity", "MrcDiversitySlave",
                                         "MimoSpatial", "MimoXSpatialSlave", "Max"});
    return zyr_top_api::textOf(texts, value, "Max");
}

} // namespace bcm::types
