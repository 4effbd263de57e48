#include "LinkType.h"

#include "EnumText.h"

namespace zyr_top_api
{

namespace
{

constexpr auto texts =
    std::to_array<std::string_view>({"Disable", "Enable_A", "Enable_B", "Enable_C", "Enable_D"});

} // namespace

std::string LinkTypeXpicMimo::enumToString(LinkType linkType)
{
    return std::string{textOf(texts, linkType, "")};
}

LinkType LinkTypeXpicMimo::stringToEnum(const std::string& text)
{
    return valueOf(texts, text, LinkType::Disable);
}

} // namespace zyr_top_api
