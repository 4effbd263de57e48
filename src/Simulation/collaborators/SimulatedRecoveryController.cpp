#include "SimulatedRecoveryController.h"

#include "Processes.h"

#include <algorithm>

namespace zyr_simulation
{

using zyr_top_api::ETIResult;
using zyr_top_api::ETxPowerOverrideState;
using zyr_top_api::Recover;

namespace
{

/// Whether some channel is being configured, or was left half configured: its transmitter is forced off for
/// that, or its ACM muted.
bool isConfigurationUnderWay(const NodeState& node)
{
    return std::ranges::any_of(node.channels, [](const ChannelState& channel) {
        return channel.acmMuted || channel.transmitter.overridden == ETxPowerOverrideState::ForcedOff;
    });
}

void restartDsp(NodeState& node, Recover recover)
{
    node.dsp.type = node.dsp.pendingType;
    node.dsp.isRecovering = true;
    node.dsp.lastRecovery = recover;
    ++node.dsp.recoveries;
    node.dsp.recoveryEndsAt =
        node.settleAfter(recover == Recover::Dsp ? kDspRecoveryTime : kDspRecoveryWithoutConfigTime);
    node.alarms.raise(alarm::kDspRecovery, 0);
    if (recover == Recover::Dsp) {
        for (auto& channel : node.channels) {
            channel.receiver.received = {};
        }
    }
}

} // namespace

ETIResult SimulatedRecoveryController::startDspRecovery(Recover recover)
{
    return perform<ETIResult>("startDspRecovery", [&] {
        if (recover != Recover::DspWithoutConfig && recover != Recover::Dsp) {
            return zyr_top_api::eTI_E_INVALID_ARGUMENT;
        }
        if (node().dsp.isRecovering && !isConfigurationUnderWay(node())) {
            return zyr_top_api::eTI_E_OPERATION_NOT_ALLOWED;
        }
        restartDsp(node(), recover);
        return zyr_top_api::eTI_S_OK;
    });
}

} // namespace zyr_simulation
