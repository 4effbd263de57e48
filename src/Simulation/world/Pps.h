#pragma once

#include "NodeState.h"
#include "PpsCalibration.h"

#include <chrono>
#include <cstdint>

namespace zyr_simulation
{

inline constexpr std::chrono::seconds kPpsCoarseCalibrationTime{2};
inline constexpr std::chrono::seconds kPpsFineCalibrationTime{1};

/// Begins a calibration of a channel's pulse per second, in place of one that runs. Called with the node's
/// mutex held.
///
/// Each step runs for its whole time and fails at its end with the first thing that went wrong in it: an
/// external source without a signal (`SlaveLOL`), a link that was down (`NoResponseFromMaster`), another
/// modulation in either direction (`SlaveAcmSwitch`); a fine step fails also if no coarse one has succeeded
/// before (`CoarseNeeded`). The coarse step of `CoarseAndFine` is followed by a fine one if it succeeds.
/// `Auto` runs a fine step again and again, whatever its end, until `AutoOff` or another calibration ends it;
/// `AutoOff` leaves the result of the last step that ended.
/// @param mode  refused if it is none of the enumeration
/// @param period_ms  how long `Auto` pauses between the end of a step and the next
/// @return whether the mode was taken
bool startPpsCalibration(NodeState& node, ChannelState& channel, zyr_top_api::PpsRtcCalibrationMode mode,
                         std::uint16_t period_ms);

/// Goes on with a calibration: watches the running step, ends it when it is due, begins what follows.
void settlePps(NodeState& node, ChannelState& channel);

} // namespace zyr_simulation
