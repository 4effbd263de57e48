#pragma once

#include "AcmThreshold.h"
#include "NodeState.h"

#include <cstdint>
#include <vector>

namespace zyr_simulation
{

/// Works out what the hop gives a channel at this moment: the power that is transmitted, the level and the
/// SNIR at both ends, the modulation of each direction, the received blocks since the last time, and whether
/// the link is up (alarm "LinkDown").
///
/// The far end is on the channel's frequencies with the channel's frame and modulations. All levels are in
/// tenths:
///
/// - power: what brings the far end to its target level, but within the commanded window, whose upper end
/// TAPS may lower (`tapsDecision`), and the radio's limit; in normal operation a change of the path by up to
/// 1 dB is let pass; the upper end of the window if power control is held open;
/// - received level: power of the other end, less the path loss, less the fading, a slow sum of two waves;
/// - diversity: the second antenna of the receiver has a path loss of its own and fades on its own; see
///   `settleDiversity` for what becomes of both;
/// - SNIR: received level above the noise floor of the frame's channel spacing, up to a ceiling, and above
/// what
///   disturbs the receiver, see `interference_mW`;
/// - modulation: the greatest of the commanded range whose SNIR is there; the least one while ACM is muted or
/// off, in the mode Basic, and while the transmitter is on standby; the mode Passive holds the one in force;
/// - link: up if the channel is configured and the SNIR of the modulation in force is there, unless a test
/// signal is sent, with which the far end takes the link down at both ends;
/// - closed loop (alarm "LoopClosed"): the receiver gets the channel's own signal, weaker by a constant loss,
/// in place of the far end's, and the far end gets nothing;
/// - alarm "FarEndLinkDown": the transmitter is on, but the far end can't lock to what it gets;
/// - spectrum scan: while one runs nothing is received;
/// - blocks: a constant number in a second, half of it without the second stream of a MIMO link; some are
/// errored when the SNIR is scarce.
void settleHop(NodeState& node, ChannelState& channel);

/// The modulations of the channel's range, the most robust first, each with the SNIR in tenths of a dB below
/// which the receiver leaves it: what the modem needs, and what the far end's greatest power for the
/// constellation lies below its greatest power of all.
std::vector<zyr_top_api::AcmThreshold> acmThresholds(const ChannelState& channel);

/// The greatest power of a modulation on a channel, in tenths of a dBm: less for denser constellations, less
/// the cutback. A booster, up to its greatest modulation, takes no more than its limit and adds its gain.
std::int32_t greatestPower(const NodeState& node, const ChannelState& channel,
                           zyr_top_api::ModulationAndCoding modulation);

/// The level of the far end's signal at the antenna of a channel, whatever the channel's receiver makes of
/// it.
std::int32_t farEndLevel_dBmTenths(const NodeState& node, const ChannelState& channel);

/// The level of what a channel transmits at the far end.
std::int32_t levelAtFarEnd_dBmTenths(const NodeState& node, const ChannelState& channel);

/// Whether the receiver of a channel listens to the far end: the radio serves, no loop is closed, no scan has
/// taken the receiver away, and the far end transmits.
bool receivesFarEnd(const NodeState& node, const ChannelState& channel);

/// The channel spacing of a channel's frame, or 28 MHz as long as it has no frame.
std::int32_t channelSpacing_kHz(const ChannelState& channel);

/// The noise that the receiver of a channel sees within its channel spacing, in tenths of a dBm.
std::int32_t noiseFloor_dBmTenths(const ChannelState& channel);

/// The time that a signal travels from end to end, in nanoseconds.
std::uint32_t hopLatency_ns(const NodeState& node);

/// Blocks that the modem receives in a second with all its streams, and bytes in a block.
inline constexpr double kBlocksPerSecond = 1000.0;
inline constexpr double kBytesPerBlock = 200.0;

} // namespace zyr_simulation
