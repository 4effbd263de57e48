#pragma once

#include "Answer.h"
#include "IAtpcController.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IAtpcController`.
class AtpcControllerDouble : public IAtpcController, public Recorder
{
  public:
    AtpcControllerDouble(Transcript& transcript, std::string name);
    ~AtpcControllerDouble() override;
    AtpcControllerDouble(const AtpcControllerDouble&) = delete;
    AtpcControllerDouble& operator=(const AtpcControllerDouble&) = delete;

    std::int32_t getTargetInputPower() override
    {
        record("getTargetInputPower");
        return onGetTargetInputPower.next();
    }

    ISpcSimulatedObject* getSimulatedObject() override
    {
        record("getSimulatedObject");
        return onGetSimulatedObject.next();
    }

    void release(ISpcSimulatedObject* object) override { record("release", object); }

    void setGain(unsigned kind, double value) override { record("setGain", kind, value); }

    double getGain(unsigned kind) override
    {
        record("getGain", kind);
        return onGetGain.next();
    }

    Answer<std::int32_t> onGetTargetInputPower;
    Answer<ISpcSimulatedObject*> onGetSimulatedObject;
    Answer<double> onGetGain;
};

} // namespace zyr_test
