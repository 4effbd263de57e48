#pragma once

#include "Export.h"

#include <cstdint>
#include <string_view>

namespace zyr_top_api
{

/// A constellation; the number is its size. The number 0 stands for an unmodulated carrier and has no
/// enumerator.
enum class Modulation : std::uint32_t
{
    BPSK = 2,
    QAM_4 = 4,
    QAM_16 = 16,
    QAM_32 = 32,
    QAM_64 = 64,
    QAM_128 = 128,
    QAM_256 = 256,
    QAM_512 = 512,
    QAM_1024 = 1024,
    QAM_2048 = 2048,
    QAM_4096 = 4096,
    QAM_8192 = 8192,
    QAM_16384 = 16384,
    QAM_65536 = 65536,
    UNDEFINED = 100000,
};

/// The text of a constellation ("BPSK", "256QAM", and "CW" for 0), "UNDEFINED" for a value without one.
ZYR_EXPORT std::string_view modulationToString(Modulation modulation);

/// The constellation with exactly this text, `UNDEFINED` for any other text.
ZYR_EXPORT Modulation modulationStringToEnum(std::string_view text);

} // namespace zyr_top_api
