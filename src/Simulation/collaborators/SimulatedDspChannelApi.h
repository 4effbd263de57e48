#pragma once

#include "IDspChannelApi.h"
#include "SimulatedCollaborator.h"

#include <cstdint>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kDspChannelApiOperations{"IDspChannelApi",
                                                                 "getDspTxMode",
                                                                 "setDspTxMode",
                                                                 "getPpfLockStatus",
                                                                 "ppsRtcCalibrationStart",
                                                                 "ppsStatusGet",
                                                                 "ppsHopLengthTimeGet",
                                                                 "ppsConfigure",
                                                                 "ppsOutputModeSet",
                                                                 "onePpsAsymmetryCompensation",
                                                                 "rxChainDelay",
                                                                 "rxEqualizerFeedForwardFilterDelay",
                                                                 "setRxChainDelay",
                                                                 "mimoDiversityMute",
                                                                 "mimoConfigurationSet",
                                                                 "mimoCrossConnectDelayCalibrationStart",
                                                                 "mimoCrossConnectDelayCalibrationStatusGet",
                                                                 "setTxFrequency",
                                                                 "setRxFrequency",
                                                                 "setNarrowWideFilters",
                                                                 "getNarrowWideFilters"};

/// A channel of the DSP. It is configured when it has a frame and frequencies, ACM has been enabled and the
/// phases that close a configuration have run.
class SimulatedDspChannelApi final : public SimulatedCollaborator<IDspChannelApi, kDspChannelApiOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    bool isConfigured() override;

    /// Also blocked while the DSP recovers.
    zyr_top_api::EDspChannelState getChannelState() override;
    zyr_top_api::ETIResult getDspTxMode(bcm::types::ModemChain chain, zyr_top_api::EDspATxMode& mode,
                                        int& sweepTime, int& toneFrequency) override;
    zyr_top_api::ETIResult setDspTxMode(bcm::types::ModemChain chain, zyr_top_api::EDspATxMode mode,
                                        int sweepTime, int toneFrequency) override;

    /// Locked while the link is up.
    zyr_top_api::ETIResult getPpfLockStatus(bool& locked) override;

    /// The coarse calibration, if the mode has one, takes `kPpsCoarseCalibrationTime`, the fine one behind it
    /// `kPpsFineCalibrationTime`. How they end: `startPpsCalibration`. Refuses other modes.
    zyr_top_api::ETIResult ppsRtcCalibrationStart(zyr_top_api::PpsRtcCalibrationMode mode,
                                                  std::uint16_t periodMilliSec) override;
    zyr_top_api::ETIResult ppsStatusGet(zyr_top_api::PpsCalibStatus& status,
                                        zyr_top_api::PpsCalibReasonOfFailure& reason) override;

    /// Refused while the link is down.
    zyr_top_api::ETIResult ppsHopLengthTimeGet(std::uint32_t& nanoSec) override;
    zyr_top_api::ETIResult ppsConfigure(zyr_top_api::PpsSource source, std::uint32_t offsetNanoSec) override;
    zyr_top_api::ETIResult ppsOutputModeSet(zyr_top_api::PpsOutputMode mode) override;
    bool onePpsAsymmetryCompensation(Action action, std::int16_t& nanoSec) override;
    bool rxChainDelay(Action action, bcm::types::ModemChain chain, std::uint8_t& samples) override;
    bool rxEqualizerFeedForwardFilterDelay(Action action, bcm::types::ModemChain chain,
                                           std::uint8_t& samples) override;
    zyr_top_api::ETIResult setRxChainDelay(bcm::types::ModemChain chain, unsigned char delay) override;

    /// The path that `IMimoController` calls the spatial one.
    zyr_top_api::ETIResult mimoDiversityMute(bool mute) override;
    zyr_top_api::ETIResult mimoConfigurationSet() override;

    /// See `beginMimoCalibration`.
    zyr_top_api::ETIResult mimoCrossConnectDelayCalibrationStart() override;
    zyr_top_api::ETIResult
    mimoCrossConnectDelayCalibrationStatusGet(zyr_top_api::MimoCalibrationStatus& status) override;

    /// The next settings of intermediate frequencies and filters fail.
    void injectI2cError(unsigned counter) override;
    zyr_top_api::ETIResult setTxFrequency(int frequency) override;
    zyr_top_api::ETIResult setRxFrequency(int frequency) override;
    zyr_top_api::ETIResult setNarrowWideFilters(std::int32_t filter) override;
    zyr_top_api::ETIResult getNarrowWideFilters(std::int32_t& filter) override;

  private:
    DspChannelState& dsp() const { return channel().dsp; }
    PpsState& pps() const { return channel().pps; }

    /// Keeps a value that goes over the I2C bus, which fails as often as it was told to.
    zyr_top_api::ETIResult setOverI2c(Operation operation, std::int32_t DspChannelState::*field,
                                      std::int32_t value) const;
};

} // namespace zyr_simulation
