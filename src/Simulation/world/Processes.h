#pragma once

#include "NodeState.h"

#include <chrono>

namespace zyr_simulation
{

// What takes time on the node, and how long it takes.

inline constexpr std::chrono::milliseconds transmitterSwitchTime{300};
inline constexpr std::chrono::seconds radioRestartTime{3};
inline constexpr std::chrono::seconds dspRecoveryWithoutConfigTime{2};
inline constexpr std::chrono::seconds dspRecoveryTime{5};
inline constexpr std::chrono::seconds dadeCalibrationTime{2};
inline constexpr std::chrono::milliseconds dadeStopTime{200};
inline constexpr std::chrono::seconds ppsCoarseCalibrationTime{2};
inline constexpr std::chrono::seconds ppsFineCalibrationTime{1};
inline constexpr std::chrono::seconds mimoCalibrationTime{2};
inline constexpr std::chrono::milliseconds xpicSweepTime{500};
inline constexpr std::chrono::milliseconds sdcSwitchTime{500};
inline constexpr std::chrono::milliseconds scanPointTime{10};

/// Ends a recovery of the DSP whose time has come, with the alarm "DspRecovery".
void settleDspRecovery(NodeState& node);

/// Ends what is due on a channel: a switch of the transmitter (with the alarm "TxOff"), a restart of the
/// radio unit, calibrations, the switching of the combiner. Samples of TAPS are taken. A transmitter whose
/// request has changed begins to switch.
void settleProcesses(NodeState& node, ChannelState& channel);

} // namespace zyr_simulation
