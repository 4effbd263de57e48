#pragma once

#include "MimoLockStatus.h"
#include "NodeState.h"

#include <cstdint>

namespace zyr_simulation
{

// Readings of links with two streams. Their size follows from the seed and moves a little with time.

/// The interference between the polarisations that is cancelled, in tenths of a dB.
std::int32_t crossPolarIsolation(const NodeState& node, const ChannelState& channel);

/// Distance between the carriers of two streams.
std::int32_t carrierOffset_Hz(const NodeState& node, const ChannelState& channel);

/// How well the antennas of a MIMO link are apart, in ten-thousandths.
std::int32_t eta_tenThousandths(const NodeState& node, const ChannelState& channel);

/// Whether the receiver of the other polarisation has locked: XPIC is started or a MIMO link is, the link is
/// up and no sweep is under way.
zyr_top_api::MimoLockStatus xpicLock(const NodeState& node, const ChannelState& channel);

/// Whether the MIMO receiver has locked: MIMO is started and the link is up.
zyr_top_api::MimoLockStatus mimoLock(const ChannelState& channel);

/// The mode of the DSP for MIMO: 0 none, 4 for 2x2, 9 for 4x4, which is both channels together.
int mimoMode(const NodeState& node, const ChannelState& channel);

} // namespace zyr_simulation
