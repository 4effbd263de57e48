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

} // namespace

const std::vector<LadderRung>& modulationLadder()
{
    static const auto ladder = makeLadder();
    return ladder;
}

std::optional<unsigned> ladderStep(ModulationAndCoding modulation)
{
    const auto& ladder = modulationLadder();
    const auto rung = std::ranges::find(ladder, modulation, &LadderRung::modulation);
    if (rung == ladder.end()) {
        return std::nullopt;
    }
    return static_cast<unsigned>(rung - ladder.begin());
}

} // namespace zyr_simulation
