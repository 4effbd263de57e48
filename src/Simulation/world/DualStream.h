#pragma once

#include "MimoLockStatus.h"
#include "NodeState.h"

#include <cstdint>

namespace zyr_simulation
{

// Readings of links with two streams. Their size follows from the seed and moves a little with time.

/// Streams beside a receiver's own one.
enum class Stream
{
    Slave,        ///< The other polarisation.
    Spatial,      ///< The second one of a MIMO link.
    SpatialSlave, ///< That one's other polarisation.
};

/// How much weaker a receiver gets the other polarisation than its own, in tenths of a dB.
std::int32_t crossPolarDiscrimination_dBTenths(const NodeState& node, const ChannelState& channel,
                                               Stream stream = Stream::Slave);

/// Distance between the carriers of two streams.
std::int32_t carrierOffset_Hz(const NodeState& node, const ChannelState& channel,
                              Stream stream = Stream::Slave);

/// What the spatial path of a MIMO link is stronger than the main one, in tenths of a dB.
std::int32_t gainDifference_dBTenths(const NodeState& node, const ChannelState& channel);

/// How well the antennas of a MIMO link are apart, in ten-thousandths.
std::int32_t eta_tenThousandths(const NodeState& node, const ChannelState& channel);

/// Whether the channel is to hear the other polarisation: XPIC is started or a MIMO link is.
bool wantsOtherPolarisation(const ChannelState& channel);

/// Whether the preambles of both polarisations go together: A with B, C with D. Without another channel of
/// this node on the frequencies the other polarisation is in step.
bool preamblesPair(const NodeState& node, const ChannelState& channel);

/// Whether the slave sweeps for the other polarisation: as long as it is wanted and hasn't been locked to.
bool slaveSweeps(const NodeState& node, const ChannelState& channel);

/// The level that the slave gets of the other polarisation, in tenths of a dBm.
std::int32_t slaveLevel_dBmTenths(const NodeState& node, const ChannelState& channel);

/// Lets the slave of a channel sweep anew when nothing keeps it from the other polarisation's carrier any
/// more.
void settleXpic(NodeState& node, ChannelState& channel);

/// Whether the receiver of the other polarisation, the slave, has locked: that one is wanted, both ends of
/// the cable are plugged in and send, the preambles pair, the channel is configured and gets signals that are
/// well above the noise, and the sweep for the carrier is over.
zyr_top_api::MimoLockStatus xpicLock(const NodeState& node, const ChannelState& channel);

} // namespace zyr_simulation
