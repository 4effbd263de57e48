#pragma once

#include "Answer.h"
#include "ICcdpController.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `ICcdpController`.
class CcdpControllerDouble : public ICcdpController, public Recorder
{
  public:
    CcdpControllerDouble(Transcript& transcript, std::string name);
    ~CcdpControllerDouble() override;
    CcdpControllerDouble(const CcdpControllerDouble&) = delete;
    CcdpControllerDouble& operator=(const CcdpControllerDouble&) = delete;

    zyr_top_api::ETIResult setBar(bool on) override
    {
        record("setBar", on);
        m_bar = on; // for the `getBar` of the interface
        return onSetBar.next();
    }

    unsigned getBar() const override
    {
        record("getBar");
        return defaultsInForce ? ICcdpController::getBar() : onGetBar.next();
    }

    zyr_top_api::ETIResult forceXpic(zyr_top_api::LinkType linkType) override
    {
        record("forceXpic", linkType);
        return onForceXpic.next();
    }

    zyr_top_api::ETIResult xpicMute(bool mute) override
    {
        record("xpicMute", mute);
        return onXpicMute.next();
    }

    zyr_top_api::ETIResult getLinkType(zyr_top_api::LinkType& linkType) const override
    {
        record("getLinkType");
        return defaultsInForce ? ICcdpController::getLinkType(linkType) : onGetLinkType.next(linkType);
    }

    zyr_top_api::ETIResult setPreamble(zyr_top_api::XpicMimoPreamble preamble) override
    {
        record("setPreamble", preamble);
        return defaultsInForce ? ICcdpController::setPreamble(preamble) : onSetPreamble.next();
    }

    zyr_top_api::ETIResult getPreamble(zyr_top_api::XpicMimoPreamble& preamble) override
    {
        record("getPreamble");
        return onGetPreamble.next(preamble);
    }

    zyr_top_api::ETIResult xpicAcquireStart(zyr_top_api::XpicAcquireMode mode,
                                            zyr_top_api::XpicSpectralInversionMode inversion) override
    {
        record("xpicAcquireStart", mode, inversion);
        return onXpicAcquireStart.next();
    }

    zyr_top_api::ETIResult getXpicStatusStruct(zyr_top_api::XpicStatusStruct& status) override
    {
        record("getXpicStatusStruct");
        return onGetXpicStatusStruct.next(status);
    }

    zyr_top_api::ETIResult start(zyr_top_api::LinkType linkType) override
    {
        record("start", linkType);
        return onStart.next();
    }

    zyr_top_api::ETIResult stop() override
    {
        record("stop");
        return onStop.next();
    }

    bool isStarted() override
    {
        record("isStarted");
        return onIsStarted.next();
    }

    zyr_top_api::ETIResult getXpi(int& xpi) override
    {
        record("getXpi");
        return onGetXpi.next(xpi);
    }

    zyr_top_api::ETIResult getState(std::string& state) override
    {
        record("getState");
        return onGetState.next(state);
    }

    Answer<zyr_top_api::ETIResult> onSetBar;
    mutable Answer<unsigned> onGetBar;
    Answer<zyr_top_api::ETIResult> onForceXpic;
    Answer<zyr_top_api::ETIResult> onXpicMute;
    mutable Answer<zyr_top_api::ETIResult, zyr_top_api::LinkType> onGetLinkType;
    Answer<zyr_top_api::ETIResult> onSetPreamble;
    Answer<zyr_top_api::ETIResult, zyr_top_api::XpicMimoPreamble> onGetPreamble;
    Answer<zyr_top_api::ETIResult> onXpicAcquireStart;
    Answer<zyr_top_api::ETIResult, zyr_top_api::XpicStatusStruct> onGetXpicStatusStruct;
    Answer<zyr_top_api::ETIResult> onStart;
    Answer<zyr_top_api::ETIResult> onStop;
    Answer<bool> onIsStarted;
    Answer<zyr_top_api::ETIResult, int> onGetXpi;
    Answer<zyr_top_api::ETIResult, std::string> onGetState;
};

} // namespace zyr_test
