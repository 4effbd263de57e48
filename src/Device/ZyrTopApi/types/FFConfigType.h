#pragma once

#include "Export.h"

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>

namespace zyr_top_api
{

/// The configuration type of a frame format; also the link type of a radio frame.
enum class FFConfigType : std::uint32_t
{
    Unknown = 0,
    Other = 1,
    Std = 2,
    Xpic = 3,
    Mimo = 4,
    LHStd = 5,   ///< Long haul.
    LHXpic = 6,  ///< Long haul.
    Xpic2 = 7,   ///< Over two boards.
    LHXpic2 = 8, ///< Long haul, over two boards.
    Mimo2 = 9,   ///< Over two boards.
    SisoCA = 10, ///< Carrier aggregation.
    XpicCA = 11, ///< Carrier aggregation.
    Mrc = 12,
    Mrc2 = 13, ///< Over two boards.
    Mrcx = 14, ///< With XPIC, over two boards.
};

/// The short form of a type, as it is printed; empty for a value without one.
ZYR_EXPORT std::string_view ffConfigTypeToString(FFConfigType type);

/// The type with exactly this long form, as requests carry it; `Unknown` for any other text.
///
/// The long forms differ from the short ones on purpose: "Standard" is read, "Std" is not.
ZYR_EXPORT FFConfigType ffConfigTypeStringToEnum(const std::string& text);

/// Prints the short form of a type, nothing for a value without one.
ZYR_EXPORT std::ostream& operator<<(std::ostream& stream, FFConfigType type);

} // namespace zyr_top_api
