#pragma once

#include "Pictures.h"

#include <cstdint>
#include <vector>

// XPIC and MIMO of a channel as tables, with the readings that matter and their units. Pure functions; what a
// node doesn't give shows as "-".

namespace zyr_ctl
{

/// @param status  answer of "CRI.GetRadioChannelStatus"
/// @param xpic    answer of "TI.ManageXPIC", with preamble and status
std::vector<Line> xpicPicture(std::int64_t channel, const DescribedAnswer& status,
                              const DescribedAnswer& xpic);

/// @param status  answer of "CRI.GetRadioChannelStatus"
/// @param mimo    answer of "TI.ManageMimo", with the state of the calibration
std::vector<Line> mimoPicture(std::int64_t channel, const DescribedAnswer& status,
                              const DescribedAnswer& mimo);

} // namespace zyr_ctl
