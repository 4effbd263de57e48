#pragma once

#include "CollaboratorResults.h"
#include "IInterface.h"
#include "ISpcSimulatedObject.h"

/// The simulator of power control of one channel, published as "ISpcSimulator_<n>". Called by `TiManageSpc`.
class ZYR_EXPORT ISpcSimulator : public IInterface
{
  public:
    /// Sweeps the level between `min` and `max` from `start` in steps of `step`: mode 0 up, 1 down, 2 stop.
    /// The result is ignored.
    virtual ESPCResult simulate(unsigned mode, int min, int max, double start, double step) = 0;

    /// Whether a sweep is running.
    virtual bool isSimulating() = 0;

    /// The object that the simulation runs on.
    virtual ISpcSimulatedObject* getSimulatedObject() = 0;

    /// Puts an object under simulation, or takes it out.
    virtual void setSimulated(ISpcSimulatedObject* object, bool simulated) = 0;
};
