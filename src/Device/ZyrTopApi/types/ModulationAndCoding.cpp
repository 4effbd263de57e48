#include "ModulationAndCoding.h"

#include <algorithm>
#include <array>
#include <functional>
#include <ostream>

namespace zyr_top_api
{

namespace
{

using enum ModulationAndCoding;

constexpr std::int32_t kStrong = 0;
constexpr std::int32_t kPlain = 1;
constexpr std::int32_t kLight = 2;
constexpr std::int32_t kUltraStrong = 3;
constexpr std::int32_t kUndefined = 4;

// A row of `ModulationAndCode`, known to the compiler.
struct Row
{
    ModulationAndCoding modulationAndCoding;
    std::string_view name;
    Modulation modulation;
    std::int32_t variant;
    std::int32_t coding;
};

constexpr auto kRows = std::to_array<Row>({
    {HALF_BPSK_STRONG, "HALF_BPSK_STRONG", Modulation::BPSK, 2, kStrong},
    {HALF_BPSK, "HALF_BPSK", Modulation::BPSK, 2, kPlain},
    {HALF_BPSK_LIGHT, "HALF_BPSK_LIGHT", Modulation::BPSK, 2, kLight},
    {BPSK_STRONG, "BPSK_STRONG", Modulation::BPSK, 0, kStrong},
    {BPSK, "BPSK", Modulation::BPSK, 0, kPlain},
    {BPSK_LIGHT, "BPSK_LIGHT", Modulation::BPSK, 0, kLight},
    {QAM_4_ULTRA_STRONG, "4QAM_ULTRA_STRONG", Modulation::QAM_4, 0, kUltraStrong},
    {QAM_4_STRONG, "4QAM_STRONG", Modulation::QAM_4, 0, kStrong},
    {QAM_4, "4QAM", Modulation::QAM_4, 0, kPlain},
    {QAM_4_LIGHT, "4QAM_LIGHT", Modulation::QAM_4, 0, kLight},
    {QAM_16_ULTRA_STRONG, "16QAM_ULTRA_STRONG", Modulation::QAM_16, 0, kUltraStrong},
    {QAM_16_STRONG, "16QAM_STRONG", Modulation::QAM_16, 0, kStrong},
    {QAM_16, "16QAM", Modulation::QAM_16, 0, kPlain},
    {QAM_16_LIGHT, "16QAM_LIGHT", Modulation::QAM_16, 0, kLight},
    {QAM_32_STRONG, "32QAM_STRONG", Modulation::QAM_32, 0, kStrong},
    {QAM_32, "32QAM", Modulation::QAM_32, 0, kPlain},
    {QAM_32_LIGHT, "32QAM_LIGHT", Modulation::QAM_32, 0, kLight},
    {QAM_64_ULTRA_STRONG, "64QAM_ULTRA_STRONG", Modulation::QAM_64, 0, kUltraStrong},
    {QAM_64_STRONG, "64QAM_STRONG", Modulation::QAM_64, 0, kStrong},
    {QAM_64, "64QAM", Modulation::QAM_64, 0, kPlain},
    {QAM_64_LIGHT, "64QAM_LIGHT", Modulation::QAM_64, 0, kLight},
    {QAM_128_STRONG, "128QAM_STRONG", Modulation::QAM_128, 0, kStrong},
    {QAM_128, "128QAM", Modulation::QAM_128, 0, kPlain},
    {QAM_128_LIGHT, "128QAM_LIGHT", Modulation::QAM_128, 0, kLight},
    {QAM_256_ULTRA_STRONG, "256QAM_ULTRA_STRONG", Modulation::QAM_256, 0, kUltraStrong},
    {QAM_256_STRONG, "256QAM_STRONG", Modulation::QAM_256, 0, kStrong},
    {QAM_256, "256QAM", Modulation::QAM_256, 0, kPlain},
    {QAM_256_LIGHT, "256QAM_LIGHT", Modulation::QAM_256, 0, kLight},
    {QAM_512_STRONG, "512QAM_STRONG", Modulation::QAM_512, 0, kStrong},
    {QAM_512, "512QAM", Modulation::QAM_512, 0, kPlain},
    {QAM_512_LIGHT, "512QAM_LIGHT", Modulation::QAM_512, 0, kLight},
    {QAM_1024_ULTRA_STRONG, "1024QAM_ULTRA_STRONG", Modulation::QAM_1024, 0, kUltraStrong},
    {QAM_1024_STRONG, "1024QAM_STRONG", Modulation::QAM_1024, 0, kStrong},
    {QAM_1024, "1024QAM", Modulation::QAM_1024, 0, kPlain},
    {QAM_1024_LIGHT, "1024QAM_LIGHT", Modulation::QAM_1024, 0, kLight},
    {QAM_2048_STRONG, "2048QAM_STRONG", Modulation::QAM_2048, 0, kStrong},
    {QAM_2048, "2048QAM", Modulation::QAM_2048, 0, kPlain},
    {QAM_2048_LIGHT, "2048QAM_LIGHT", Modulation::QAM_2048, 0, kLight},
    {QAM_4096_ULTRA_STRONG, "4096QAM_ULTRA_STRONG", Modulation::QAM_4096, 0, kUltraStrong},
    {QAM_4096_STRONG, "4096QAM_STRONG", Modulation::QAM_4096, 0, kStrong},
    {QAM_4096, "4096QAM", Modulation::QAM_4096, 0, kPlain},
    {QAM_4096_LIGHT, "4096QAM_LIGHT", Modulation::QAM_4096, 0, kLight},
    {QAM_8192_STRONG, "8192QAM_STRONG", Modulation::QAM_8192, 0, kStrong},
    {QAM_8192, "8192QAM", Modulation::QAM_8192, 0, kPlain},
    {QAM_8192_LIGHT, "8192QAM_LIGHT", Modulation::QAM_8192, 0, kLight},
    {QAM_16384_ULTRA_STRONG, "16384QAM_ULTRA_STRONG", Modulation::QAM_16384, 0, kUltraStrong},
    {QAM_16384_STRONG, "16384QAM_STRONG", Modulation::QAM_16384, 0, kStrong},
    {QAM_16384, "16384QAM", Modulation::QAM_16384, 0, kPlain},
    {QAM_16384_LIGHT, "16384QAM_LIGHT", Modulation::QAM_16384, 0, kLight},
    {QAM_65536_ULTRA_STRONG, "65536QAM_ULTRA_STRONG", Modulation::QAM_65536, 0, kUltraStrong},
    {QAM_65536_STRONG, "65536QAM_STRONG", Modulation::QAM_65536, 0, kStrong},
    {QAM_65536, "65536QAM", Modulation::QAM_65536, 0, kPlain},
    {QAM_65536_LIGHT, "65536QAM_LIGHT", Modulation::QAM_65536, 0, kLight},
    {UNDEFINED, "UNDEFINED", Modulation::UNDEFINED, 5, kUndefined},
});

static_assert(std::ranges::is_sorted(kRows, std::ranges::less(), &Row::modulationAndCoding));

// For each value up to the greatest, one more than the place of its row; 0 for none.
constexpr auto kPlaces = [] {
    std::array<std::uint8_t, static_cast<std::size_t>(kRows.back().modulationAndCoding) + 1> places{};
    std::uint8_t place = 0;
    for (const Row& row : kRows) {
        places[static_cast<std::size_t>(row.modulationAndCoding)] = ++place;
    }
    return places;
}();

// The row's place; that behind the last row if there is none.
std::size_t placeOf(ModulationAndCoding modulationAndCoding)
{
    const auto value = static_cast<std::size_t>(modulationAndCoding);
    const std::size_t place = value < kPlaces.size() ? kPlaces[value] : 0;
    return place == 0 ? kRows.size() : place - 1;
}

} // namespace

const std::vector<ModulationAndCode>& getModulationAndCodeVector()
{
    static const std::vector<ModulationAndCode> rows = [] {
        std::vector<ModulationAndCode> built;
        built.reserve(kRows.size());
        for (const auto& [modulationAndCoding, name, modulation, variant, coding] : kRows) {
            built.push_back({modulationAndCoding, std::string(name), modulation, variant, coding});
        }
        return built;
    }();
    return rows;
}

const ModulationAndCode* findModulationAndCode(ModulationAndCoding modulationAndCoding)
{
    const std::size_t place = placeOf(modulationAndCoding);
    return place < kRows.size() ? &getModulationAndCodeVector()[place] : nullptr;
}

std::string_view convertCodeAndModulationEnumToString(const ModulationAndCoding& modulationAndCoding)
{
    const std::size_t place = placeOf(modulationAndCoding);
    return place < kRows.size() ? kRows[place].name : kRows.back().name;
}

ModulationAndCoding convertStringToCodeAndModulationEnum(const std::string& text)
{
    const auto* const row = std::ranges::find(kRows, text, &Row::name);
    return row == kRows.end() ? ModulationAndCoding::UNDEFINED : row->modulationAndCoding;
}

std::ostream& operator<<(std::ostream& stream, ModulationAndCoding modulationAndCoding)
{
    return stream << convertCodeAndModulationEnumToString(modulationAndCoding);
}

} // namespace zyr_top_api
