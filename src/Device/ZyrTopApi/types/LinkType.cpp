#include "LinkType.h"

#include "EnumText.h"

namespace zyr_top_api
{

namespace
{

constexpr auto kTexts =
    std::to_array<std::string_view>({"Disable", "Enable_A", "Enable_B", "Enable_C", "Enable_D"});

} // namespace

std::string LinkTypeXpicMimo::enumToString(LinkType linkType)
{
    return std::string{textOf(kTexts, linkType, "")};
}

LinkType LinkTypeXpicMimo::stringToEnum(const std::string& text)
{
    return valueOf(kTexts, text, LinkType::Disable);
}

} // namespace zyr_top_api
