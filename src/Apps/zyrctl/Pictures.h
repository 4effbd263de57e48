#pragma once

#include "Rendering.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

// Answers as technicians want them on the screen. Pure functions; a member that a node doesn't give shows as
// "-".

namespace zyr_ctl
{

/// Numbers over time as one line of bars, the lowest as the lowest bar.
std::string sparkline(std::span<const std::int64_t> numbers);

using Fields = std::vector<FieldDescription>;

/// The status of a channel: transmitter, link, modulation, level and blocks, and what else is running.
/// @param fields  the description of the answer, as in the pictures below: it has the units and texts
/// @param levels  the received levels so far, the latest last; drawn if there are two or more
std::vector<Line> statusPicture(std::int64_t channel, const Value& status, const Fields& fields,
                                std::span<const std::int64_t> levels);

/// The radio frames of an air interface, one line each, with the range of their modulations and capacities.
std::vector<Line> framesPicture(const Value& answer, const Fields& fields);

/// What a channel can do: frequencies, features, and a bar for the maximum power of each modulation.
std::vector<Line> capabilityPicture(std::int64_t channel, const Value& answer, const Fields& fields);

/// The alarms of a node, one line each.
std::vector<Line> eventsPicture(const Value& answer);

/// The loops of a node, one line each.
std::vector<Line> loopsPicture(const Value& answer);

/// An answer and its description.
struct DescribedAnswer
{
    Value answer;
    Fields fields;
};

/// How ACM of a channel stands.
struct AcmAnswers
{
    DescribedAnswer mode;
    DescribedAnswer status;
    DescribedAnswer thresholds; ///< empty: the node doesn't tell them
};

/// The mode, the modulation of each direction, and the thresholds as a ladder, the highest first, with the
/// present SNIR between the rungs.
std::vector<Line> acmPicture(std::int64_t channel, const AcmAnswers& answers);

/// The space diversity combiner of a channel, with the levels of its two inputs as bars.
std::vector<Line> combinerPicture(std::int64_t channel, const Value& answer, const Fields& fields);

/// How the pulse per second of a channel stands.
struct PpsAnswers
{
    DescribedAnswer calibration;
    DescribedAnswer hopLength;
    DescribedAnswer settings; ///< empty: the node doesn't tell them
    std::string noHopLength;  ///< why there is none; empty: there is one
};

/// Where the calibration stands, as the picture names it.
std::string calibrationState(const DescribedAnswer& calibration);

/// Source, output, calibration and the hop's length as time and as the way of light.
/// @param progress  the states of the calibration so far; drawn if it isn't empty
std::vector<Line> ppsPicture(std::int64_t channel, const PpsAnswers& answers, const std::string& progress);

} // namespace zyr_ctl
