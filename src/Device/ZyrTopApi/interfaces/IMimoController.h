#pragma once

#include "ETIResult.h"
#include "IInterface.h"
#include "LinkType.h"
#include "MimoLockStatus.h"
#include "Optional.h"

#include <cstdint>

/// MIMO of one channel, published as "IMimoController_<n>".
class ZYR_EXPORT IMimoController : public IInterface
{
  public:
    /// Sets the link type. Called by `CriSetRadioChannelNearEnd`; the result is ignored.
    virtual zyr_top_api::ETIResult setLinkType(zyr_top_api::LinkType linkType) = 0;

    /// Whether MIMO has been started. Called by `CriSetRadioChannelNearEnd`, and twice by
    /// `CriGetRadioChannelStatus`, which reports the second answer.
    virtual bool isStarted() = 0;

    /// Stops MIMO. Called by `CriSetRadioChannelNearEnd`; the result is ignored.
    virtual zyr_top_api::ETIResult stop() = 0;

    /// The eta value; nothing is reported as 0. Called by `CriGetRadioChannelStatus`.
    virtual general_classes::Optional<std::int32_t> getEta() = 0;

    /// Whether the MIMO receiver has locked. Called by `CriGetRadioChannelStatus`.
    virtual zyr_top_api::MimoLockStatus getStatus() = 0;

    /// The cross-polar interference; nothing is reported as 0. Called by `CriGetRadioChannelStatus`.
    virtual general_classes::Optional<std::int32_t> getXpi() = 0;

    /// Whether the XPIC receiver of a 4x4 link has locked; nothing is reported as "Unlocked". Called by
    /// `CriGetRadioChannelStatus`.
    virtual general_classes::Optional<zyr_top_api::MimoLockStatus> getXpicStatus() = 0;

    /// Mutes the spatial stream. Called by `CriMimoSpatialMute`; results from 0x8000 are failures.
    virtual zyr_top_api::ETIResult mimoSpatialMute(bool mute) = 0;
};
