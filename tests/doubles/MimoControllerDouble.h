#pragma once

#include "Answer.h"
#include "IMimoController.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IMimoController`.
class MimoControllerDouble : public IMimoController, public Recorder
{
  public:
    MimoControllerDouble(Transcript& transcript, std::string name);
    ~MimoControllerDouble() override;
    MimoControllerDouble(const MimoControllerDouble&) = delete;
    MimoControllerDouble& operator=(const MimoControllerDouble&) = delete;

    zyr_top_api::ETIResult setLinkType(zyr_top_api::LinkType linkType) override
    {
        record("setLinkType", linkType);
        return onSetLinkType.next();
    }

    bool isStarted() override
    {
        record("isStarted");
        return onIsStarted.next();
    }

    zyr_top_api::ETIResult stop() override
    {
        record("stop");
        return onStop.next();
    }

    general_classes::Optional<std::int32_t> getEta() override
    {
        record("getEta");
        return onGetEta.next();
    }

    zyr_top_api::MimoLockStatus getStatus() override
    {
        record("getStatus");
        return onGetStatus.next();
    }

    general_classes::Optional<std::int32_t> getXpi() override
    {
        record("getXpi");
        return onGetXpi.next();
    }

    general_classes::Optional<zyr_top_api::MimoLockStatus> getXpicStatus() override
    {
        record("getXpicStatus");
        return onGetXpicStatus.next();
    }

    zyr_top_api::ETIResult mimoSpatialMute(bool mute) override
    {
        record("mimoSpatialMute", mute);
        return onMimoSpatialMute.next();
    }

    Answer<zyr_top_api::ETIResult> onSetLinkType;
    Answer<bool> onIsStarted;
    Answer<zyr_top_api::ETIResult> onStop;
    Answer<general_classes::Optional<std::int32_t>> onGetEta;
    Answer<zyr_top_api::MimoLockStatus> onGetStatus;
    Answer<general_classes::Optional<std::int32_t>> onGetXpi;
    Answer<general_classes::Optional<zyr_top_api::MimoLockStatus>> onGetXpicStatus;
    Answer<zyr_top_api::ETIResult> onMimoSpatialMute;
};

} // namespace zyr_test
