#pragma once

#include "CollaboratorResults.h"
#include "IInterface.h"
#include "SpcObservee.h"

#include <cstdint>
#include <string>

/// TAPS of one channel. Unless an operation says otherwise, results from 0x8000 are failures.
class ZYR_EXPORT ITapsController : public IInterface, public SpcObservee<ITapsController>
{
  public:
    /// "ITapsController_<n>", under which the controller of a channel is published.
    static std::string interfaceName(zyr_top_api::RadioChannel channel)
    {
        return IInterface::interfaceName("ITapsController", channel);
    }

    /// Switches TAPS on or off. Called by `CriSetRfPower` and `TiManageTaps`.
    virtual ESPCResult setTapsEnable(bool enable) = 0;

    /// Whether TAPS is on. Called by `TiManageTaps`, as all further operations are.
    virtual bool getTapsEnable() = 0;

    /// Sets the offset of the idle rate; the last argument is always 1 and its sense is the controller's. The
    /// result is ignored.
    virtual ESPCResult setIdleRateOffset(std::int32_t value, int) = 0;

    /// Sets the factor of the idle rate's threshold. The result is ignored.
    virtual ESPCResult setIdleRateThresholdFactor(double value) = 0;

    /// Sets the K value. The result is ignored.
    virtual ESPCResult setKvalue(std::int32_t value) = 0;

    /// Switches HRLB on or off; also called by `CriSetRfPower`. The result is ignored.
    virtual ESPCResult setHrlbEnabled(bool enabled) = 0;

    /// The offset of the idle rate.
    virtual std::int32_t getIdleRateOffset() = 0;

    /// The factor of the idle rate's threshold.
    virtual double getIdleRateThresholdFactor() = 0;

    /// The K value.
    virtual std::int32_t getKvalue() = 0;

    /// Whether HRLB is on.
    virtual bool getHrlbEnabled() = 0;
};
