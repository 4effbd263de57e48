#pragma once

#include "Export.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// The kind of a cross-polar or MIMO link.
enum class LinkType : std::uint32_t
{
    Disable = 0,
    Enable_A = 1,
    Enable_B = 2,
    Enable_C = 3,
    Enable_D = 4,
};

/// The texts of `LinkType`, as requests carry them.
class ZYR_EXPORT LinkTypeXpicMimo
{
  public:
    LinkTypeXpicMimo() = delete;

    /// The text of a link type, empty for a value without one.
    static std::string enumToString(LinkType linkType);

    /// The link type with exactly this text, case included; `Disable` for any other text.
    static LinkType stringToEnum(const std::string& text);
};

} // namespace zyr_top_api
