#include "SimulatedDspChannelApi.h"

#include "Hop.h"
#include "Mimo.h"
#include "Pps.h"
#include "Processes.h"

namespace zyr_simulation
{

using bcm::types::ModemChain;
using zyr_top_api::EDspATxMode;
using zyr_top_api::EDspChannelState;
using zyr_top_api::ETIResult;
using zyr_top_api::MimoCalibrationStatus;
using zyr_top_api::PpsCalibReasonOfFailure;
using zyr_top_api::PpsCalibStatus;
using zyr_top_api::PpsRtcCalibrationMode;

namespace
{

/// Reads a value of the DSP into the argument, or writes the argument to it.
template <class Value>
void exchange(Action action, Value& value, Value& argument)
{
    if (action == Action::Read) {
        argument = value;
    } else {
        value = argument;
    }
}

} // namespace

bool SimulatedDspChannelApi::isConfigured()
{
    return read([&] { return channel().isConfigured(); });
}

EDspChannelState SimulatedDspChannelApi::getChannelState()
{
    return read(
        [&] { return node().dsp.isRecovering ? EDspChannelState::Blocked : channel().configuration(); });
}

ETIResult SimulatedDspChannelApi::getDspTxMode(ModemChain chain, EDspATxMode& mode, int& sweepTime,
                                               int& toneFrequency)
{
    return ask<ETIResult>("getDspTxMode", [&] {
        const auto& signal = dsp().txSignals[chain];
        mode = signal.mode;
        sweepTime = signal.sweepTime;
        toneFrequency = signal.toneFrequency;
    });
}

ETIResult SimulatedDspChannelApi::setDspTxMode(ModemChain chain, EDspATxMode mode, int sweepTime,
                                               int toneFrequency)
{
    return perform<ETIResult>("setDspTxMode", [&] {
        dsp().txSignals[chain] = {mode, sweepTime, toneFrequency};
    });
}

ETIResult SimulatedDspChannelApi::getPpfLockStatus(bool& locked)
{
    return ask<ETIResult>("getPpfLockStatus", [&] { locked = channel().receiver.isLinkUp; });
}

ETIResult SimulatedDspChannelApi::ppsRtcCalibrationStart(PpsRtcCalibrationMode mode,
                                                         std::uint16_t periodMilliSec)
{
    return perform<ETIResult>("ppsRtcCalibrationStart", [&] {
        return startPpsCalibration(node(), channel(), mode, periodMilliSec)
                   ? zyr_top_api::eTI_S_OK
                   : zyr_top_api::eTI_E_INVALID_ARGUMENT;
    });
}

ETIResult SimulatedDspChannelApi::ppsStatusGet(PpsCalibStatus& status, PpsCalibReasonOfFailure& reason)
{
    return ask<ETIResult>("ppsStatusGet", [&] {
        status = pps().calibration;
        reason = pps().reasonOfFailure;
    });
}

ETIResult SimulatedDspChannelApi::ppsHopLengthTimeGet(std::uint32_t& nanoSec)
{
    return ask<ETIResult>("ppsHopLengthTimeGet", [&] {
        if (!channel().receiver.isLinkUp) {
            return zyr_top_api::eTI_E_FAILED;
        }
        nanoSec = hopLatency_ns(node());
        return zyr_top_api::eTI_S_OK;
    });
}

ETIResult SimulatedDspChannelApi::ppsConfigure(zyr_top_api::PpsSource source, std::uint32_t offsetNanoSec)
{
    return perform<ETIResult>("ppsConfigure", [&] {
        pps().source = source;
        pps().offset_ns = offsetNanoSec;
    });
}

ETIResult SimulatedDspChannelApi::ppsOutputModeSet(zyr_top_api::PpsOutputMode mode)
{
    return perform<ETIResult>("ppsOutputModeSet", [&] { pps().outputMode = mode; });
}

bool SimulatedDspChannelApi::onePpsAsymmetryCompensation(Action action, std::int16_t& nanoSec)
{
    return perform<bool>("onePpsAsymmetryCompensation",
                         [&] { exchange(action, pps().asymmetry_ns, nanoSec); });
}

bool SimulatedDspChannelApi::rxChainDelay(Action action, ModemChain chain, std::uint8_t& samples)
{
    return perform<bool>("rxChainDelay", [&] { exchange(action, dsp().delaysOf(chain).adjFifo, samples); });
}

bool SimulatedDspChannelApi::rxEqualizerFeedForwardFilterDelay(Action action, ModemChain chain,
                                                               std::uint8_t& samples)
{
    return perform<bool>("rxEqualizerFeedForwardFilterDelay",
                         [&] { exchange(action, dsp().delaysOf(chain).fffFifo, samples); });
}

ETIResult SimulatedDspChannelApi::setRxChainDelay(ModemChain chain, unsigned char delay)
{
    return perform<ETIResult>("setRxChainDelay", [&] { dsp().delaysOf(chain).adjFifo = delay; });
}

ETIResult SimulatedDspChannelApi::mimoDiversityMute(bool mute)
{
    return perform<ETIResult>("mimoDiversityMute", [&] { channel().mimo.isSpatialMuted = mute; });
}

ETIResult SimulatedDspChannelApi::mimoConfigurationSet()
{
    return perform<ETIResult>("mimoConfigurationSet", [&] { applyMimoConfiguration(node(), channel()); });
}

ETIResult SimulatedDspChannelApi::mimoCrossConnectDelayCalibrationStart()
{
    return perform<ETIResult>("mimoCrossConnectDelayCalibrationStart",
                              [&] { beginMimoCalibration(node(), channel()); });
}

ETIResult SimulatedDspChannelApi::mimoCrossConnectDelayCalibrationStatusGet(MimoCalibrationStatus& status)
{
    return ask<ETIResult>("mimoCrossConnectDelayCalibrationStatusGet",
                          [&] { status = channel().mimo.calibration; });
}

void SimulatedDspChannelApi::injectI2cError(unsigned counter)
{
    locked([&] { dsp().i2cFailure = {zyr_top_api::eTI_E_FAILED, counter}; });
}

ETIResult SimulatedDspChannelApi::setOverI2c(Operation operation, std::int32_t DspChannelState::*field,
                                             std::int32_t value) const
{
    return perform<ETIResult>(
        operation, [&] { return dsp().i2cFailure.orElse<ETIResult>([&] { dsp().*field = value; }); });
}

ETIResult SimulatedDspChannelApi::setTxFrequency(int frequency)
{
    return setOverI2c("setTxFrequency", &DspChannelState::txIfFrequency, frequency);
}

ETIResult SimulatedDspChannelApi::setRxFrequency(int frequency)
{
    return setOverI2c("setRxFrequency", &DspChannelState::rxIfFrequency, frequency);
}

ETIResult SimulatedDspChannelApi::setNarrowWideFilters(std::int32_t filter)
{
    return setOverI2c("setNarrowWideFilters", &DspChannelState::filters, filter);
}

ETIResult SimulatedDspChannelApi::getNarrowWideFilters(std::int32_t& filter)
{
    return ask<ETIResult>("getNarrowWideFilters", [&] { filter = dsp().filters; });
}

} // namespace zyr_simulation
