#include "ModulationAndCoding.h"

#include <algorithm>
#include <ostream>

namespace zyr_top_api
{

namespace
{

constexpr std::int32_t strong = 0;
constexpr std::int32_t plain = 1;
constexpr std::int32_t light = 2;
constexpr std::int32_t ultraStrong = 3;
constexpr std::int32_t undefined = 4;

} // namespace

const std::vector<ModulationAndCode>& getModulationAndCodeVector()
{
    using enum ModulationAndCoding;
    static const std::vector<ModulationAndCode> rows{
        {HALF_BPSK_STRONG, "HALF_BPSK_STRONG", Modulation::BPSK, 2, strong},
        {HALF_BPSK, "HALF_BPSK", Modulation::BPSK, 2, plain},
        {HALF_BPSK_LIGHT, "HALF_BPSK_LIGHT", Modulation::BPSK, 2, light},
        {BPSK_STRONG, "BPSK_STRONG", Modulation::BPSK, 0, strong},
        {BPSK, "BPSK", Modulation::BPSK, 0, plain},
        {BPSK_LIGHT, "BPSK_LIGHT", Modulation::BPSK, 0, light},
        {QAM_4_ULTRA_STRONG, "4QAM_ULTRA_STRONG", Modulation::QAM_4, 0, ultraStrong},
        {QAM_4_STRONG, "4QAM_STRONG", Modulation::QAM_4, 0, strong},
        {QAM_4, "4QAM", Modulation::QAM_4, 0, plain},
        {QAM_4_LIGHT, "4QAM_LIGHT", Modulation::QAM_4, 0, light},
        {QAM_16_ULTRA_STRONG, "16QAM_ULTRA_STRONG", Modulation::QAM_16, 0, ultraStrong},
        {QAM_16_STRONG, "16QAM_STRONG", Modulation::QAM_16, 0, strong},
        {QAM_16, "16QAM", Modulation::QAM_16, 0, plain},
        {QAM_16_LIGHT, "16QAM_LIGHT", Modulation::QAM_16, 0, light},
        {QAM_32_STRONG, "32QAM_STRONG", Modulation::QAM_32, 0, strong},
        {QAM_32, "32QAM", Modulation::QAM_32, 0, plain},
        {QAM_32_LIGHT, "32QAM_LIGHT", Modulation::QAM_32, 0, light},
        {QAM_64_ULTRA_STRONG, "64QAM_ULTRA_STRONG", Modulation::QAM_64, 0, ultraStrong},
        {QAM_64_STRONG, "64QAM_STRONG", Modulation::QAM_64, 0, strong},
        {QAM_64, "64QAM", Modulation::QAM_64, 0, plain},
        {QAM_64_LIGHT, "64QAM_LIGHT", Modulation::QAM_64, 0, light},
        {QAM_128_STRONG, "128QAM_STRONG", Modulation::QAM_128, 0, strong},
        {QAM_128, "128QAM", Modulation::QAM_128, 0, plain},
        {QAM_128_LIGHT, "128QAM_LIGHT", Modulation::QAM_128, 0, light},
        {QAM_256_ULTRA_STRONG, "256QAM_ULTRA_STRONG", Modulation::QAM_256, 0, ultraStrong},
        {QAM_256_STRONG, "256QAM_STRONG", Modulation::QAM_256, 0, strong},
        {QAM_256, "256QAM", Modulation::QAM_256, 0, plain},
        {QAM_256_LIGHT, "256QAM_LIGHT", Modulation::QAM_256, 0, light},
        {QAM_512_STRONG, "512QAM_STRONG", Modulation::QAM_512, 0, strong},
        {QAM_512, "512QAM", Modulation::QAM_512, 0, plain},
        {QAM_512_LIGHT, "512QAM_LIGHT", Modulation::QAM_512, 0, light},
        {QAM_1024_ULTRA_STRONG, "1024QAM_ULTRA_STRONG", Modulation::QAM_1024, 0, ultraStrong},
        {QAM_1024_STRONG, "1024QAM_STRONG", Modulation::QAM_1024, 0, strong},
        {QAM_1024, "1024QAM", Modulation::QAM_1024, 0, plain},
        {QAM_1024_LIGHT, "1024QAM_LIGHT", Modulation::QAM_1024, 0, light},
        {QAM_2048_STRONG, "2048QAM_STRONG", Modulation::QAM_2048, 0, strong},
        {QAM_2048, "2048QAM", Modulation::QAM_2048, 0, plain},
        {QAM_2048_LIGHT, "2048QAM_LIGHT", Modulation::QAM_2048, 0, light},
        {QAM_4096_ULTRA_STRONG, "4096QAM_ULTRA_STRONG", Modulation::QAM_4096, 0, ultraStrong},
        {QAM_4096_STRONG, "4096QAM_STRONG", Modulation::QAM_4096, 0, strong},
        {QAM_4096, "4096QAM", Modulation::QAM_4096, 0, plain},
        {QAM_4096_LIGHT, "4096QAM_LIGHT", Modulation::QAM_4096, 0, light},
        {QAM_8192_STRONG, "8192QAM_STRONG", Modulation::QAM_8192, 0, strong},
        {QAM_8192, "8192QAM", Modulation::QAM_8192, 0, plain},
        {QAM_8192_LIGHT, "8192QAM_LIGHT", Modulation::QAM_8192, 0, light},
        {QAM_16384_ULTRA_STRONG, "16384QAM_ULTRA_STRONG", Modulation::QAM_16384, 0, ultraStrong},
        {QAM_16384_STRONG, "16384QAM_STRONG", Modulation::QAM_16384, 0, strong},
        {QAM_16384, "16384QAM", Modulation::QAM_16384, 0, plain},
        {QAM_16384_LIGHT, "16384QAM_LIGHT", Modulation::QAM_16384, 0, light},
        {QAM_65536_ULTRA_STRONG, "65536QAM_ULTRA_STRONG", Modulation::QAM_65536, 0, ultraStrong},
        {QAM_65536_STRONG, "65536QAM_STRONG", Modulation::QAM_65536, 0, strong},
        {QAM_65536, "65536QAM", Modulation::QAM_65536, 0, plain},
        {QAM_65536_LIGHT, "65536QAM_LIGHT", Modulation::QAM_65536, 0, light},
        {UNDEFINED, "UNDEFINED", Modulation::UNDEFINED, 5, undefined},
    };
    return rows;
}

const ModulationAndCode* findModulationAndCode(ModulationAndCoding modulationAndCoding)
{
    const auto& rows = getModulationAndCodeVector();
    const auto row = std::ranges::find(rows, modulationAndCoding, &ModulationAndCode::modulationAndCoding);
    return row == rows.end() ? nullptr : &*row;
}

std::string_view convertCodeAndModulationEnumToString(const ModulationAndCoding& modulationAndCoding)
{
    const auto* row = findModulationAndCode(modulationAndCoding);
    return row == nullptr ? std::string_view{"UNDEFINED"} : std::string_view{row->name};
}

ModulationAndCoding convertStringToCodeAndModulationEnum(const std::string& text)
{
    const auto& rows = getModulationAndCodeVector();
    const auto row = std::ranges::find(rows, text, &ModulationAndCode::name);
    return row == rows.end() ? ModulationAndCoding::UNDEFINED : row->modulationAndCoding;
}

std::ostream& operator<<(std::ostream& stream, ModulationAndCoding modulationAndCoding)
{
    return stream << convertCodeAndModulationEnumToString(modulationAndCoding);
}

} // namespace zyr_top_api
