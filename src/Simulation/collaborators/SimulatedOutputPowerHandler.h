#pragma once

#include "IOutputPowerHandler.h"
#include "SimulatedCollaborator.h"

#include <cstdint>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kOutputPowerHandlerOperations{
    "IOutputPowerHandler",  "getReducedGain",     "getTxRfGain",  "setTxRfGain", "setBarOn",
    "getTxIfOutputPower",   "setTxIfOutputPower", "setTxIfBarOn", "getDacValue", "testGetDetectedPower",
    "testGetDetectorInUse", "testGetDetectorData"};

/// The chain of channel 1's transmitter. Gains and powers are in tenths of a dB or of a dBm. What is set here
/// doesn't act on the power that is sent; what is detected is that power.
class SimulatedOutputPowerHandler final
    : public SimulatedCollaborator<IOutputPowerHandler, kOutputPowerHandlerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    /// 1 dB less for each amplifier, counted from 1. Refuses other amplifiers than 1 to 6.
    zyr_top_api::ETIResult getReducedGain(unsigned amplifier, std::int32_t& gain) override;
    zyr_top_api::ETIResult getTxRfGain(std::int32_t& gain) override;

    /// Refuses gains outside -300 to 300.
    zyr_top_api::ETIResult setTxRfGain(std::int32_t gain) override;
    zyr_top_api::ETIResult setBarOn(bool on) override;
    bool isBarOn() override;
    zyr_top_api::ETIResult getTxIfOutputPower(std::int32_t& power) override;
    zyr_top_api::ETIResult setTxIfOutputPower(std::int32_t power) override;
    zyr_top_api::ETIResult setTxIfBarOn(bool on) override;
    bool isTxIfBarOn() override;

    /// 2048 for 0 dBm at intermediate frequency, within 0 to 4095.
    zyr_top_api::ETIResult getDacValue(std::int32_t& value) override;
    zyr_top_api::ETIResult testGetDetectedPower(std::int32_t& power) override;

    /// The high detector serves from 10 dBm up; the levels at which they change are 10 and 8 dBm.
    zyr_top_api::ETIResult testGetDetectorInUse(bool& usingHigh, std::int32_t& switchToHighLevel,
                                                std::int32_t& switchToLowLevel) override;
    zyr_top_api::ETIResult testGetDetectorData(zyr_top_api::TxDetectorData& data) override;

  private:
    TransmitterChainState& chain() const { return channel().transmitterChain; }
};

} // namespace zyr_simulation
