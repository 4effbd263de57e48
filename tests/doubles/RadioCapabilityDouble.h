#pragma once

#include "Answer.h"
#include "IRadioCapability.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IRadioCapability`.
class RadioCapabilityDouble : public IRadioCapability, public Recorder
{
  public:
    RadioCapabilityDouble(Transcript& transcript, std::string name);
    ~RadioCapabilityDouble() override;
    RadioCapabilityDouble(const RadioCapabilityDouble&) = delete;
    RadioCapabilityDouble& operator=(const RadioCapabilityDouble&) = delete;

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
