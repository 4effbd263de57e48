#include "Spectrum.h"

#include "Failure.h"
#include "Measure.h"
#include "Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string_view>
#include <utility>

namespace zyr_ctl
{

namespace
{

constexpr std::int64_t kProminence_dBTenths = 30;
constexpr std::int64_t kAboveNoise_dBTenths = 60;
constexpr std::size_t kMostPeaks = 10;

constexpr std::size_t kRows = 12;
constexpr std::int64_t kGrid_dBmTenths = 100;
constexpr std::size_t kLabelWidth = 8;
constexpr std::size_t kLeastPlot = 20;

// From nothing to a full cell.
constexpr std::array<std::string_view, 9> kBlocks{" ", "▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};
constexpr std::array<std::string_view, 4> kAsciiBlocks{" ", ".", ":", "#"};

std::span<const std::string_view> blocks(bool isAscii)
{
    return isAscii ? std::span<const std::string_view>(kAsciiBlocks)
                   : std::span<const std::string_view>(kBlocks);
}

std::string inMHz(std::int64_t frequency_kHz)
{
    return digitsIn(commonUnit("kHz"), frequency_kHz);
}

std::int64_t noiseOf(std::span<const SpectrumPoint> points)
{
    std::vector<std::int64_t> levels;
    levels.reserve(points.size());
    for (const SpectrumPoint& point : points) {
        levels.push_back(point.level_dBmTenths);
    }
    const auto quarter = levels.begin() + static_cast<std::ptrdiff_t>(levels.size() / 4);
    std::ranges::nth_element(levels, quarter);
    return *quarter;
}

// What a run of points of one level stands out by: above the higher one of the lowest levels on its way to a
// higher point, or to the end, on both sides. Of two runs as high as each other the first counts.
std::int64_t prominence(std::span<const SpectrumPoint> points, std::size_t first, std::size_t end)
{
    const std::int64_t level = points[first].level_dBmTenths;
    std::int64_t left = std::numeric_limits<std::int32_t>::min();
    for (std::size_t at = first; at > 0 && points[at - 1].level_dBmTenths < level; --at) {
        const std::int64_t below = points[at - 1].level_dBmTenths;
        left = at == first ? below : std::min(left, below);
    }
    std::int64_t right = std::numeric_limits<std::int32_t>::min();
    for (std::size_t at = end; at < points.size() && points[at].level_dBmTenths <= level; ++at) {
        const std::int64_t below = points[at].level_dBmTenths;
        right = at == end ? below : std::min(right, below);
    }
    return level - std::max(left, right);
}

SpectrumPeak peakAt(std::span<const SpectrumPoint> points, std::size_t first, std::size_t end)
{
    const std::int64_t least = points[first].level_dBmTenths - kProminence_dBTenths;
    std::size_t last = end - 1;
    while (first > 0 && points[first - 1].level_dBmTenths > least) {
        --first;
    }
    while (last + 1 < points.size() && points[last + 1].level_dBmTenths > least) {
        ++last;
    }
    const std::int64_t low = points[first].frequency_kHz;
    const std::int64_t high = points[last].frequency_kHz;
    const std::int64_t step = points.size() > 1 ? points[1].frequency_kHz - points[0].frequency_kHz : 0;
    return {(low + high) / 2, points[end - 1].level_dBmTenths, std::max(high - low, step)};
}

// The highest level of the points that share a column.
std::vector<std::int64_t> columnsOf(std::span<const SpectrumPoint> points, std::size_t most)
{
    std::vector<std::int64_t> columns(std::min(points.size(), most),
                                      std::numeric_limits<std::int64_t>::min());
    for (std::size_t index = 0; index < points.size(); ++index) {
        auto& column = columns[index * columns.size() / points.size()];
        column = std::max(column, points[index].level_dBmTenths);
    }
    return columns;
}

// The levels that the picture goes from and to: multiples of 10 dBm.
std::pair<std::int64_t, std::int64_t> rangeOf(std::span<const std::int64_t> levels)
{
    const auto [lowest, highest] = std::ranges::minmax(levels);
    const auto onGrid = [](double level) { return static_cast<std::int64_t>(level) * kGrid_dBmTenths; };
    const std::int64_t from = onGrid(std::floor(static_cast<double>(lowest) / kGrid_dBmTenths));
    const std::int64_t to = onGrid(std::ceil(static_cast<double>(highest) / kGrid_dBmTenths));
    return {from, std::max(to, from + kGrid_dBmTenths)};
}

std::string levelLabel(std::int64_t level)
{
    const std::string text = std::to_string(level / 10) + " dBm";
    return std::string(text.size() < kLabelWidth ? kLabelWidth - text.size() : 0, ' ') + text;
}

void addPlot(std::vector<Line>& lines, std::span<const std::int64_t> levels, bool isAscii)
{
    const auto [from, to] = rangeOf(levels);
    const auto glyphs = blocks(isAscii);
    const auto steps = static_cast<std::int64_t>(glyphs.size() - 1);
    for (std::size_t row = 0; row < kRows; ++row) {
        const auto below = static_cast<std::int64_t>(kRows - 1 - row) * steps;
        std::string text = row == 0           ? levelLabel(to)
                           : row == kRows / 2 ? levelLabel((from + to) / 2)
                                              : std::string(kLabelWidth, ' ');
        text += " |";
        for (const std::int64_t level : levels) {
            // The lowest level still shows.
            const std::int64_t height = std::max<std::int64_t>(
                (level - from) * static_cast<std::int64_t>(kRows) * steps / (to - from), 1);
            text += glyphs[static_cast<std::size_t>(std::clamp<std::int64_t>(height - below, 0, steps))];
        }
        lines.push_back({text.substr(0, text.find_last_not_of(' ') + 1)});
    }
    lines.push_back({levelLabel(from) + " +" + std::string(levels.size(), '-')});
}

// First and last frequency below the ends of the picture, and the middle one if there is room.
Line frequencyAxis(std::span<const SpectrumPoint> points, std::size_t width)
{
    const std::string first = inMHz(points.front().frequency_kHz);
    const std::string middle = inMHz((points.front().frequency_kHz + points.back().frequency_kHz) / 2);
    const std::string last = inMHz(points.back().frequency_kHz);
    std::string text = std::string(kLabelWidth + 2, ' ') + first;
    const auto place = [&](const std::string& label, std::size_t column) {
        const std::size_t start = kLabelWidth + 2 + column;
        text.resize(std::max(text.size() + 1, start), ' ');
        text += label;
    };
    if (width >= first.size() + middle.size() + last.size() + 2) {
        place(middle, (width - middle.size()) / 2);
    }
    place(last, width - std::min(width, last.size()));
    return {text + " MHz"};
}

void addPeaks(std::vector<Line>& lines, std::span<const SpectrumPoint> points)
{
    const auto peaks = peaksOf(points);
    if (peaks.empty()) {
        lines.push_back({"No peaks"});
        return;
    }
    std::vector<std::vector<std::string>> rows;
    rows.reserve(peaks.size());
    for (const SpectrumPeak& peak : peaks) {
        rows.push_back({inMHz(peak.frequency_kHz), digitsIn(commonUnit("0.1 dBm"), peak.level_dBmTenths),
                        inMHz(peak.width_kHz)});
    }
    for (std::string& text : renderTable({"peak (MHz)", "level (dBm)", "width (MHz)"}, rows)) {
        lines.push_back({std::move(text)});
    }
}

// What can be calculated with.
std::int64_t measuredNumber(const Value& record, const char* name)
{
    const std::int64_t number = record.value(name, std::int64_t{0});
    if (number < INT32_MIN || number > INT32_MAX) {
        throw Failure(ExitStatus::Protocol, std::string("the node answers with a ") + name + " of " +
                                                std::to_string(number) + ", which no receiver can have");
    }
    return number;
}

} // namespace

std::vector<SpectrumPoint> pointsOf(const Value& answer)
{
    std::vector<SpectrumPoint> points;
    for (const Value& record : answer.value("Result", Value::array())) {
        points.push_back({measuredNumber(record, "Frequency"), measuredNumber(record, "Rssi")});
    }
    return points;
}

std::vector<SpectrumPeak> peaksOf(std::span<const SpectrumPoint> points)
{
    std::vector<SpectrumPeak> peaks;
    if (points.empty()) {
        return peaks;
    }
    const std::int64_t noise = noiseOf(points);
    for (std::size_t first = 0, end = 0; first < points.size(); first = end) {
        const std::int64_t level = points[first].level_dBmTenths;
        while (end < points.size() && points[end].level_dBmTenths == level) {
            ++end;
        }
        const bool isTop = (first == 0 || points[first - 1].level_dBmTenths < level) &&
                           (end == points.size() || points[end].level_dBmTenths < level);
        if (isTop && level >= noise + kAboveNoise_dBTenths &&
            prominence(points, first, end) >= kProminence_dBTenths) {
            peaks.push_back(peakAt(points, first, end));
        }
    }
    std::ranges::stable_sort(peaks, std::ranges::greater(), &SpectrumPeak::level_dBmTenths);
    peaks.resize(std::min(peaks.size(), kMostPeaks));
    std::ranges::sort(peaks, {}, &SpectrumPeak::frequency_kHz);
    return peaks;
}

std::vector<Line> spectrumPicture(std::int64_t channel, const Value& answer, const SpectrumStyle& style)
{
    const auto points = pointsOf(answer);
    std::vector<Line> lines{{"Radio channel " + std::to_string(channel) + ", " +
                             printable(answer.value("Status", std::string("-"))) + ", " +
                             std::to_string(points.size()) + " points"}};
    if (points.empty()) {
        return lines;
    }
    const std::size_t margin = kLabelWidth + 2;
    const auto levels = columnsOf(points, std::max(style.columns, margin + kLeastPlot) - margin);
    addPlot(lines, levels, style.isAscii);
    lines.push_back(frequencyAxis(points, levels.size()));
    lines.push_back({""});
    addPeaks(lines, points);
    return lines;
}

std::vector<Line> spectrumCsv(const Value& answer)
{
    std::vector<Line> lines{{"Frequency,Rssi"}};
    for (const SpectrumPoint& point : pointsOf(answer)) {
        lines.push_back({std::to_string(point.frequency_kHz) + "," + std::to_string(point.level_dBmTenths)});
    }
    return lines;
}

std::string progressBar(std::int64_t percent, bool isAscii)
{
    constexpr std::int64_t width = 40;
    const auto glyphs = blocks(isAscii);
    const auto steps = static_cast<std::int64_t>(glyphs.size() - 1);
    // A cell is a whole block or nothing with characters of ASCII: their parts would look like a fault.
    const std::int64_t parts = isAscii ? 1 : steps;
    const std::int64_t filled = std::clamp<std::int64_t>(percent, 0, 100) * width * parts / 100;
    std::string bar = "[";
    for (std::int64_t cell = 0; cell < width; ++cell) {
        const std::int64_t part = std::clamp<std::int64_t>(filled - cell * parts, 0, parts);
        bar += glyphs[static_cast<std::size_t>(part * steps / parts)];
    }
    return bar + "] " + std::to_string(percent) + " %";
}

} // namespace zyr_ctl
