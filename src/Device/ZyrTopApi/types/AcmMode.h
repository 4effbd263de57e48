#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// Whether the modem adapts the modulation. Values without a meaning are passed on as they are.
enum class AcmMode : std::uint32_t
{
    Active = 0,
    Passive = 1,
    Basic = 2,
    Undefined = 3,
};

/// The text of a mode, "Undefined" for a value without one.
ZYR_EXPORT std::string_view acmModeToString(AcmMode value);

/// Where adaptive modulation is decided.
enum class AcmModePosition : std::uint32_t
{
    Internal = 0,
    External = 1,
    Undefined = 2,
};

/// The text of a position, "Undefined" for a value without one.
ZYR_EXPORT std::string_view acmModePositionToString(AcmModePosition value);

/// The RLP control of adaptive modulation.
enum class AcmRlpControl : std::uint32_t
{
    Normal = 0,
    ActiveTx = 1,
    StandbyTx = 2,
    Undefined = 3,
};

/// The text of a control value, empty for a value without one.
ZYR_EXPORT std::string_view acmRlpControlToString(AcmRlpControl value);

} // namespace zyr_top_api
