#include "FFConfigType.h"

#include "EnumText.h"

#include <ostream>

namespace zyr_top_api
{

namespace
{

constexpr auto kShortForms = std::to_array<std::string_view>({
    "Unknown",
    "Other",
    "Std",
    "Xpic",
    "Mimo",
    "LHStd",
    "LHXpic",
    "Xpic2",
    "LHXpic2",
    "Mimo2",
    "SisoCA",
    "XpicCA",
    "Mrc",
    "Mrc2",
    "Mrcx",
});

constexpr auto kLongForms = std::to_array<std::string_view>({
    "Unknown",
    "Other",
    "Standard",
    "Xpic",
    "Mimo",
    "LongHaulStandard",
    "LongHaulXpic",
    "XpicTwoBoards",
    "LongHaulXpicTwoBoards",
    "Mimo2",
    "SisoCarrierAggregation",
    "XpicCarrierAggregation",
    "Mrc",
    "MrcTwoBoards",
    "MrcXpicTwoBoards",
});

} // namespace

std::string_view ffConfigTypeToString(FFConfigType type)
{
    return textOf(kShortForms, type, "");
}

FFConfigType ffConfigTypeStringToEnum(const std::string& text)
{
    return valueOf(kLongForms, text, FFConfigType::Unknown);
}

std::ostream& operator<<(std::ostream& stream, FFConfigType type)
{
    return stream << ffConfigTypeToString(type);
}

} // namespace zyr_top_api
