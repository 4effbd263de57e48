#pragma once

#include "Answer.h"
#include "IOutputPowerController.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IOutputPowerController`.
class OutputPowerControllerDouble : public IOutputPowerController, public Recorder
{
  public:
    OutputPowerControllerDouble(Transcript& transcript, std::string name);
    ~OutputPowerControllerDouble() override;
    OutputPowerControllerDouble(const OutputPowerControllerDouble&) = delete;
    OutputPowerControllerDouble& operator=(const OutputPowerControllerDouble&) = delete;

    zyr_top_api::ETxPowerActualStatus getTxStatus() override
    {
        record("getTxStatus");
        return onGetTxStatus.next();
    }

    void setGain(unsigned loop, unsigned kind, double value) override
    {
        record("setGain", loop, kind, value);
    }

    double getGain(unsigned loop, unsigned kind) override
    {
        record("getGain", loop, kind);
        return onGetGain.next();
    }

    Answer<zyr_top_api::ETxPowerActualStatus> onGetTxStatus;
    Answer<double> onGetGain;
};

} // namespace zyr_test
