#pragma once

#include "FeatureCapability.h"
#include "FrequencyCapability.h"
#include "IInterface.h"

/// What the radio of one channel can do, published as "IRadioCapability_<n>".
class ZYR_EXPORT IRadioCapability : public IInterface
{
  public:
    /// The frequencies that the radio can be set to. Called by `CriGetRadioChannelCapability` and
    /// `CriSetRadioChannelNearEnd`.
    virtual zyr_top_api::FrequencyCapability getFrequencyCapability() = 0;

    /// The features of the radio. Called by `CriGetRadioChannelCapability`.
    virtual zyr_top_api::FeatureCapability getFeatureCapability() = 0;
};
