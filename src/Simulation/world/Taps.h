#pragma once

#include "NodeState.h"
#include "TapsLogData.h"

#include <cstdint>

namespace zyr_simulation
{

/// What TAPS makes of a channel's power window. Rates are in Mbit/s.
struct TapsDecision
{
    std::int32_t rateNeeded = 0;
    std::int32_t idleRate = 0;
    std::int32_t idleRateThreshold = 0;
    std::int32_t deltaPower = 0; ///< Of the window's upper end, in tenths of a dB; 0 or below.
};

/// Works out how far TAPS lowers the upper end of a channel's power window at this moment:
///
/// - the channel's traffic is a slow wave between a tenth and nine tenths of its greatest rate; the rate that
/// is
///   needed is that and the offset that is set, but no more than the greatest rate; what is left is idle;
/// - the threshold of the idle rate is a tenth of the greatest rate, times the factor that is set;
/// - while TAPS is on and the idle rate is not below its threshold, the upper end falls by what the most
/// robust modulation that carries the needed rate needs less SNIR than the greatest one, as far as the window
/// reaches.
///
/// The K value and HRLB are kept, but don't count.
TapsDecision tapsDecision(const NodeState& node, const ChannelState& channel);

/// A sample of the log of TAPS as the channel is now.
/// @param now  the time that it bears
zyr_top_api::TapsLogData tapsSample(const NodeState& node, const ChannelState& channel,
                                    std::chrono::nanoseconds now);

} // namespace zyr_simulation
