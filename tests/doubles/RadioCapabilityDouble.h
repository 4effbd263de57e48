#pragma once

#include "Answer.h"
#include "IRadioCapability.h"
#include "Recorder.h"

namespace zyr_test
{

/// Recording double of `IRadioCapability`.
class RadioCapabilityDouble : public IRadioCapability, public Recorder
{
  public:
    using Recorder::Recorder;

    zyr_top_api::FrequencyCapability getFrequencyCapability() override
    {
        record("getFrequencyCapability");
        return onGetFrequencyCapability.next();
    }

    zyr_top_api::FeatureCapability getFeatureCapability() override
    {
        record("getFeatureCapability");
        return onGetFeatureCapability.next();
    }

    Answer<zyr_top_api::FrequencyCapability> onGetFrequencyCapability;
    Answer<zyr_top_api::FeatureCapability> onGetFeatureCapability;
};

} // namespace zyr_test
