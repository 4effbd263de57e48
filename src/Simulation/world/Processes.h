#pragma once

#include "NodeState.h"

#include <chrono>

namespace zyr_simulation
{

// What takes time on the node, and how long it takes.

inline constexpr std::chrono::milliseconds kTransmitterSwitchTime{300};
inline constexpr std::chrono::seconds kRadioRestartTime{3};
inline constexpr std::chrono::seconds kRadioStartTime{2};
inline constexpr std::chrono::seconds kDspRecoveryWithoutConfigTime{2};
inline constexpr std::chrono::seconds kDspRecoveryTime{5};
inline constexpr std::chrono::seconds kDadeCalibrationTime{2};
inline constexpr std::chrono::milliseconds kDadeStopTime{200};
inline constexpr std::chrono::seconds kMimoSweepTime{1};
inline constexpr std::chrono::seconds kMimoCalibrationWaitTime{1};
inline constexpr std::chrono::seconds kMimoCalibrationTime{2};
inline constexpr std::chrono::milliseconds kXpicSweepTime{500};
inline constexpr std::chrono::milliseconds kSdcSwitchTime{500};
inline constexpr std::chrono::milliseconds kBasebandSdcSwitchTime{400};
inline constexpr std::chrono::milliseconds kScanPointTime{10};

/// Ends a recovery of the DSP whose time has come, with the alarm "DspRecovery".
void settleDspRecovery(NodeState& node);

/// Begins a calibration of the combiner in the baseband.
void beginCalibration(NodeState& node, BasebandSdcState& sdc);

/// Ends what is due on a channel: a switch of the transmitter (with the alarm "TxOff"), a start or restart
/// of the radio unit (with the alarm "RadioDown"), calibrations, the switching of the combiners, the sweep of
/// a slave. Samples of TAPS are taken and points of a scan measured. A transmitter whose request has changed
/// begins to switch.
void settleProcesses(NodeState& node, ChannelState& channel);

} // namespace zyr_simulation
