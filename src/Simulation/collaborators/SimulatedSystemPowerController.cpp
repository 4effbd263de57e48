#include "SimulatedSystemPowerController.h"

#include <optional>
#include <tuple>
#include <utility>

namespace zyr_simulation
{

using zyr_top_api::ETxPowerOverrideState;
using zyr_top_api::ForceLoopMode;
using zyr_top_api::ReferenceSec;
using zyr_top_api::TxRequestedStatus;

namespace
{

/// Puts a commanded value into force, or keeps it until the bar goes.
template <class Value>
void command(bool isBarred, Value value, Value& inForce, std::optional<Value>& behindBar)
{
    if (isBarred) {
        behindBar = value;
    } else {
        inForce = value;
    }
}

/// Sets a bar and what is held behind it; when the bar goes, what was commanded meanwhile comes into force.
template <class Value>
void hold(bool isBarred, Value value, bool& bar, Value& inForce, std::optional<Value>& behindBar)
{
    bar = isBarred;
    inForce = isBarred ? value : behindBar.value_or(value);
    if (!isBarred) {
        behindBar.reset();
    }
}

} // namespace

bool SimulatedSystemPowerController::isConfigurationBypassed()
{
    return read([&] { return node().settings.configurationBypassed; });
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
        auto& state = transmitter();
        std::pair window(state.minPower, state.maxPower);
        command(state.requestedBarred, status, state.requested, state.requestedBehindBar);
        command(state.targetBarred, targetRfInputPowerFarEnd, state.farEndTarget, state.targetBehindBar);
        command(state.windowBarred, std::pair(minRfOutputPower, maxRfOutputPower), window,
                state.windowBehindBar);
        std::tie(state.minPower, state.maxPower) = window;
        return eSPC_S_OK;
    });
}

ESPCResult SimulatedSystemPowerController::setAdminRequestedTxPowerState(TxRequestedStatus status, int)
{
    return perform<ESPCResult>("setAdminRequestedTxPowerState", [&] {
        command(transmitter().requestedBarred, status, transmitter().requested,
                transmitter().requestedBehindBar);
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
    return read([&] { return transmitter().power; });
}

bool SimulatedSystemPowerController::getTxBarOn()
{
    return read([&] { return transmitter().requestedBarred; });
}

TxRequestedStatus SimulatedSystemPowerController::getTxRequestedStatus()
{
    return read([&] { return transmitter().requested; });
}

bool SimulatedSystemPowerController::getTargetInputPowerBarOn()
{
    return read([&] { return transmitter().targetBarred; });
}

bool SimulatedSystemPowerController::getOutputPowerBarOn()
{
    return read([&] { return transmitter().windowBarred; });
}

std::int32_t SimulatedSystemPowerController::getMinOutputPower()
{
    return read([&] { return transmitter().minPower; });
}

std::int32_t SimulatedSystemPowerController::getMaxOutputPower()
{
    return read([&] { return transmitter().maxPower; });
}

bool SimulatedSystemPowerController::getIgnorePowerLimits()
{
    return read([&] { return transmitter().ignoresLimits; });
}

ForceLoopMode SimulatedSystemPowerController::getForceLoopMode()
{
    return read([&] { return transmitter().loopMode; });
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
        auto& state = transmitter();
        std::pair window(state.minPower, state.maxPower);
        hold(txRequestedStatusBarOn, txRequestedStatus, state.requestedBarred, state.requested,
             state.requestedBehindBar);
        hold(targetRfInputPowerBarOn, targetRfInputPower, state.targetBarred, state.farEndTarget,
             state.targetBehindBar);
        hold(rfOutputPowerBarOn, std::pair(minRfOutputPower, maxRfOutputPower), state.windowBarred, window,
             state.windowBehindBar);
        std::tie(state.minPower, state.maxPower) = window;
        state.ignoresLimits = ignorePowerLimits;
        state.loopMode = forceLoopMode;
        return eSPC_S_OK;
    });
}

} // namespace zyr_simulation
