#pragma once

#include "FeatureCapability.h"
#include "FrequencyCapability.h"
#include "ModulationAndCoding.h"

#include <cstdint>

namespace zyr_simulation
{

/// A type of radio unit: what it can be set to and what it can do.
struct RadioType
{
    const char* name;
    zyr_top_api::FrequencyCapability frequencies; ///< The duplex type is the node's setting.
    zyr_top_api::FeatureCapability features;      ///< Two transmitters are the node's setting.
    std::int32_t minPower_dBmTenths;
    std::int32_t maxPower_dBmTenths; ///< With the most robust modulation.
    /// The greatest modulation in frames wider than `wideSpacing_kHz`, `UNDEFINED` for no limit.
    zyr_top_api::ModulationAndCoding greatestInWideFrames;
    std::int32_t wideSpacing_kHz;
    std::int32_t greatestSpacing_kHz; ///< Wider frames can't be used at all.
    std::uint32_t unitLatency_ns;     ///< What each end adds to the way of the signal.
};

/// The radio type with this number.
///
/// | Number | Band | Transmit, kHz | Receive, kHz | Power, dBm | Particular |
/// |---|---|---|---|---|---|
/// | 1 | 15 GHz | 14500000 to 14620000 | 14920000 to 15040000 | -5 to 26 | 1024QAM at most above 80 MHz |
/// | 2 | 23 GHz | 22000000 to 22600000 | 23008000 to 23608000 | -8 to 22 | carrier aggregation |
/// | 3 | 6 GHz | 5930000 to 6170000 | 6182000 to 6422000 | 0 to 31 | space diversity combiner, booster |
/// @throws std::invalid_argument for another number
const RadioType& radioType(unsigned number);

/// The sub-bands of a radio unit: equal parts of its band, numbered from 1 upwards.
inline constexpr unsigned kSubBands = 4;

/// The frequencies of a unit whose active sub-band is this one, 0 for the whole band. The bases stay those of
/// the band.
zyr_top_api::FrequencyCapability frequenciesOf(const RadioType& type, unsigned subBand);

} // namespace zyr_simulation
