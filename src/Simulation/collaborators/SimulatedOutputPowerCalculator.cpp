#include "SimulatedOutputPowerCalculator.h"

#include "FrameDatabase.h"
#include "Hop.h"
#include "ModulationLadder.h"
#include "RadioType.h"

namespace zyr_simulation
{

using zyr_top_api::ETIResult;
using zyr_top_api::Modulation;
using zyr_top_api::ModulationAndCoding;

namespace
{

constexpr auto kUnknownFrame = static_cast<ETIResult>(0x800A);

} // namespace

ESPCResult SimulatedOutputPowerCalculator::setPowerCutBack(unsigned availableMaxPowerCutback)
{
    return perform<ESPCResult>("setPowerCutBack",
                               [&] { channel().transmitter.maxPowerCutback = availableMaxPowerCutback; });
}

ESPCResult SimulatedOutputPowerCalculator::setBooster(int presence, int gain, int maxInputPower,
                                                      Modulation maxModulation)
{
    return perform<ESPCResult>("setBooster", [&] {
        const bool canHaveBooster = radioType(node().settings.radioType).features.LongHaulBoosterCapable;
        if (presence != 0 && (!canHaveBooster || maxModulation == Modulation::UNDEFINED)) {
            return eSPC_E_FAILED;
        }
        auto& transmitter = channel().transmitter;
        transmitter.boosterPresence = presence;
        transmitter.boosterGain = gain;
        transmitter.boosterMaxInputPower = maxInputPower;
        transmitter.boosterMaxModulation = maxModulation;
        return eSPC_S_OK;
    });
}

ETIResult SimulatedOutputPowerCalculator::setTemporaryMaxPowerCutback(bool set, int cutback)
{
    return perform<ETIResult>("setTemporaryMaxPowerCutback", [&] {
        channel().transmitter.temporaryCutbackSet = set;
        channel().transmitter.temporaryCutback = cutback;
    });
}

ETIResult SimulatedOutputPowerCalculator::getMaxOutputPower(int radioFrameId, ModulationAndCoding min,
                                                            ModulationAndCoding max,
                                                            zyr_top_api::ReferenceSec /*referenceSec*/,
                                                            int& minPower,
                                                            std::map<ModulationAndCoding, int>& maxPower)
{
    return ask<ETIResult>("getMaxOutputPower", [&] {
        if (findRadioFrame(static_cast<unsigned>(radioFrameId)) == nullptr) {
            return kUnknownFrame;
        }
        const auto lowest = ladderStep(min);
        const auto highest = ladderStep(max);
        if (!lowest || !highest || *lowest > *highest) {
            return zyr_top_api::eTI_E_INVALID_ARGUMENT;
        }
        minPower = radioType(node().settings.radioType).minPower_dBmTenths;
        for (const auto& rung : rungsBetween(min, max)) {
            maxPower[rung.modulation] = greatestPower(node(), channel(), rung.modulation);
        }
        return zyr_top_api::eTI_S_OK;
    });
}

} // namespace zyr_simulation
