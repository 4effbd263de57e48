#include "Diversity.h"

#include <algorithm>
#include <cmath>

namespace zyr_simulation
{

namespace
{

using zyr_top_api::SdcPath;
using zyr_top_api::SdcStatus;

constexpr double kShareWithoutCalibration = 0.5;

/// What the weaker of two powers adds to the better one.
double sumGain_dBTenths(std::int32_t difference_dBTenths)
{
    return 100.0 * std::log10(1.0 + std::pow(10.0, -difference_dBTenths / 100.0));
}

std::int32_t usePath(DiversityState& diversity, SdcPath path)
{
    diversity.path = path;
    diversity.gain = 0;
    return path == SdcPath::Diversity ? diversity.level : diversity.mainLevel;
}

std::int32_t combine(DiversityState& diversity, bool isCalibrated)
{
    const auto better = std::max(diversity.mainLevel, diversity.level);
    const auto weaker = std::min(diversity.mainLevel, diversity.level);
    if (better <= kNoLevel_dBmTenths) {
        return usePath(diversity, SdcPath::Main);
    }
    const auto share = isCalibrated ? 1.0 : kShareWithoutCalibration;
    const auto added = static_cast<std::int32_t>(share * sumGain_dBTenths(better - weaker));
    const auto betterPath = diversity.level > diversity.mainLevel ? SdcPath::Diversity : SdcPath::Main;
    diversity.path = added > 0 ? SdcPath::Auto : betterPath;
    diversity.gain = std::max(better + added - kCombinerLoss_dBTenths, kNoLevel_dBmTenths) - better;
    return better + diversity.gain;
}

std::int32_t combineInBaseband(DiversityState& diversity, const BasebandSdcState& sdc)
{
    if (sdc.mainEnabled && sdc.diversityEnabled) {
        return combine(diversity, sdc.isCalibrated);
    }
    const auto level = usePath(diversity, sdc.diversityEnabled ? SdcPath::Diversity : SdcPath::Main);
    return sdc.mainEnabled || sdc.diversityEnabled ? level : kNoLevel_dBmTenths;
}

} // namespace

std::int32_t settleDiversity(ChannelState& channel)
{
    auto& diversity = channel.receiver.diversity;
    const auto& sdc = channel.sdc;
    if (sdc.operation == SdcStatus::Active) {
        return sdc.path == SdcPath::Auto ? combine(diversity, sdc.isCalibrated)
                                         : usePath(diversity, sdc.path);
    }
    return channel.basebandSdc.isStarted ? combineInBaseband(diversity, channel.basebandSdc)
                                         : usePath(diversity, SdcPath::Main);
}

} // namespace zyr_simulation
