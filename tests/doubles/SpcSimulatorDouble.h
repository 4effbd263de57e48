#pragma once

#include "Answer.h"
#include "ISpcSimulator.h"
#include "Recorder.h"

namespace zyr_test
{

/// Recording double of `ISpcSimulator`.
class SpcSimulatorDouble : public ISpcSimulator, public Recorder
{
  public:
    using Recorder::Recorder;

    ESPCResult simulate(unsigned mode, int min, int max, double start, double step) override
    {
        record("simulate", mode, min, max, start, step);
        return onSimulate.next();
    }

    bool isSimulating() override
    {
        record("isSimulating");
        return onIsSimulating.next();
    }

    ISpcSimulatedObject* getSimulatedObject() override
    {
        record("getSimulatedObject");
        return onGetSimulatedObject.next();
    }

    void setSimulated(ISpcSimulatedObject* object, bool simulated) override
    {
        record("setSimulated", object, simulated);
    }

    Answer<ESPCResult> onSimulate;
    Answer<bool> onIsSimulating;
    Answer<ISpcSimulatedObject*> onGetSimulatedObject;
};

} // namespace zyr_test
