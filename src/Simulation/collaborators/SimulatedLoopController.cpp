#include "SimulatedLoopController.h"

#include "RadioType.h"

namespace zyr_simulation
{

using zyr_top_api::LoopStatePair;

namespace
{

constexpr ResultCode kUnknownLoop = 0x8008;

} // namespace

std::vector<SimulatedLoopController::Loop> SimulatedLoopController::loopsOfNode() const
{
    const bool hasRfLoops = radioType(node().settings.radioType).features.RfLoopAvailable;
    std::vector<Loop> loops;
    for (auto& channel : node().channels) {
        const auto number = std::to_string(channel.number);
        loops.push_back({"IfLoop" + number, channel.loops.isIfLoopClosed});
        if (hasRfLoops) {
            loops.push_back({"RfLoop" + number, channel.loops.isRfLoopClosed});
        }
    }
    return loops;
}

ResultCode SimulatedLoopController::getLoops(std::vector<LoopStatePair>& loops)
{
    return ask<ResultCode>("getLoops", [&] {
        loops.clear();
        for (const auto& loop : loopsOfNode()) {
            loops.push_back({loop.name, loop.isClosed});
        }
    });
}

ResultCode SimulatedLoopController::setLoop(const std::string& loopName, bool closed)
{
    return perform<ResultCode>("setLoop", [&]() -> ResultCode {
        for (const auto& loop : loopsOfNode()) {
            if (loop.name == loopName) {
                loop.isClosed = closed;
                return 0;
            }
        }
        return kUnknownLoop;
    });
}

} // namespace zyr_simulation
