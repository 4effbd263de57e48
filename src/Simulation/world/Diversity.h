#pragma once

#include "ChannelState.h"

#include <cstdint>

namespace zyr_simulation
{

/// Works out what a receiver makes of its two antennas: the path that is in use and what combining gains,
/// and from them the received level, which is returned. The levels of both paths must be up to date.
///
/// The combiner of the radio unit comes before the one in the baseband; without either the main path serves.
/// A combiner chooses a path, or combines both: their powers then add up, but for the combiner's own loss.
/// Without a calibration the paths aren't in step and only half of what the weaker one adds is won.
/// @return in tenths of a dBm
std::int32_t settleDiversity(ChannelState& channel);

/// What combining loses in the combiner: so much may the combined level lie below the better path.
inline constexpr std::int32_t kCombinerLoss_dBTenths = 5;

} // namespace zyr_simulation
