#pragma once

#include "Answer.h"
#include "ISpcSimulator.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `ISpcSimulator`.
class SpcSimulatorDouble : public ISpcSimulator, public Recorder
{
  public:
    SpcSimulatorDouble(Transcript& transcript, std::string name);
    ~SpcSimulatorDouble() override;
    SpcSimulatorDouble(const SpcSimulatorDouble&) = delete;
    SpcSimulatorDouble& operator=(const SpcSimulatorDouble&) = delete;

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
