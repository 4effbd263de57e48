#include "SimulatedDspStatusApi.h"

#include "DualStream.h"
#include "Hop.h"
#include "Mimo.h"
#include "Processes.h"

#include <algorithm>
#include <limits>

namespace zyr_simulation
{

using zyr_top_api::DspErrorBlocks;
using zyr_top_api::ETIResult;
using zyr_top_api::MimoStatusStruct;

namespace
{

/// The level to which the gain controls of a slave bring what it gets, in tenths of a dBm, and how much of
/// the gain is in its external one.
constexpr std::int32_t kSlaveReferenceLevel = -200;
constexpr std::int32_t kGreatestExternalAgc = 150;
constexpr std::int16_t kSlaveDifferentialGain = 3;

std::int32_t counted(double count)
{
    constexpr double greatest = std::numeric_limits<std::int32_t>::max();
    constexpr double roundingError = 1e-6; // of the sum of many small parts
    return static_cast<std::int32_t>(std::min(count + roundingError, greatest));
}

/// Whole seconds up to a moment, counting a part as one.
int secondsUntil(std::chrono::nanoseconds now, std::chrono::nanoseconds moment)
{
    return static_cast<int>(
        std::chrono::ceil<std::chrono::seconds>(std::max(moment - now, std::chrono::nanoseconds::zero()))
            .count());
}

} // namespace

bool SimulatedDspStatusApi::isLinkUp()
{
    return read([&] { return receiver().isLinkUp; });
}

ETIResult SimulatedDspStatusApi::getErrorBlocks(DspErrorBlocks& blocks, bool reset)
{
    return access("getErrorBlocks", [&] {
        auto& received = receiver().received;
        blocks.erroredBlocks = counted(received.erroredBlocks);
        blocks.backgroundBlocks = counted(received.blocks);
        blocks.errorBytes = counted(received.erroredBlocks * kBytesPerBlock);
        blocks.totalBytes = counted(received.blocks * kBytesPerBlock);
        if (reset) {
            received.blocks = 0;
            received.erroredBlocks = 0;
        }
    });
}

std::int32_t SimulatedDspStatusApi::getSnir()
{
    return read([&] { return -receiver().snir; });
}

std::int32_t SimulatedDspStatusApi::getLowestSnir(bool reset)
{
    const auto get = [&] {
        const auto lowest = receiver().lowestSnir.value_or(0);
        if (reset) {
            receiver().lowestSnir.reset();
        }
        return -lowest;
    };
    return reset ? locked(get) : read(get);
}

std::int32_t SimulatedDspStatusApi::getEbSinceLastRxLock()
{
    return read([&] { return counted(receiver().received.erroredSinceLock); });
}

std::int32_t SimulatedDspStatusApi::getRxLockedCounter()
{
    return read([&] { return receiver().lockedCounter; });
}

ETIResult SimulatedDspStatusApi::getSlaveAgc(std::int16_t& internalAgc, std::int16_t& externalAgc)
{
    return access("getSlaveAgc", [&] {
        const auto gain = std::max(kSlaveReferenceLevel - slaveLevel_dBmTenths(node(), channel()), 0);
        externalAgc = static_cast<std::int16_t>(std::min(gain, kGreatestExternalAgc));
        internalAgc = static_cast<std::int16_t>(gain - externalAgc);
    });
}

ETIResult SimulatedDspStatusApi::getIqSlaveImbalance(std::int16_t& first, std::int16_t& differentialGain,
                                                     std::int16_t& third, std::int16_t& fourth,
                                                     std::int16_t& fifth)
{
    return access("getIqSlaveImbalance", [&] {
        first = third = fourth = fifth = 0;
        const bool hears = slaveLevel_dBmTenths(node(), channel()) > kNoLevel_dBmTenths;
        differentialGain = hears ? kSlaveDifferentialGain : std::int16_t{0};
    });
}

ETIResult SimulatedDspStatusApi::mimoStatusGet(MimoStatusStruct& status)
{
    return access("mimoStatusGet", [&] { status = mimoStatus(node(), channel()); });
}

void SimulatedDspStatusApi::injectErrorBlocks(bool inject, int cycles, unsigned percentage)
{
    locked([&] {
        const std::chrono::seconds duration(std::max(cycles, 0));
        receiver().injectsErrors = inject;
        receiver().injectedPercentage = percentage;
        receiver().injectsUntil = node().settleAfter(duration);
    });
}

bool SimulatedDspStatusApi::getInjectErrorBlocksData(int& cycles)
{
    return read([&] {
        cycles = receiver().injectsErrors ? secondsUntil(node().now(), receiver().injectsUntil) : 0;
        return cycles > 0;
    });
}

void SimulatedDspStatusApi::injectComError(unsigned resultCode, unsigned counter)
{
    locked([&] { channel().dsp.statusFailure = {resultCode, counter}; });
}

ETIResult SimulatedDspStatusApi::getRxXcStatusLevel(std::int16_t* ch0, std::int16_t* ch1)
{
    return access("getRxXcStatusLevel", [&] {
        *ch0 = static_cast<std::int16_t>(receiver().level);
        *ch1 = static_cast<std::int16_t>(channel().xpic.isStarted() ? receiver().level : kNoLevel_dBmTenths);
    });
}

} // namespace zyr_simulation
