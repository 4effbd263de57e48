#include "SimulatedRadioCapability.h"

#include "RadioType.h"

namespace zyr_simulation
{

zyr_top_api::FrequencyCapability SimulatedRadioCapability::getFrequencyCapability()
{
    return read([&] {
        auto capability = frequenciesOf(radioType(node().settings.radioType), channel().radio.subBand);
        capability.DuplexType = node().settings.duplexType;
        return capability;
    });
}

zyr_top_api::FeatureCapability SimulatedRadioCapability::getFeatureCapability()
{
    return read([&] {
        auto capability = radioType(node().settings.radioType).features;
        capability.Is2T2R = node().settings.twoTransmitters;
        return capability;
    });
}

} // namespace zyr_simulation
