#include "FrameDatabase.h"

#include "ModulationLadder.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace zyr_simulation
{

using zyr_top_api::ModulationAndCoding;
using zyr_top_api::RadioFrameRecord;

namespace
{

constexpr auto kLowestModulation = ModulationAndCoding::QAM_4_STRONG;
constexpr auto kGreatestModulation = ModulationAndCoding::QAM_4096_LIGHT;

/// The share of the channel spacing that carries payload.
constexpr double kPayloadShare = 0.85;

} // namespace

const std::vector<RadioFrame>& radioFrames()
{
    using enum zyr_top_api::FFConfigType;
    static const std::vector<RadioFrame> frames{
        {101, 14'000, "ETSI", Std, true},   {102, 28'000, "ETSI", Std, true},
        {103, 56'000, "ETSI", Std, true},   {104, 112'000, "ETSI", Std, true},
        {105, 224'000, "ETSI", Std, false}, {111, 30'000, "ANSI", Std, true},
        {112, 40'000, "ANSI", Std, true},   {113, 80'000, "ANSI", Std, true},
        {201, 28'000, "ETSI", Xpic, true},  {202, 56'000, "ETSI", Xpic, true},
        {203, 112'000, "ETSI", Xpic, true}, {211, 40'000, "ANSI", Xpic, true},
        {212, 80'000, "ANSI", Xpic, true},  {301, 28'000, "ETSI", Mimo, true},
        {302, 56'000, "ETSI", Mimo, true},  {303, 112'000, "ETSI", Mimo, false},
        {401, 28'000, "ETSI", Mrc, true},   {402, 56'000, "ETSI", Mrc, true},
        {411, 40'000, "ANSI", Mrc, true},   {501, 56'000, "ETSI", Mrcx, true},
    };
    return frames;
}

const RadioFrame* findRadioFrame(unsigned id)
{
    const auto& frames = radioFrames();
    const auto frame = std::ranges::find(frames, id, &RadioFrame::id);
    return frame == frames.end() ? nullptr : &*frame;
}

bool isUsedInFrames(ModulationAndCoding modulation)
{
    constexpr std::int32_t ultraStrong = 3;
    const auto step = ladderStep(modulation);
    return step >= ladderStep(kLowestModulation) && step <= ladderStep(kGreatestModulation) &&
           zyr_top_api::findModulationAndCode(modulation)->coding != ultraStrong;
}

std::span<const LadderRung> rungsBetween(ModulationAndCoding min, ModulationAndCoding max)
{
    struct Used
    {
        std::vector<LadderRung> rungs;
        std::vector<std::ptrdiff_t> before{0}; ///< for each step of the ladder, and behind the last one
    };
    static const auto used = [] {
        Used result;
        for (const auto& rung : modulationLadder()) {
            if (isUsedInFrames(rung.modulation)) {
                result.rungs.push_back(rung);
            }
            result.before.push_back(std::ssize(result.rungs));
        }
        return result;
    }();
    const auto lowest = ladderStep(min);
    const auto highest = ladderStep(max);
    if (!lowest || !highest || *lowest > *highest) {
        return {};
    }
    const auto first = used.rungs.begin() + used.before[*lowest];
    const auto last = used.rungs.begin() + used.before[*highest + 1];
    return {first, last};
}

std::uint32_t capacity_kbit(const RadioFrame& frame, ModulationAndCoding modulation)
{
    const auto step = ladderStep(modulation);
    const auto bits = step ? modulationLadder()[*step].bitsPerSymbol : 0.0;
    return static_cast<std::uint32_t>(std::lround(kPayloadShare * frame.channelSpacing_kHz * bits));
}

RadioFrameRecord recordOf(const RadioFrame& frame)
{
    RadioFrameRecord record{frame.id,
                            frame.channelSpacing_kHz,
                            std::string(frame.telecomStd),
                            std::to_string(frame.channelSpacing_kHz / 1000) + " MHz",
                            {}};
    for (const auto& rung : modulationLadder()) {
        if (isUsedInFrames(rung.modulation)) {
            record.modulations.push_back(
                {std::string(zyr_top_api::convertCodeAndModulationEnumToString(rung.modulation)),
                 capacity_kbit(frame, rung.modulation), frame.type});
        }
    }
    return record;
}

} // namespace zyr_simulation
