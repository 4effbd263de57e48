#include "Pictures.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace zyr_ctl
{

namespace
{

constexpr std::array<std::string_view, 8> kBars{"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};

std::string textOf(const Value& value)
{
    return value.is_string() ? value.get<std::string>() : value.dump();
}

std::string member(const Value& record, const char* name)
{
    const auto found = record.find(name);
    return found == record.end() ? "-" : textOf(*found);
}

bool flag(const Value& record, const char* name)
{
    const auto found = record.find(name);
    return found != record.end() && found->is_boolean() && found->get<bool>();
}

std::string enumeration(const Value& value, const std::vector<EnumText>& texts)
{
    if (value.is_number_integer()) {
        const auto row = std::ranges::find(texts, value.get<std::int64_t>(), &EnumText::number);
        if (row != texts.end()) {
            return row->text;
        }
    }
    return textOf(value);
}

const Value& listOf(const Value& record, const char* name)
{
    static const Value none = Value::array();
    const auto found = record.find(name);
    return found != record.end() && found->is_array() ? *found : none;
}

Line labelled(std::string label, const std::string& text)
{
    constexpr std::size_t kLabelWidth = 14;
    label.resize(std::max(label.size() + 1, kLabelWidth), ' ');
    return {label + text};
}

std::string joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : ", ") + word;
    }
    return text.empty() ? "none" : text;
}

std::string runningFeatures(const Value& status)
{
    std::vector<std::string> running;
    if (flag(status, "XpicIsStarted")) {
        running.push_back("XPIC " + member(status, "XpicStatus") + ", XPI " + member(status, "ActualXpi"));
    }
    if (flag(status, "MimoIsStarted")) {
        running.push_back(std::string("MIMO ") + (flag(status, "IsMimo4x4") ? "4x4 " : "2x2 ") +
                          member(status, "MimoStatus"));
    }
    if (flag(status, "BasebandSdcIsStarted")) {
        running.push_back("baseband SDC " + member(status, "ActualDadeStatusBasebandSdc"));
    }
    return joined(running);
}

std::string availableFeatures(const Value& answer)
{
    constexpr std::array<std::array<const char*, 2>, 7> kFeatures{{
        {"TapsCapable", "TAPS"},
        {"RfLoopAvailable", "RF loop"},
        {"CarrierAggregationCapable", "carrier aggregation"},
        {"SpaceDiversityCombinerCapable", "space diversity"},
        {"LongHaulBoosterCapable", "long haul booster"},
        {"PathLatencyCapable", "path latency"},
        {"Is2T2R", "two transmitters"},
    }};
    std::vector<std::string> available;
    for (const auto& [name, text] : kFeatures) {
        if (flag(answer, name)) {
            available.emplace_back(text);
        }
    }
    return joined(available);
}

std::string modulationRange(const Value& modulations, const std::vector<EnumText>& texts)
{
    if (modulations.empty()) {
        return "none";
    }
    return enumeration(modulations.front().value("Modulation", Value()), texts) + " to " +
           enumeration(modulations.back().value("Modulation", Value()), texts);
}

std::string capacityRange(const Value& modulations)
{
    return modulations.empty()
               ? "-"
               : member(modulations.front(), "Capacity") + " to " + member(modulations.back(), "Capacity");
}

// "  256QAM                 250", in columns.
std::string nameAndNumber(const std::string& name, std::int64_t number)
{
    std::string digits = std::to_string(number);
    digits.insert(0, digits.size() < 6 ? 6 - digits.size() : 0, ' ');
    std::string text = "  " + name;
    text.resize(std::max<std::size_t>(text.size(), 22), ' ');
    return text + digits;
}

void addPowers(std::vector<Line>& lines, const Value& powers, const std::vector<EnumText>& modulations)
{
    constexpr std::int64_t kUnitsPerMark = 10;
    for (const Value& row : powers) {
        const std::int64_t power = row.value("second", std::int64_t{0});
        const auto marks = static_cast<std::size_t>(std::clamp<std::int64_t>(power / kUnitsPerMark, 0, 60));
        lines.push_back({nameAndNumber(enumeration(row.value("first", Value()), modulations), power) + " " +
                         std::string(marks, '#')});
    }
}

std::vector<Line> tableLines(const std::vector<std::string>& headings,
                             const std::vector<std::vector<std::string>>& rows)
{
    std::vector<Line> lines;
    for (std::string& text : renderTable(headings, rows)) {
        lines.push_back({std::move(text)});
    }
    return lines;
}

// A rung of the ladder of thresholds.
struct Rung
{
    std::string name;
    std::int64_t threshold;
    std::string mark;
};

std::vector<Rung> rungsOf(const AcmAnswers& answers)
{
    const std::string received = member(answers.status, "ActualRxModulation");
    const std::string sent = member(answers.status, "ActualTxModulation");
    std::vector<Rung> rungs;
    for (const Value& record : listOf(answers.thresholds, "thresholds")) {
        std::string name = enumeration(record.value("modulationAndCoding", Value()), answers.modulations);
        std::vector<std::string> marks;
        if (name == received) {
            marks.emplace_back("received");
        }
        if (name == sent) {
            marks.emplace_back("sent");
        }
        rungs.push_back({std::move(name), record.value("threshold", std::int64_t{0}),
                         marks.empty() ? "" : joined(marks)});
    }
    const auto snir = answers.status.find("ActualSNIR");
    if (snir != answers.status.end() && snir->is_number_integer()) {
        rungs.push_back({"----", snir->get<std::int64_t>(), "SNIR now"});
    }
    return rungs;
}

void addLadder(std::vector<Line>& lines, const AcmAnswers& answers)
{
    auto rungs = rungsOf(answers);
    // The SNIR, which comes last, stands above the thresholds that it reaches.
    std::ranges::reverse(rungs);
    std::ranges::stable_sort(rungs, std::ranges::greater(), &Rung::threshold);
    for (const Rung& rung : rungs) {
        lines.push_back(
            {nameAndNumber(rung.name, rung.threshold) + (rung.mark.empty() ? "" : "  " + rung.mark)});
    }
}

// The character that a number stands for, the number itself if that can't be shown.
std::string character(const Value& record, const char* name)
{
    const auto found = record.find(name);
    const bool isNumber = found != record.end() && found->is_number_integer();
    const std::int64_t code = isNumber ? found->get<std::int64_t>() : 0;
    return code > ' ' && code < '\x7f' ? std::string(1, static_cast<char>(code)) : member(record, name);
}

// A mark for every 2 dB above the level of a receiver that hears nothing.
std::string levelBar(const Value& record, const char* name)
{
    constexpr std::int64_t kNoLevel = -990;
    constexpr std::int64_t kUnitsPerMark = 20;
    const auto found = record.find(name);
    const bool isNumber = found != record.end() && found->is_number_integer();
    const std::int64_t above = isNumber ? found->get<std::int64_t>() - kNoLevel : 0;
    return std::string(static_cast<std::size_t>(std::clamp<std::int64_t>(above / kUnitsPerMark, 0, 60)), '#');
}

} // namespace

std::string sparkline(std::span<const std::int64_t> numbers)
{
    if (numbers.empty()) {
        return {};
    }
    const auto [lowest, highest] = std::ranges::minmax(numbers);
    const std::int64_t span = std::max<std::int64_t>(highest - lowest, 1);
    std::string line;
    for (const std::int64_t number : numbers) {
        const auto bar = (number - lowest) * static_cast<std::int64_t>(kBars.size() - 1) / span;
        line += kBars[static_cast<std::size_t>(bar)];
    }
    return line;
}

std::vector<Line> statusPicture(std::int64_t channel, const Value& status,
                                std::span<const std::int64_t> levels)
{
    std::vector<Line> lines{
        {"Radio channel " + std::to_string(channel) + ", node " + member(status, "ZyrState")},
        labelled("Link", member(status, "RadioChannelStatus")),
        labelled("Transmitter",
                 member(status, "TXActualStatus") + ", " + member(status, "ReportedRFOutputPower") + ", " +
                     member(status, "TxFrequency") + ", " + member(status, "ActualTxModulation")),
        labelled("Receiver", member(status, "ActualRFInputPower") + ", " + member(status, "RxFrequency") +
                                 ", " + member(status, "ActualRxModulation")),
        labelled("SNIR", member(status, "ActualSNIR")),
        labelled("Blocks", "errored " + member(status, "ErroredBlocks") + ", background " +
                               member(status, "BackgroundBlocks")),
        labelled("Hop latency", member(status, "HopLengthLatency") + " ns"),
        labelled("Running", runningFeatures(status)),
    };
    if (levels.size() > 1) {
        const auto [lowest, highest] = std::ranges::minmax(levels);
        lines.push_back(labelled("Level", sparkline(levels) + "  " + std::to_string(lowest) + " to " +
                                              std::to_string(highest)));
    }
    return lines;
}

std::vector<Line> framesPicture(const Value& answer, const std::vector<EnumText>& modulations,
                                const std::vector<EnumText>& linkTypes)
{
    std::vector<std::vector<std::string>> rows;
    for (const Value& frame : listOf(answer, "FrameFormatCapabilities")) {
        const Value& available = listOf(frame, "AvailableModulations");
        rows.push_back({member(frame, "RadioFrameID"),
                        enumeration(frame.value("FrameLinkType", Value()), linkTypes),
                        member(frame, "TelecomStd"), member(frame, "ChannelSpacing"),
                        modulationRange(available, modulations), capacityRange(available)});
    }
    return tableLines({"frame", "type", "standard", "spacing", "modulations", "capacity"}, rows);
}

std::vector<Line> capabilityPicture(std::int64_t channel, const Value& answer,
                                    const std::vector<EnumText>& modulations)
{
    std::vector<Line> lines{
        {"Radio channel " + std::to_string(channel) + " of " + member(answer, "NumberOfChannels")},
        labelled("Transmit", member(answer, "MinTXFrequency") + " to " + member(answer, "MaxTXFrequency") +
                                 ", step " + member(answer, "FrequencyStepSize")),
        labelled("Receive", member(answer, "MinRXFrequency") + " to " + member(answer, "MaxRXFrequency") +
                                ", duplex " + member(answer, "DuplexType")),
        labelled("Band",
                 member(answer, "FrequencyBand") + ", sub-band " + member(answer, "FrequencySubBand")),
        labelled("Temperature", member(answer, "MinTemp") + " to " + member(answer, "MaxTemp")),
        labelled("Features", availableFeatures(answer)),
        labelled("Power", "from " + member(answer, "AvailableMinRFOutputPower") + ", up to"),
    };
    addPowers(lines, listOf(answer, "AvailableMaxRFOutputPower"), modulations);
    return lines;
}

std::vector<Line> loopsPicture(const Value& answer)
{
    std::vector<std::vector<std::string>> rows;
    for (const Value& loop : listOf(answer, "loops")) {
        rows.push_back({member(loop, "loopName"), flag(loop, "closed") ? "closed" : "open"});
    }
    return tableLines({"loop", "state"}, rows);
}

std::vector<Line> acmPicture(std::int64_t channel, const AcmAnswers& answers)
{
    std::vector<Line> lines{
        {"Radio channel " + std::to_string(channel)},
        labelled("ACM mode",
                 enumeration(answers.mode.value("acmMode", Value("-")), answers.modes) + ", " +
                     enumeration(answers.mode.value("acmModePosition", Value("-")), answers.positions)),
        labelled("Transmit", member(answers.status, "ActualTxModulation")),
        labelled("Receive", member(answers.status, "ActualRxModulation")),
        labelled("SNIR", member(answers.status, "ActualSNIR")),
    };
    if (answers.thresholds.empty()) {
        lines.push_back(labelled("Thresholds", "not told by this node"));
    } else {
        lines.push_back(labelled("Thresholds", "SNIR below which the receiver leaves the modulation"));
        addLadder(lines, answers);
    }
    return lines;
}

std::vector<Line> combinerPicture(std::int64_t channel, const Value& answer)
{
    std::vector<Line> lines{
        {"Radio channel " + std::to_string(channel) + ", combiner " + member(answer, "sdcOperStatus")},
        labelled("Calibration",
                 member(answer, "sdcDadeStatus") + ", delay " + member(answer, "sdcDadeDelay")),
        labelled("Path in use", member(answer, "actualPath")),
        labelled("Gain", member(answer, "sdcGain")),
    };
    const std::vector<std::vector<std::string>> rows{
        {"main", member(answer, "sdcInputPowerMain"), character(answer, "hwErrorSdcMain"),
         levelBar(answer, "sdcInputPowerMain")},
        {"diversity", member(answer, "sdcInputPowerDiversity"), character(answer, "hwErrorSdcDiversity"),
         levelBar(answer, "sdcInputPowerDiversity")},
    };
    for (std::string& text : renderTable({"path", "level", "error", ""}, rows)) {
        lines.push_back({std::move(text)});
    }
    return lines;
}

} // namespace zyr_ctl
