#pragma once

#include "CollaboratorResults.h"
#include "ETIResult.h"
#include "FFConfigType.h"
#include "IInterface.h"
#include "RadioFrameRecord.h"

#include <cstdint>
#include <vector>

/// The radio frames and the hardware of the node, published as "IHardwareConfigurationHandler". Unless an
/// operation says otherwise, results from 0x8000 are failures.
class ZYR_EXPORT IHardwareConfigurationHandler : public IInterface
{
  public:
    /// Whether a frame can carry a MIMO link. Called by `CriSetRadioChannelNearEnd`.
    virtual bool isMimoCapable(unsigned radioFrameId) = 0;

    /// Sets the frame of a channel. Called by `CriSetRadioChannelNearEnd`, always with 1 in the last place,
    /// whose sense is the handler's.
    virtual EHCHResult setRadioFrameId(zyr_top_api::RadioChannel channel, unsigned radioFrameId, int) = 0;

    /// Whether a channel is in use. Called by `CriSetRadioChannelNearEnd`, for channel 2 only.
    virtual bool isChannelInUse(zyr_top_api::RadioChannel channel) = 0;

    /// Gives how a change of the frame is carried out. Called by `CriSetRadioChannelNearEnd`; the result is
    /// ignored, so that on a failure `mode` should stay as it was.
    virtual EHCHResult getFrameUpdateMode(unsigned& mode) = 0;

    /// Sets how a change of the frame is carried out: 1 during a full recovery of the DSP. Called by
    /// `CriSetRadioChannelNearEnd`; the result is ignored.
    virtual EHCHResult setFrameUpdateMode(unsigned mode) = 0;

    /// Gives whether a frame can carry an XPIC link. Called by `CriSetRadioChannelNearEnd`.
    virtual EHCHResult isXpicCapable(unsigned radioFrameId, bool& capable) = 0;

    /// Gives the configuration type of a frame. Called by `CriSetRadioChannelNearEnd`; the result is ignored,
    /// so that on a failure `type` should stay as it was.
    virtual EHCHResult getConfigType(zyr_top_api::RadioChannel channel, unsigned radioFrameId,
                                     zyr_top_api::FFConfigType& type) = 0;

    /// The frames in the hardware database, or only those that are released. Called by
    /// `CriGetAirInterfaceCapability`, for which an empty answer is a failure.
    virtual std::vector<zyr_top_api::RadioFrameRecord> getRadioFrames(bool onlyReleased) = 0;

    /// Gives the performance profile of a frame on a channel, for `ICapabilityHandler::getMaxAcmLimitedByHw`.
    /// Called by `CriGetAirInterfaceCapability`.
    virtual zyr_top_api::ETIResult getPerformanceProfileArray(unsigned radioChannel, unsigned radioFrameId,
                                                              std::vector<std::int16_t>& profile) = 0;

    /// Switches carrier aggregation of the radio unit on or off. Called by `CriSetRauCarrierAggregation`; the
    /// result is ignored.
    virtual EHCHResult setRauCarrierAggregation(bool on) = 0;
};
