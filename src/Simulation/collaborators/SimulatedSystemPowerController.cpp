#include "SimulatedSystemPowerController.h"

namespace zyr_simulation
{

using zyr_top_api::ETxPowerOverrideState;
using zyr_top_api::ForceLoopMode;
using zyr_top_api::ReferenceSec;
using zyr_top_api::TxRequestedStatus;

bool SimulatedSystemPowerController::isConfigurationBypassed()
{
    return locked([&] { return node().settings.configurationBypassed; });
}

ESPCResult SimulatedSystemPowerController::setReferenceSec(ReferenceSec referenceSec)
{
    return perform<ESPCResult>("setReferenceSec", [&] { transmitter().referenceSec = referenceSec; });
}

ESPCResult SimulatedSystemPowerController::setTemporaryPmaxCapability()
{
    return perform<ESPCResult>("setTemporaryPmaxCapability",
                               [&] { transmitter().temporaryPmaxCapability = true; });
}

ESPCResult SimulatedSystemPowerController::overrideTxPowerState(ETxPowerOverrideState state)
{
    return perform<ESPCResult>("overrideTxPowerState", [&] { transmitter().overridden = state; });
}

ESPCResult SimulatedSystemPowerController::onTxFrequencyChanged(unsigned frequency_kHz)
{
    return perform<ESPCResult>("onTxFrequencyChanged",
                               [&] { transmitter().toldFrequency_kHz = frequency_kHz; });
}

ESPCResult SimulatedSystemPowerController::notifyRequestedPowerSettings(bool fallbackEnable,
                                                                        int fallbackOutputPower,
                                                                        unsigned fallbackTimer)
{
    return perform<ESPCResult>("notifyRequestedPowerSettings", [&] {
        transmitter().fallbackEnabled = fallbackEnable;
        transmitter().fallbackPower = fallbackOutputPower;
        transmitter().fallbackTimer = fallbackTimer;
    });
}

ESPCResult SimulatedSystemPowerController::configurePowerSettings(TxRequestedStatus status,
                                                                  int targetRfInputPowerFarEnd,
                                                                  int minRfOutputPower, int maxRfOutputPower,
                                                                  int, int)
{
    return perform<ESPCResult>("configurePowerSettings", [&] {
        if (minRfOutputPower > maxRfOutputPower) {
            return eSPC_E_FAILED;
        }
        if (!transmitter().requestedBarred) {
            transmitter().requested = status;
        }
        if (!transmitter().targetBarred) {
            transmitter().farEndTarget = targetRfInputPowerFarEnd;
        }
        if (!transmitter().windowBarred) {
            transmitter().minPower = minRfOutputPower;
            transmitter().maxPower = maxRfOutputPower;
        }
        return eSPC_S_OK;
    });
}

ESPCResult SimulatedSystemPowerController::setAdminRequestedTxPowerState(TxRequestedStatus status, int)
{
    return perform<ESPCResult>("setAdminRequestedTxPowerState", [&] {
        if (!transmitter().requestedBarred) {
            transmitter().requested = status;
        }
    });
}

ESPCResult SimulatedSystemPowerController::syncAfterWarmRestart()
{
    return perform<ESPCResult>("syncAfterWarmRestart", [&] { ++transmitter().warmRestartSyncs; });
}

ESPCResult SimulatedSystemPowerController::prepareRadioRestart()
{
    return perform<ESPCResult>("prepareRadioRestart", [&] { ++channel().radio.preparations; });
}

std::int32_t SimulatedSystemPowerController::getReportedOutputPower()
{
    return locked([&] { return transmitter().power; });
}

bool SimulatedSystemPowerController::getTxBarOn()
{
    return locked([&] { return transmitter().requestedBarred; });
}

TxRequestedStatus SimulatedSystemPowerController::getTxRequestedStatus()
{
    return locked([&] { return transmitter().requested; });
}

bool SimulatedSystemPowerController::getTargetInputPowerBarOn()
{
    return locked([&] { return transmitter().targetBarred; });
}

bool SimulatedSystemPowerController::getOutputPowerBarOn()
{
    return locked([&] { return transmitter().windowBarred; });
}

std::int32_t SimulatedSystemPowerController::getMinOutputPower()
{
    return locked([&] { return transmitter().minPower; });
}

std::int32_t SimulatedSystemPowerController::getMaxOutputPower()
{
    return locked([&] { return transmitter().maxPower; });
}

bool SimulatedSystemPowerController::getIgnorePowerLimits()
{
    return locked([&] { return transmitter().ignoresLimits; });
}

ForceLoopMode SimulatedSystemPowerController::getForceLoopMode()
{
    return locked([&] { return transmitter().loopMode; });
}

ESPCResult SimulatedSystemPowerController::overridePowerSettings(
    bool txRequestedStatusBarOn, TxRequestedStatus txRequestedStatus, bool targetRfInputPowerBarOn,
    int targetRfInputPower, bool rfOutputPowerBarOn, int minRfOutputPower, int maxRfOutputPower,
    bool ignorePowerLimits, ForceLoopMode forceLoopMode)
{
    return perform<ESPCResult>("overridePowerSettings", [&] {
        if (minRfOutputPower > maxRfOutputPower) {
            return eSPC_E_FAILED;
        }
        transmitter().requestedBarred = txRequestedStatusBarOn;
        transmitter().requested = txRequestedStatus;
        transmitter().targetBarred = targetRfInputPowerBarOn;
        transmitter().farEndTarget = targetRfInputPower;
        transmitter().windowBarred = rfOutputPowerBarOn;
        transmitter().minPower = minRfOutputPower;
        transmitter().maxPower = maxRfOutputPower;
        transmitter().ignoresLimits = ignorePowerLimits;
        transmitter().loopMode = forceLoopMode;
        return eSPC_S_OK;
    });
}

} // namespace zyr_simulation
