#pragma once

#include "Rendering.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

// The result of a spectrum scan as people and tools want it. Pure functions.

namespace zyr_ctl
{

/// What a scan has found at a frequency.
struct SpectrumPoint
{
    std::int64_t frequency_kHz = 0;
    std::int64_t level_dBmTenths = 0;
};

/// What stands out of its surroundings by 3 dB and of the noise by 6 dB.
struct SpectrumPeak
{
    std::int64_t frequency_kHz = 0; ///< The middle of its width.
    std::int64_t level_dBmTenths = 0;
    std::int64_t width_kHz = 0; ///< Of what is less than 3 dB below; one step of the scan at least.

    bool operator==(const SpectrumPeak&) const = default;
};

/// How a spectrum is drawn.
struct SpectrumStyle
{
    bool isAscii = false;     ///< Without the characters for blocks.
    std::size_t columns = 80; ///< What a line may take.
};

/// The points of an answer of "CRI.GetSpectrumDiagnostics".
/// @throws Failure (protocol), as the functions below that take an answer do, if a number is none that a
/// receiver can have
std::vector<SpectrumPoint> pointsOf(const Value& answer);

/// The ten highest peaks, in the order of their frequencies. The noise is what a quarter of the points lie
/// below.
std::vector<SpectrumPeak> peaksOf(std::span<const SpectrumPoint> points);

/// Level over frequency, and the peaks as a table. Where points share a column the highest one shows.
std::vector<Line> spectrumPicture(std::int64_t channel, const Value& answer, const SpectrumStyle& style);

/// The points as comma-separated values, with the names of the fields as headings.
std::vector<Line> spectrumCsv(const Value& answer);

/// How far a scan has come, as a bar and in per cent.
std::string progressBar(std::int64_t percent, bool isAscii);

} // namespace zyr_ctl
