#include "SimulatedAcmHandler.h"

#include "ModulationLadder.h"

namespace zyr_simulation
{

using zyr_top_api::ETIResult;
using zyr_top_api::Modulation;
using zyr_top_api::ModulationAndCoding;

EACMHResult SimulatedAcmHandler::enableAcm(bool enable)
{
    const auto setEnabled = [&] {
        channel().acmEnabled = enable;
        channel().acmMuted = channel().acmMuted && !enable;
        channel().acmConfigured = channel().acmConfigured || enable;
        node().alarms.set(alarm::kAcmDisabled, channel().number, !enable);
        return eACMH_S_OK;
    };
    return perform<EACMHResult>("enableAcm", [&] {
        return enable ? channel().dsp.acmEnableFailure.orElse<EACMHResult>(setEnabled) : setEnabled();
    });
}

EACMHResult SimulatedAcmHandler::muteAcm()
{
    return perform<EACMHResult>("muteAcm", [&] { channel().acmMuted = true; });
}

EACMHResult SimulatedAcmHandler::restoreAcm()
{
    return perform<EACMHResult>("restoreAcm", [&] { channel().acmMuted = false; });
}

EACMHResult SimulatedAcmHandler::setMinMaxModulationAndCode(ModulationAndCoding min, ModulationAndCoding max)
{
    return perform<EACMHResult>("setMinMaxModulationAndCode", [&] {
        const auto lowest = ladderStep(min);
        const auto highest = ladderStep(max);
        if (!lowest || !highest || *lowest > *highest) {
            return eACMH_E_FAILED;
        }
        channel().minModulation = min;
        channel().maxModulation = max;
        return eACMH_S_OK;
    });
}

EACMHResult SimulatedAcmHandler::getPhyMode(ModulationAndCoding modulation, unsigned& phyMode)
{
    return ask<EACMHResult>("getPhyMode", [&] {
        const auto step = ladderStep(modulation);
        if (!step) {
            return eACMH_E_FAILED;
        }
        phyMode = *step;
        return eACMH_S_OK;
    });
}

EACMHResult SimulatedAcmHandler::isFarEndPmaxCapabilityDifferent(const std::map<Modulation, int>& capability)
{
    return ask<EACMHResult>("isFarEndPmaxCapabilityDifferent", [&] {
        return capability == channel().farEndPmaxCapability ? eACMH_S_OK : eACMH_S_DIFFERENT;
    });
}

EACMHResult SimulatedAcmHandler::setFarEndPmaxCapability(const std::map<Modulation, int>& capability)
{
    const auto setCapability = [&] {
        channel().farEndPmaxCapability = capability;
        channel().farEndPmaxCached = !channel().isConfigured() || node().dsp.isRecovering;
        if (!channel().farEndPmaxCached) {
            channel().farEndPmaxInForce = capability;
        }
        return channel().farEndPmaxCached ? eACMH_E_CACHED : eACMH_S_OK;
    };
    return perform<EACMHResult>("setFarEndPmaxCapability", [&] {
        return channel().dsp.acmThresholdFailure.orElse<EACMHResult>(setCapability);
    });
}

void SimulatedAcmHandler::cacheThresholds()
{
    locked([&] { channel().thresholdsCached = true; });
}

void SimulatedAcmHandler::disableModulation()
{
    locked([&] { channel().modulationDisabled = true; });
}

void SimulatedAcmHandler::enableModulation()
{
    locked([&] { channel().modulationDisabled = false; });
}

EACMHResult SimulatedAcmHandler::syncAfterWarmRestart()
{
    return perform<EACMHResult>("syncAfterWarmRestart", [&] { ++channel().acmSyncs; });
}

ETIResult SimulatedAcmHandler::getLowestModulationAndCode(ModulationAndCoding& rx, ModulationAndCoding& tx,
                                                          bool reset)
{
    return perform<ETIResult>("getLowestModulationAndCode", [&] {
        auto& receiver = channel().receiver;
        rx = receiver.lowestRxModulation;
        tx = receiver.lowestTxModulation;
        if (reset) {
            receiver.lowestRxModulation = receiver.rxModulation;
            receiver.lowestTxModulation = receiver.txModulation;
        }
    });
}

ModulationAndCoding SimulatedAcmHandler::getCurrentTxModulationAndCode() const
{
    return read([&] { return channel().receiver.txModulation; });
}

ModulationAndCoding SimulatedAcmHandler::getCurrentRxModulationAndCode() const
{
    return read([&] { return channel().receiver.rxModulation; });
}

} // namespace zyr_simulation
