#include "SimulatedHardwareConfigurationHandler.h"

#include "FrameDatabase.h"
#include "ModulationLadder.h"
#include "RadioType.h"

namespace zyr_simulation
{

using zyr_top_api::ETIResult;
using zyr_top_api::FFConfigType;
using zyr_top_api::RadioChannel;
using zyr_top_api::RadioFrameRecord;

namespace
{

bool canServe(const RadioType& radio, const RadioFrame& frame, unsigned step)
{
    if (frame.channelSpacing_kHz > radio.greatestSpacing_kHz) {
        return false;
    }
    const auto limit = ladderStep(radio.greatestInWideFrames);
    return !limit || frame.channelSpacing_kHz <= radio.wideSpacing_kHz || step <= *limit;
}

} // namespace

bool SimulatedHardwareConfigurationHandler::isMimoCapable(unsigned radioFrameId)
{
    const auto* frame = findRadioFrame(radioFrameId);
    return frame != nullptr && frame->type == FFConfigType::Mimo;
}

EHCHResult SimulatedHardwareConfigurationHandler::setRadioFrameId(RadioChannel channel, unsigned radioFrameId,
                                                                  int)
{
    return perform<EHCHResult>("setRadioFrameId", [&] {
        if (findRadioFrame(radioFrameId) == nullptr || channel < 1 || channel > node().channels.size()) {
            return eHCH_E_FAILED;
        }
        auto& state = node().channel(channel);
        return state.dsp.i2cFailure.orElse<EHCHResult>([&] { state.radioFrameId = radioFrameId; });
    });
}

bool SimulatedHardwareConfigurationHandler::isChannelInUse(RadioChannel channel)
{
    return read([&] {
        return channel >= 1 && channel <= node().channels.size() && node().channel(channel).closingPhasesRun;
    });
}

EHCHResult SimulatedHardwareConfigurationHandler::getFrameUpdateMode(unsigned& mode)
{
    return ask<EHCHResult>("getFrameUpdateMode", [&] { mode = node().frameUpdateMode; });
}

EHCHResult SimulatedHardwareConfigurationHandler::setFrameUpdateMode(unsigned mode)
{
    return perform<EHCHResult>("setFrameUpdateMode", [&] { node().frameUpdateMode = mode; });
}

EHCHResult SimulatedHardwareConfigurationHandler::isXpicCapable(unsigned radioFrameId, bool& capable)
{
    return ask<EHCHResult>("isXpicCapable", [&] {
        const auto* frame = findRadioFrame(radioFrameId);
        if (frame == nullptr) {
            return eHCH_E_FAILED;
        }
        capable = frame->type == FFConfigType::Xpic || frame->type == FFConfigType::Mrcx;
        return eHCH_S_OK;
    });
}

EHCHResult SimulatedHardwareConfigurationHandler::getConfigType(RadioChannel /*channel*/,
                                                                unsigned radioFrameId, FFConfigType& type)
{
    return ask<EHCHResult>("getConfigType", [&] {
        const auto* frame = findRadioFrame(radioFrameId);
        if (frame == nullptr) {
            return eHCH_E_FAILED;
        }
        type = frame->type;
        return eHCH_S_OK;
    });
}

std::vector<RadioFrameRecord> SimulatedHardwareConfigurationHandler::getRadioFrames(bool onlyReleased)
{
    std::vector<RadioFrameRecord> records;
    for (const auto& frame : radioFrames()) {
        if (frame.isReleased || !onlyReleased) {
            records.push_back(recordOf(frame));
        }
    }
    return records;
}

ETIResult SimulatedHardwareConfigurationHandler::getPerformanceProfileArray(
    unsigned /*radioChannel*/, unsigned radioFrameId, std::vector<std::int16_t>& profile)
{
    return ask<ETIResult>("getPerformanceProfileArray", [&] {
        const auto* frame = findRadioFrame(radioFrameId);
        if (frame == nullptr) {
            return zyr_top_api::eTI_E_INVALID_ARGUMENT;
        }
        constexpr std::int16_t notServed = -1;
        const auto& radio = radioType(node().settings.radioType);
        for (unsigned step = 0; step < modulationLadder().size(); ++step) {
            if (isUsedInFrames(modulationLadder()[step].modulation)) {
                profile.push_back(canServe(radio, *frame, step) ? static_cast<std::int16_t>(step)
                                                                : notServed);
            }
        }
        return zyr_top_api::eTI_S_OK;
    });
}

EHCHResult SimulatedHardwareConfigurationHandler::setRauCarrierAggregation(bool on)
{
    return perform<EHCHResult>("setRauCarrierAggregation", [&] {
        if (on && !radioType(node().settings.radioType).features.CarrierAggregationCapable) {
            return eHCH_E_FAILED;
        }
        node().settings.carrierAggregation = on;
        return eHCH_S_OK;
    });
}

} // namespace zyr_simulation
