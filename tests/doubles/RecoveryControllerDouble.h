#pragma once

#include "Answer.h"
#include "IInterface.h"
#include "Recorder.h"
#include "RecoveryController.h"

#include <string>

namespace zyr_test
{

/// Recording double of `RecoveryController`.
class RecoveryControllerDouble : public IInterface,
                                 public nord::zyr::services::recovery::RecoveryController,
                                 public Recorder
{
  public:
    RecoveryControllerDouble(Transcript& transcript, std::string name);
    ~RecoveryControllerDouble() override;
    RecoveryControllerDouble(const RecoveryControllerDouble&) = delete;
    RecoveryControllerDouble& operator=(const RecoveryControllerDouble&) = delete;

    zyr_top_api::ETIResult startDspRecovery(zyr_top_api::Recover recover) override
    {
        record("startDspRecovery", recover);
        return onStartDspRecovery.next();
    }

    Answer<zyr_top_api::ETIResult> onStartDspRecovery;
};

} // namespace zyr_test
