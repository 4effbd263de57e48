#include "ModulationLadder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>

namespace zyr_simulation
{

using zyr_top_api::ModulationAndCode;
using zyr_top_api::ModulationAndCoding;

namespace
{

// The SNIR that a modulation needs: 3 dB for each bit of a symbol, and what the code costs or saves.
constexpr double kSnirOfNoBits_dBTenths = 10.0;
constexpr double kSnirOfOneBit_dBTenths = 30.0;

/// A code by its number in the modulation table: its place among the codes, and what it adds to the SNIR.
struct Code
{
    int place;
    double snir_dBTenths;
};

constexpr std::array<Code, 5> kCodes{{{1, -15.0}, {2, 0.0}, {3, 12.0}, {0, -30.0}, {4, 0.0}}};

const Code& codeOf(const ModulationAndCode& row)
{
    return kCodes.at(static_cast<std::size_t>(row.coding));
}

bool isMoreRobust(const ModulationAndCode& left, const ModulationAndCode& right)
{
    const auto key = [](const ModulationAndCode& row) {
        return std::tuple(row.modulation, -row.variant, codeOf(row).place);
    };
    return key(left) < key(right);
}

LadderRung rungOf(const ModulationAndCode& row)
{
    const auto rate = row.variant == 2 ? 0.5 : 1.0;
    const auto bits = rate * std::log2(static_cast<double>(row.modulation));
    const auto snir = kSnirOfNoBits_dBTenths + kSnirOfOneBit_dBTenths * bits + codeOf(row).snir_dBTenths;
    return {row.modulationAndCoding, bits, static_cast<std::int32_t>(snir)};
}

std::vector<LadderRung> makeLadder()
{
    auto rows = zyr_top_api::getModulationAndCodeVector();
    std::ranges::sort(rows, isMoreRobust);
    std::vector<LadderRung> ladder;
    for (const auto& row : rows) {
        if (row.modulationAndCoding != ModulationAndCoding::UNDEFINED) {
            ladder.push_back(rungOf(row));
        }
    }
    return ladder;
}

/// The place of each modulation in the ladder, by its number. It is asked for often.
std::vector<std::optional<unsigned>> makeSteps()
{
    std::vector<std::optional<unsigned>> steps;
    const auto& ladder = modulationLadder();
    for (unsigned step = 0; step < ladder.size(); ++step) {
        const auto number = static_cast<std::size_t>(ladder[step].modulation);
        steps.resize(std::max(steps.size(), number + 1));
        steps[number] = step;
    }
    return steps;
}

} // namespace

const std::vector<LadderRung>& modulationLadder()
{
    static const auto ladder = makeLadder();
    return ladder;
}

std::optional<unsigned> ladderStep(ModulationAndCoding modulation)
{
    static const auto steps = makeSteps();
    const auto number = static_cast<std::size_t>(modulation);
    return number < steps.size() ? steps[number] : std::nullopt;
}

} // namespace zyr_simulation
