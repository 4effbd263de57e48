#include "Pictures.h"

#include <algorithm>
#include <array>
#include <string_view>

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

void addPowers(std::vector<Line>& lines, const Value& powers, const std::vector<EnumText>& modulations)
{
    constexpr std::int64_t kUnitsPerMark = 10;
    for (const Value& row : powers) {
        const std::int64_t power = row.value("second", std::int64_t{0});
        const auto marks = static_cast<std::size_t>(std::clamp<std::int64_t>(power / kUnitsPerMark, 0, 60));
        std::string number = std::to_string(power);
        number.insert(0, number.size() < 6 ? 6 - number.size() : 0, ' ');
        std::string name = "  " + enumeration(row.value("first", Value()), modulations);
        name.resize(std::max<std::size_t>(name.size(), 22), ' ');
        lines.push_back({name + number + " " + std::string(marks, '#')});
    }
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
    std::vector<Line> lines;
    for (std::string& text :
         renderTable({"frame", "type", "standard", "spacing", "modulations", "capacity"}, rows)) {
        lines.push_back({std::move(text)});
    }
    return lines;
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

} // namespace zyr_ctl
