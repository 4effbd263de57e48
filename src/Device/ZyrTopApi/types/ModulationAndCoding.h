#pragma once

#include "Export.h"
#include "Modulation.h"

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace zyr_top_api
{

/// A constellation together with the strength of its code.
///
/// The values have gaps, and their order is not that of the modulation steps. Any 32-bit value may occur.
enum class ModulationAndCoding : std::uint32_t
{
    HALF_BPSK_STRONG = 10,
    HALF_BPSK = 11,
    HALF_BPSK_LIGHT = 12,
    BPSK_STRONG = 20,
    BPSK = 21,
    BPSK_LIGHT = 22,
    QAM_4_ULTRA_STRONG = 23,
    QAM_4_STRONG = 30,
    QAM_4 = 31,
    QAM_4_LIGHT = 32,
    QAM_16_ULTRA_STRONG = 33,
    QAM_16_STRONG = 40,
    QAM_16 = 41,
    QAM_16_LIGHT = 42,
    QAM_32_STRONG = 50,
    QAM_32 = 51,
    QAM_32_LIGHT = 52,
    QAM_64_ULTRA_STRONG = 53,
    QAM_64_STRONG = 60,
    QAM_64 = 61,
    QAM_64_LIGHT = 62,
    QAM_128_STRONG = 70,
    QAM_128 = 71,
    QAM_128_LIGHT = 72,
    QAM_256_ULTRA_STRONG = 73,
    QAM_256_STRONG = 80,
    QAM_256 = 81,
    QAM_256_LIGHT = 82,
    QAM_512_STRONG = 90,
    QAM_512 = 91,
    QAM_512_LIGHT = 92,
    QAM_1024_ULTRA_STRONG = 93,
    QAM_1024_STRONG = 100,
    QAM_1024 = 101,
    QAM_1024_LIGHT = 102,
    QAM_2048_STRONG = 110,
    QAM_2048 = 111,
    QAM_2048_LIGHT = 112,
    QAM_4096_ULTRA_STRONG = 113,
    QAM_4096_STRONG = 120,
    QAM_4096 = 121,
    QAM_4096_LIGHT = 122,
    QAM_8192_STRONG = 130,
    QAM_8192 = 131,
    QAM_8192_LIGHT = 132,
    QAM_16384_ULTRA_STRONG = 133,
    QAM_16384_STRONG = 140,
    QAM_16384 = 141,
    QAM_16384_LIGHT = 142,
    QAM_65536_ULTRA_STRONG = 143,
    QAM_65536_STRONG = 160,
    QAM_65536 = 161,
    QAM_65536_LIGHT = 162,
    UNDEFINED = 163, ///< No value; the answer of operations that are not supported.
};

/// One row of the modulation table.
struct ModulationAndCode
{
    ModulationAndCoding modulationAndCoding; ///< The row's key.
    std::string name;                        ///< Its text.
    Modulation modulation;                   ///< The constellation.
    std::int32_t variant;                    ///< 2 for the half rate BPSK rows, 5 for `UNDEFINED`, else 0.
    std::int32_t coding;                     ///< 0 strong, 1 plain, 2 light, 3 ultra strong, 4 undefined.
};

/// The table of all modulations, ascending by key. Built at first use, never changed; safe from any thread.
ZYR_EXPORT const std::vector<ModulationAndCode>& getModulationAndCodeVector();

/// The first row with this key, null if the table has none. The row lives as long as the process.
ZYR_EXPORT const ModulationAndCode* findModulationAndCode(ModulationAndCoding modulationAndCoding);

/// The text of a modulation, "UNDEFINED" for a value that is not in the table.
ZYR_EXPORT std::string_view
convertCodeAndModulationEnumToString(const ModulationAndCoding& modulationAndCoding);

/// The modulation with exactly this text, `UNDEFINED` if there is none.
ZYR_EXPORT ModulationAndCoding convertStringToCodeAndModulationEnum(const std::string& text);

/// Prints the text of a modulation.
ZYR_EXPORT std::ostream& operator<<(std::ostream& stream, ModulationAndCoding modulationAndCoding);

} // namespace zyr_top_api
