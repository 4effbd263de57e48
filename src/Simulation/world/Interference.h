#pragma once

#include "Interferer.h"
#include "NodeState.h"

#include <cstdint>

namespace zyr_simulation
{

/// A range of frequencies.
struct Band
{
    std::int64_t centre_kHz = 0;
    std::int64_t width_kHz = 0;
};

/// The share of a signal's width that lies within a window, 0 to 1.
double shareWithin(const Band& signal, const Band& window);

/// What the receiver of a channel listens to: its receive frequency with the channel spacing.
Band receiveBand(const ChannelState& channel);

/// What the transmitter of a channel fills.
Band transmitBand(const ChannelState& channel);

/// The node's other channel if its signal comes in on frequencies of this one, on the other polarisation;
/// else null.
const ChannelState* otherPolarisation(const NodeState& node, const ChannelState& channel);

// Sums of powers are in mW; levels can't be added.

/// A level in tenths of a dBm as a power, none as 0.
double power_mW(double level);

/// A power in mW as a level in tenths of a dBm, none as `kNoLevel_dBmTenths`.
std::int32_t level_dBmTenths(double power);

/// What disturbs a channel's receiver: the other polarisation, less what its canceller takes away while it is
/// locked, and interferers.
double interference_mW(const NodeState& node, const ChannelState& channel);

/// What disturbs the far end's receiver of a channel: the other polarisation as it is sent from here. The far
/// end cancels it as soon as cancelling is started here; interferers are near this end alone.
double farEndInterference_mW(const NodeState& node, const ChannelState& channel);

/// What a canceller that has locked takes away from the other polarisation.
inline constexpr std::int32_t kCancelling_dBTenths = 280;

} // namespace zyr_simulation
