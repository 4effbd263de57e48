#pragma once

#include "ETIResult.h"
#include "IInterface.h"
#include "TxDetectorData.h"

#include <cstdint>

/// Test access to the transmitter chain. Looked up as "IOutputPowerHandler.1", with a full stop and always 1.
///
/// Called by `TiManageTXRFGain`, `TiManageTXIFOutputPower` and `TiGetTXRFDetectedOutputPower`. Gains and
/// powers are in the handler's units. A bar that is on keeps a test's value from being changed by power
/// control.
class ZYR_EXPORT IOutputPowerHandler : public IInterface
{
  public:
    /// Gives the reduced gain of an amplifier, 1 to 6. The result is ignored.
    virtual zyr_top_api::ETIResult getReducedGain(unsigned amplifier, std::int32_t& gain) = 0;

    /// Gives the gain at radio frequency. The result is ignored.
    virtual zyr_top_api::ETIResult getTxRfGain(std::int32_t& gain) = 0;

    /// Sets the gain at radio frequency. Results from 0x8000 mean that the gain is refused.
    virtual zyr_top_api::ETIResult setTxRfGain(std::int32_t gain) = 0;

    /// Bars the gain at radio frequency. The result is ignored.
    virtual zyr_top_api::ETIResult setBarOn(bool on) = 0;

    /// Whether the gain at radio frequency is barred.
    virtual bool isBarOn() = 0;

    /// Gives the output power at intermediate frequency. The result is ignored.
    virtual zyr_top_api::ETIResult getTxIfOutputPower(std::int32_t& power) = 0;

    /// Sets the output power at intermediate frequency. The result is ignored.
    virtual zyr_top_api::ETIResult setTxIfOutputPower(std::int32_t power) = 0;

    /// Bars the output power at intermediate frequency. The result is ignored.
    virtual zyr_top_api::ETIResult setTxIfBarOn(bool on) = 0;

    /// Whether the output power at intermediate frequency is barred.
    virtual bool isTxIfBarOn() = 0;

    /// Gives the setting of the digital to analogue converter. The result is ignored.
    virtual zyr_top_api::ETIResult getDacValue(std::int32_t& value) = 0;

    /// Gives the power that the detector in use sees. Results from 0x8000 are failures.
    virtual zyr_top_api::ETIResult testGetDetectedPower(std::int32_t& power) = 0;

    /// Gives which detector is in use and the levels at which it changes. Results from 0x8000 are failures.
    virtual zyr_top_api::ETIResult testGetDetectorInUse(bool& usingHigh, std::int32_t& switchToHighLevel,
                                                        std::int32_t& switchToLowLevel) = 0;

    /// Gives what one detector reports: `data.highDetector` selects it, the rest is filled. Results from
    /// 0x8000 are failures.
    virtual zyr_top_api::ETIResult testGetDetectorData(zyr_top_api::TxDetectorData& data) = 0;
};
