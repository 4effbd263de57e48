#pragma once

#include "Answer.h"
#include "IDspChannelApi.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IDspChannelApi`.
class DspChannelApiDouble : public IDspChannelApi, public Recorder
{
  public:
    DspChannelApiDouble(Transcript& transcript, std::string name);
    ~DspChannelApiDouble() override;
    DspChannelApiDouble(const DspChannelApiDouble&) = delete;
    DspChannelApiDouble& operator=(const DspChannelApiDouble&) = delete;

    bool isConfigured() override
    {
        record("isConfigured");
        return onIsConfigured.next();
    }

    zyr_top_api::EDspChannelState getChannelState() override
    {
        record("getChannelState");
        return onGetChannelState.next();
    }

    zyr_top_api::ETIResult getDspTxMode(bcm::types::ModemChain chain, zyr_top_api::EDspATxMode& mode,
                                        int& sweepTime, int& toneFrequency) override
    {
        record("getDspTxMode", chain);
        return onGetDspTxMode.next(mode, sweepTime, toneFrequency);
    }

    zyr_top_api::ETIResult setDspTxMode(bcm::types::ModemChain chain, zyr_top_api::EDspATxMode mode,
                                        int sweepTime, int toneFrequency) override
    {
        record("setDspTxMode", chain, mode, sweepTime, toneFrequency);
        return onSetDspTxMode.next();
    }

    zyr_top_api::ETIResult getPpfLockStatus(bool& locked) override
    {
        record("getPpfLockStatus");
        return defaultsInForce ? IDspChannelApi::getPpfLockStatus(locked) : onGetPpfLockStatus.next(locked);
    }

    zyr_top_api::ETIResult ppsRtcCalibrationStart(zyr_top_api::PpsRtcCalibrationMode mode,
                                                  std::uint16_t periodMilliSec) override
    {
        record("ppsRtcCalibrationStart", mode, periodMilliSec);
        return defaultsInForce ? IDspChannelApi::ppsRtcCalibrationStart(mode, periodMilliSec)
                               : onPpsRtcCalibrationStart.next();
    }

    zyr_top_api::ETIResult ppsStatusGet(zyr_top_api::PpsCalibStatus& status,
                                        zyr_top_api::PpsCalibReasonOfFailure& reason) override
    {
        record("ppsStatusGet");
        return defaultsInForce ? IDspChannelApi::ppsStatusGet(status, reason)
                               : onPpsStatusGet.next(status, reason);
    }

    zyr_top_api::ETIResult ppsHopLengthTimeGet(std::uint32_t& nanoSec) override
    {
        record("ppsHopLengthTimeGet");
        return defaultsInForce ? IDspChannelApi::ppsHopLengthTimeGet(nanoSec)
                               : onPpsHopLengthTimeGet.next(nanoSec);
    }

    zyr_top_api::ETIResult ppsConfigure(zyr_top_api::PpsSource source, std::uint32_t offsetNanoSec) override
    {
        record("ppsConfigure", source, offsetNanoSec);
        return defaultsInForce ? IDspChannelApi::ppsConfigure(source, offsetNanoSec) : onPpsConfigure.next();
    }

    zyr_top_api::ETIResult ppsOutputModeSet(zyr_top_api::PpsOutputMode mode) override
    {
        record("ppsOutputModeSet", mode);
        return defaultsInForce ? IDspChannelApi::ppsOutputModeSet(mode) : onPpsOutputModeSet.next();
    }

    bool onePpsAsymmetryCompensation(Action action, std::int16_t& nanoSec) override
    {
        record("onePpsAsymmetryCompensation", action, nanoSec);
        return defaultsInForce ? IDspChannelApi::onePpsAsymmetryCompensation(action, nanoSec)
                               : onOnePpsAsymmetryCompensation.next(nanoSec);
    }

    bool rxChainDelay(Action action, bcm::types::ModemChain chain, std::uint8_t& samples) override
    {
        record("rxChainDelay", action, chain, samples);
        return defaultsInForce ? IDspChannelApi::rxChainDelay(action, chain, samples)
                               : onRxChainDelay.next(samples);
    }

    bool rxEqualizerFeedForwardFilterDelay(Action action, bcm::types::ModemChain chain,
                                           std::uint8_t& samples) override
    {
        record("rxEqualizerFeedForwardFilterDelay", action, chain, samples);
        return defaultsInForce ? IDspChannelApi::rxEqualizerFeedForwardFilterDelay(action, chain, samples)
                               : onRxEqualizerFeedForwardFilterDelay.next(samples);
    }

    zyr_top_api::ETIResult setRxChainDelay(bcm::types::ModemChain chain, unsigned char delay) override
    {
        record("setRxChainDelay", chain, delay);
        return defaultsInForce ? IDspChannelApi::setRxChainDelay(chain, delay) : onSetRxChainDelay.next();
    }

    zyr_top_api::ETIResult mimoDiversityMute(bool mute) override
    {
        record("mimoDiversityMute", mute);
        return defaultsInForce ? IDspChannelApi::mimoDiversityMute(mute) : onMimoDiversityMute.next();
    }

    zyr_top_api::ETIResult mimoConfigurationSet() override
    {
        record("mimoConfigurationSet");
        return defaultsInForce ? IDspChannelApi::mimoConfigurationSet() : onMimoConfigurationSet.next();
    }

    zyr_top_api::ETIResult mimoCrossConnectDelayCalibrationStart() override
    {
        record("mimoCrossConnectDelayCalibrationStart");
        return defaultsInForce ? IDspChannelApi::mimoCrossConnectDelayCalibrationStart()
                               : onMimoCrossConnectDelayCalibrationStart.next();
    }

    zyr_top_api::ETIResult
    mimoCrossConnectDelayCalibrationStatusGet(zyr_top_api::MimoCalibrationStatus& status) override
    {
        record("mimoCrossConnectDelayCalibrationStatusGet");
        return defaultsInForce ? IDspChannelApi::mimoCrossConnectDelayCalibrationStatusGet(status)
                               : onMimoCrossConnectDelayCalibrationStatusGet.next(status);
    }

    void injectI2cError(unsigned counter) override { record("injectI2cError", counter); }

    zyr_top_api::ETIResult setTxFrequency(int frequency) override
    {
        record("setTxFrequency", frequency);
        return defaultsInForce ? IDspChannelApi::setTxFrequency(frequency) : onSetTxFrequency.next();
    }

    zyr_top_api::ETIResult setRxFrequency(int frequency) override
    {
        record("setRxFrequency", frequency);
        return defaultsInForce ? IDspChannelApi::setRxFrequency(frequency) : onSetRxFrequency.next();
    }

    zyr_top_api::ETIResult setNarrowWideFilters(std::int32_t filter) override
    {
        record("setNarrowWideFilters", filter);
        return defaultsInForce ? IDspChannelApi::setNarrowWideFilters(filter) : onSetNarrowWideFilters.next();
    }

    zyr_top_api::ETIResult getNarrowWideFilters(std::int32_t& filter) override
    {
        record("getNarrowWideFilters");
        return defaultsInForce ? IDspChannelApi::getNarrowWideFilters(filter)
                               : onGetNarrowWideFilters.next(filter);
    }

    Answer<bool> onIsConfigured{true};
    Answer<zyr_top_api::EDspChannelState> onGetChannelState;
    Answer<zyr_top_api::ETIResult, zyr_top_api::EDspATxMode, int, int> onGetDspTxMode;
    Answer<zyr_top_api::ETIResult> onSetDspTxMode;
    Answer<zyr_top_api::ETIResult, bool> onGetPpfLockStatus;
    Answer<zyr_top_api::ETIResult> onPpsRtcCalibrationStart;
    Answer<zyr_top_api::ETIResult, zyr_top_api::PpsCalibStatus, zyr_top_api::PpsCalibReasonOfFailure>
        onPpsStatusGet;
    Answer<zyr_top_api::ETIResult, std::uint32_t> onPpsHopLengthTimeGet;
    Answer<zyr_top_api::ETIResult> onPpsConfigure;
    Answer<zyr_top_api::ETIResult> onPpsOutputModeSet;
    Answer<bool, std::int16_t> onOnePpsAsymmetryCompensation{true};
    Answer<bool, std::uint8_t> onRxChainDelay{true};
    Answer<bool, std::uint8_t> onRxEqualizerFeedForwardFilterDelay{true};
    Answer<zyr_top_api::ETIResult> onSetRxChainDelay;
    Answer<zyr_top_api::ETIResult> onMimoDiversityMute;
    Answer<zyr_top_api::ETIResult> onMimoConfigurationSet;
    Answer<zyr_top_api::ETIResult> onMimoCrossConnectDelayCalibrationStart;
    Answer<zyr_top_api::ETIResult, zyr_top_api::MimoCalibrationStatus>
        onMimoCrossConnectDelayCalibrationStatusGet;
    Answer<zyr_top_api::ETIResult> onSetTxFrequency;
    Answer<zyr_top_api::ETIResult> onSetRxFrequency;
    Answer<zyr_top_api::ETIResult> onSetNarrowWideFilters;
    Answer<zyr_top_api::ETIResult, std::int32_t> onGetNarrowWideFilters;
};

} // namespace zyr_test
