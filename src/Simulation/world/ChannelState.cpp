#include "ChannelState.h"

#include <algorithm>

namespace zyr_simulation
{

using zyr_top_api::EDspChannelState;

ChainDelays& DspChannelState::delaysOf(bcm::types::ModemChain chain)
{
    const auto found = std::ranges::find(chainDelays, chain, &ChainDelays::chain);
    return found != chainDelays.end() ? *found : chainDelays.emplace_back(ChainDelays{.chain = chain});
}

EDspChannelState ChannelState::configuration() const
{
    const bool hasFrame = radioFrameId != 0;
    const bool hasFrequencies = txFrequency_kHz != 0 && rxFrequency_kHz != 0;
    if (!hasFrame && !hasFrequencies && !acmConfigured) {
        return EDspChannelState::Blocked;
    }
    if (!hasFrame || !hasFrequencies || !acmConfigured) {
        return EDspChannelState::IncompleteConfiguration;
    }
    return closingPhasesRun ? EDspChannelState::Configured : EDspChannelState::AcmConfigured;
}

} // namespace zyr_simulation
