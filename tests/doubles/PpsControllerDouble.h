#pragma once

#include "Answer.h"
#include "IPpsController.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IPpsController`.
class PpsControllerDouble : public nord::zyr::pps::IPpsController, public Recorder
{
  public:
    PpsControllerDouble(Transcript& transcript, std::string name);
    ~PpsControllerDouble() override;
    PpsControllerDouble(const PpsControllerDouble&) = delete;
    PpsControllerDouble& operator=(const PpsControllerDouble&) = delete;

    zyr_top_api::ETIResult configureRole(bool ppsSlave, zyr_top_api::PpsOutputMode outputMode) override
    {
        record("configureRole", ppsSlave, outputMode);
        return onConfigureRole.next();
    }

    zyr_top_api::ETIResult getHopLengthLatency(unsigned& nanoSec) override
    {
        record("getHopLengthLatency");
        return onGetHopLengthLatency.next(nanoSec);
    }

    Answer<zyr_top_api::ETIResult> onConfigureRole;
    Answer<zyr_top_api::ETIResult, unsigned> onGetHopLengthLatency;
};

} // namespace zyr_test
