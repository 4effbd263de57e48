#pragma once

#include "MimoLockStatus.h"
#include "MimoStatusStruct.h"
#include "NodeState.h"

#include <string_view>

namespace zyr_simulation
{

// MIMO of a channel: a second stream on its frequencies, which comes in over a spatial path of its own. What
// is measured of it settles behind the configuration, and as long as the receiver hasn't locked to it the
// channel carries half of what it could.

/// The owner of what can fail by itself in a calibration, among the faults, and what can.
inline constexpr std::string_view kMimoCalibration = "MimoCalibration";
inline constexpr std::string_view kMimoCorrelation = "correlate";

/// Applies the configuration: the receivers sweep anew for the carriers of the second streams.
void applyMimoConfiguration(NodeState& node, ChannelState& channel);

/// Begins a calibration of the delay between the cross-connected chains, also in place of a running one. It
/// waits for `kMimoCalibrationWaitTime` and then runs for `kMimoCalibrationTime`. At the end of each step a
/// link that is down ends it as a time-out. It finds no correlation if that fault was ordered.
void beginMimoCalibration(NodeState& node, ChannelState& channel);

/// Brings lock and calibration up to the present; behind `settleHop`, since they follow the link. The
/// receiver locks when MIMO has been started, the link has been up for `kMimoSweepTime` and the spatial path
/// isn't muted.
void settleMimo(NodeState& node, ChannelState& channel);

/// What the DSP measures. Gain difference, eta and the carrier offsets come near their values while the
/// receiver sweeps. Without a signal on the spatial path its readings are 0.
zyr_top_api::MimoStatusStruct mimoStatus(const NodeState& node, const ChannelState& channel);

/// The mode of the DSP for MIMO: 0 none, 4 for 2x2, 9 for 4x4, which is both channels together.
int mimoMode(const NodeState& node, const ChannelState& channel);

/// The share of its capacity that a channel carries.
double capacityShare(const ChannelState& channel);

} // namespace zyr_simulation
