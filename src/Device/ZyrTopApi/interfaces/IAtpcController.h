#pragma once

#include "IInterface.h"
#include "ISpcSimulatedObject.h"

#include <cstdint>

/// Automatic transmit power control of one channel, published as "IAtpcController_<n>".
class ZYR_EXPORT IAtpcController : public IInterface
{
  public:
    /// The input power that power control aims at. Called by `TiManageRfPower`.
    virtual std::int32_t getTargetInputPower() = 0;

    /// The object that a simulation is to run on. Called by `TiManageSpc` to start a sweep; the controller
    /// owns it.
    virtual ISpcSimulatedObject* getSimulatedObject() = 0;

    /// Takes back the object of a simulation that has been stopped. Called by `TiManageSpc`.
    virtual void release(ISpcSimulatedObject* object) = 0;

    /// Sets a gain. Called by `TiManageSpc` with kind 3 and a hundred times the requested value.
    virtual void setGain(unsigned kind, double value) = 0;

    /// A gain. Called by `TiManageSpc` with kind 3.
    virtual double getGain(unsigned kind) = 0;
};
