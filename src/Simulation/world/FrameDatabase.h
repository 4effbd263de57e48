#pragma once

#include "FFConfigType.h"
#include "ModulationAndCoding.h"
#include "ModulationLadder.h"
#include "RadioFrameRecord.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace zyr_simulation
{

/// A radio frame of the simulated hardware database.
struct RadioFrame
{
    unsigned id;
    std::int32_t channelSpacing_kHz;
    std::string_view telecomStd; ///< "ETSI" or "ANSI".
    zyr_top_api::FFConfigType type;
    bool isReleased;
};

/// All radio frames. The hundreds of an identifier tell the type, from 11 in its last two digits it is ANSI.
///
/// | Identifiers | Type | Channel spacings, MHz |
/// |---|---|---|
/// | 101 to 105 | Std, ETSI | 14, 28, 56, 112, 224 (105 isn't released) |
/// | 111 to 113 | Std, ANSI | 30, 40, 80 |
/// | 201 to 203 | Xpic, ETSI | 28, 56, 112 |
/// | 211, 212 | Xpic, ANSI | 40, 80 |
/// | 301 to 303 | Mimo, ETSI | 28, 56, 112 (303 isn't released) |
/// | 401, 402 | Mrc, ETSI | 28, 56 |
/// | 411 | Mrc, ANSI | 40 |
/// | 501 | Mrcx, ETSI | 56 |
const std::vector<RadioFrame>& radioFrames();

/// The frame with this identifier, null if there is none.
const RadioFrame* findRadioFrame(unsigned id);

/// Whether frames carry this modulation: 4QAM strong up to 4096QAM light, without the ultra strong codes.
bool isUsedInFrames(zyr_top_api::ModulationAndCoding modulation);

/// The modulations from one to another that frames carry, the most robust first; none for a range that is
/// none.
std::span<const LadderRung> rungsBetween(zyr_top_api::ModulationAndCoding min,
                                         zyr_top_api::ModulationAndCoding max);

/// The capacity of a frame with a modulation, in kbit/s; 0 for a value that is no modulation.
std::uint32_t capacity_kbit(const RadioFrame& frame, zyr_top_api::ModulationAndCoding modulation);

/// A frame as the database hands it out, with all the modulations that frames carry. The capacity is
/// in kbit/s.
zyr_top_api::RadioFrameRecord recordOf(const RadioFrame& frame);

} // namespace zyr_simulation
