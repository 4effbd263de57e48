#include "SimulatedDspControlApi.h"

#include "Mimo.h"

namespace zyr_simulation
{

using zyr_top_api::ETIResult;
using zyr_top_api::FFConfigType;
using zyr_top_api::Recover;

namespace
{

/// The type without its long haul part.
FFConfigType plain(FFConfigType type)
{
    switch (type) {
    case FFConfigType::LHStd:
        return FFConfigType::Std;
    case FFConfigType::LHXpic:
        return FFConfigType::Xpic;
    case FFConfigType::LHXpic2:
        return FFConfigType::Xpic2;
    default:
        return type;
    }
}

bool aggregates(FFConfigType type)
{
    return type == FFConfigType::SisoCA || type == FFConfigType::XpicCA;
}

bool isOverTwoBoards(FFConfigType type)
{
    using enum FFConfigType;
    return type == Xpic2 || type == LHXpic2 || type == Mimo2 || type == Mrc2 || type == Mrcx;
}

Recover recoveryFor(FFConfigType from, FFConfigType to)
{
    if (plain(from) == plain(to)) {
        return Recover::None;
    }
    const bool isFull = aggregates(from) || aggregates(to) || isOverTwoBoards(from) || isOverTwoBoards(to);
    return isFull ? Recover::Dsp : Recover::DspWithoutConfig;
}

} // namespace

bool SimulatedDspControlApi::isCarrierAggregationActive()
{
    return read([&] { return node().settings.carrierAggregation; });
}

ETIResult SimulatedDspControlApi::getRequiredRecovery(FFConfigType type, Recover& needed,
                                                      bool& dueToCarrierAggregation)
{
    return ask<ETIResult>("getRequiredRecovery", [&] {
        return failure().orElse<ETIResult>([&] {
            needed = recoveryFor(node().dsp.type, type);
            dueToCarrierAggregation = aggregates(node().dsp.type) != aggregates(type);
        });
    });
}

ETIResult SimulatedDspControlApi::checkDspReconfiguration(FFConfigType required,
                                                          bool& dspNeedsReconfiguration)
{
    const auto check = [&] {
        if (required == FFConfigType::Unknown || required == FFConfigType::Other) {
            return zyr_top_api::eTI_E_INVALID_ARGUMENT;
        }
        node().dsp.pendingType = required;
        dspNeedsReconfiguration = required != node().dsp.type;
        return zyr_top_api::eTI_S_OK;
    };
    return perform<ETIResult>("checkDspReconfiguration", [&] { return failure().orElse<ETIResult>(check); });
}

bool SimulatedDspControlApi::isAccessible()
{
    return read([&] { return !node().dsp.isRecovering; });
}

ETIResult SimulatedDspControlApi::getMimoMode(int& mode)
{
    return ask<ETIResult>("getMimoMode", [&] {
        return failure().orElse<ETIResult>([&] { mode = mimoMode(node(), channel()); });
    });
}

void SimulatedDspControlApi::injectComError(unsigned resultCode, unsigned counter)
{
    locked([&] { failure() = {resultCode, counter}; });
}

} // namespace zyr_simulation
