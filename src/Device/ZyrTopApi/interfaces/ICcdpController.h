#pragma once

#include "ETIResult.h"
#include "IInterface.h"
#include "LinkType.h"
#include "XpicAcquireMode.h"
#include "XpicMimoPreamble.h"
#include "XpicStatusStruct.h"

#include <string>

/// Cross-polar interference cancelling (XPIC) of one channel, published as "ICcdpController_<n>". Results
/// from 0x8000 are failures.
class ZYR_EXPORT ICcdpController : public IInterface
{
  public:
    // The test access, called by `TiManageXpic`.

    /// Bars XPIC, so that it stays as a test has set it. Whoever implements it stores the value in `m_bar`,
    /// or implements `getBar` too.
    virtual zyr_top_api::ETIResult setBar(bool on) = 0;

    /// The bar: 1 on, 0 off. The default body answers the stored value.
    virtual unsigned getBar() const { return m_bar ? 1U : 0U; }

    /// Sets the link type regardless of the configuration.
    virtual zyr_top_api::ETIResult forceXpic(zyr_top_api::LinkType linkType) = 0;

    /// Mutes the slave's stream. Also called by `CriXpicSlaveMute`.
    virtual zyr_top_api::ETIResult xpicMute(bool mute) = 0;

    /// Gives the link type. The default body answers 4098 (`eTI_W_NO_MORE_DATA`), not supported: a failure
    /// for a request to set the link type, and success for a plain read.
    virtual zyr_top_api::ETIResult getLinkType(zyr_top_api::LinkType& /*linkType*/) const
    {
        return zyr_top_api::eTI_W_NO_MORE_DATA;
    }

    /// Sets the preamble. The default body answers 4098, which is success.
    virtual zyr_top_api::ETIResult setPreamble(zyr_top_api::XpicMimoPreamble /*preamble*/)
    {
        return zyr_top_api::eTI_W_NO_MORE_DATA;
    }

    /// Gives the preamble.
    virtual zyr_top_api::ETIResult getPreamble(zyr_top_api::XpicMimoPreamble& preamble) = 0;

    /// Makes the slave's receiver acquire anew.
    virtual zyr_top_api::ETIResult xpicAcquireStart(zyr_top_api::XpicAcquireMode mode,
                                                    zyr_top_api::XpicSpectralInversionMode inversion) = 0;

    /// Gives what the slave's receiver measures.
    virtual zyr_top_api::ETIResult getXpicStatusStruct(zyr_top_api::XpicStatusStruct& status) = 0;

    // The configuration, called by `CriSetRadioChannelNearEnd`.

    /// Starts XPIC with a link type.
    virtual zyr_top_api::ETIResult start(zyr_top_api::LinkType linkType) = 0;

    /// Stops XPIC. A failure counts, except while the channel is under reset.
    virtual zyr_top_api::ETIResult stop() = 0;

    /// Whether XPIC has been started. Also called by `CriGetRadioChannelStatus`.
    virtual bool isStarted() = 0;

    // The status, called by `CriGetRadioChannelStatus`.

    /// Gives the cross-polar interference, in the controller's unit.
    virtual zyr_top_api::ETIResult getXpi(int& xpi) = 0;

    /// Gives the state as the text that is reported.
    virtual zyr_top_api::ETIResult getState(std::string& state) = 0;

  protected:
    /// The bar as `getBar` answers it by default.
    bool m_bar = false;
};
