#include "SimulatedRecoveryController.h"

#include "Processes.h"

namespace zyr_simulation
{

using zyr_top_api::ETIResult;
using zyr_top_api::Recover;

namespace
{

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
        restartDsp(node(), recover);
        return zyr_top_api::eTI_S_OK;
    });
}

} // namespace zyr_simulation
