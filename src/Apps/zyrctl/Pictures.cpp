#include "Pictures.h"

#include "Measure.h"
#include "Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

namespace zyr_ctl
{

namespace
{

constexpr std::array<std::string_view, 8> kBars{"▁", "▂", "▃", "▄", "▅", "▆", "▇", "█"};

std::string textOf(const Value& value)
{
    return value.is_string() ? printable(value.get_ref<const std::string&>()) : compactJson(value);
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
            return printable(row->text);
        }
    }
    return textOf(value);
}

// The members of a record as people read them.
class Reading
{
  public:
    Reading(const Value& record, const Fields& fields) : m_record(record), m_fields(fields) {}

    std::string operator[](const char* name) const
    {
        const auto found = m_record.find(name);
        return found == m_record.end() ? "-" : shownValue(*found, findField(m_fields, name));
    }

  private:
    const Value& m_record;
    const Fields& m_fields;
};

// The fields of the records in a list; none if it isn't described.
const Fields& fieldsIn(const Fields& fields, const char* list)
{
    static const Fields none;
    const FieldDescription* const field = findField(fields, list);
    return field == nullptr || field->element.empty() ? none : field->element.front().fields;
}

const std::vector<EnumText>& textsOf(const Fields& fields, const char* name)
{
    static const std::vector<EnumText> none;
    const FieldDescription* const field = findField(fields, name);
    return field == nullptr ? none : field->texts;
}

std::string unitOf(const Fields& fields, const char* name)
{
    const FieldDescription* const field = findField(fields, name);
    return field == nullptr ? "" : field->unit;
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

std::string runningFeatures(const Value& status, const Reading& reading)
{
    std::vector<std::string> running;
    if (flag(status, "XpicIsStarted")) {
        running.push_back("XPIC " + member(status, "XpicStatus") + ", XPI " + reading["ActualXpi"]);
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

std::string capacityRange(const Value& modulations, const std::string& unit)
{
    if (modulations.empty()) {
        return "-";
    }
    const CommonUnit common = commonUnit(unit);
    const auto capacity = [&](const Value& modulation) {
        return digitsIn(common, modulation.value("Capacity", std::int64_t{0}));
    };
    return capacity(modulations.front()) + " to " + capacity(modulations.back()) +
           (common.name.empty() ? "" : " " + common.name);
}

// "  256QAM                25.0 dB", in columns.
std::string nameAndNumber(const std::string& name, std::int64_t number, const std::string& unit)
{
    constexpr std::size_t nameWidth = 22;
    constexpr std::size_t numberWidth = 8;
    const std::string text = measured(number, unit);
    return padded("  " + name, nameWidth) +
           std::string(numberWidth - std::min(numberWidth, widthOf(text)), ' ') + text;
}

void addPowers(std::vector<Line>& lines, const Value& powers, const Fields& fields)
{
    constexpr std::int64_t kUnitsPerMark = 10;
    for (const Value& row : powers) {
        const std::int64_t power = row.value("second", std::int64_t{0});
        const auto marks = static_cast<std::size_t>(std::clamp<std::int64_t>(power / kUnitsPerMark, 0, 60));
        const std::string name = enumeration(row.value("first", Value()), textsOf(fields, "first"));
        lines.push_back(
            {nameAndNumber(name, power, unitOf(fields, "second")) + " " + std::string(marks, '#')});
    }
}

std::vector<Line> tableLines(const std::vector<std::string>& headings,
                             const std::vector<std::vector<std::string>>& rows)
{
    std::vector<Line> lines;
    for (std::string& text : renderTable(headings, rows)) {
        lines.push_back({.text = std::move(text), .mayBeCut = true});
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
    const Value& status = answers.status.answer;
    const std::string received = member(status, "ActualRxModulation");
    const std::string sent = member(status, "ActualTxModulation");
    const Fields& fields = fieldsIn(answers.thresholds.fields, "thresholds");
    std::vector<Rung> rungs;
    for (const Value& record : listOf(answers.thresholds.answer, "thresholds")) {
        std::string name =
            enumeration(record.value("modulationAndCoding", Value()), textsOf(fields, "modulationAndCoding"));
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
    const auto snir = status.find("ActualSNIR");
    if (snir != status.end() && snir->is_number_integer()) {
        rungs.push_back({"----", snir->get<std::int64_t>(), "SNIR now"});
    }
    return rungs;
}

void addLadder(std::vector<Line>& lines, const AcmAnswers& answers)
{
    const std::string unit = unitOf(answers.status.fields, "ActualSNIR");
    auto rungs = rungsOf(answers);
    // The SNIR, which comes last, stands above the thresholds that it reaches.
    std::ranges::reverse(rungs);
    std::ranges::stable_sort(rungs, std::ranges::greater(), &Rung::threshold);
    for (const Rung& rung : rungs) {
        lines.push_back(
            {nameAndNumber(rung.name, rung.threshold, unit) + (rung.mark.empty() ? "" : "  " + rung.mark)});
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
    constexpr std::int64_t kFullBar = kNoLevel + 60 * kUnitsPerMark;
    const auto found = record.find(name);
    const bool isNumber = found != record.end() && found->is_number_integer();
    const std::int64_t level =
        std::clamp(isNumber ? found->get<std::int64_t>() : kNoLevel, kNoLevel, kFullBar);
    std::string bar;
    bar.assign(static_cast<std::size_t>((level - kNoLevel) / kUnitsPerMark), '#');
    return bar;
}

// The name of what a number stands for.
std::string choice(const DescribedAnswer& answer, const char* name)
{
    const auto found = answer.answer.find(name);
    return found == answer.answer.end() ? "-" : enumeration(*found, textsOf(answer.fields, name));
}

// A time and the way of light in it, of which the delay of the radio units is a part.
std::string timeAndWay(const Value& record, const char* name)
{
    constexpr double kMetresPerNanosecond = 0.299792458;
    const auto found = record.find(name);
    if (found == record.end() || !found->is_number_integer()) {
        return "-";
    }
    const double metres = static_cast<double>(found->get<std::int64_t>()) * kMetresPerNanosecond;
    return digitsIn({}, *found) + " ns, " + digitsIn({"km", 3}, std::llround(metres)) +
           " km, radio units included";
}

} // namespace

std::string sparkline(std::span<const std::int64_t> numbers)
{
    if (numbers.empty()) {
        return {};
    }
    // A node can send any numbers: their differences may be too big for integers.
    const auto [least, most] = std::ranges::minmax(numbers);
    const auto lowest = static_cast<double>(least);
    const double span = std::max(static_cast<double>(most) - lowest, 1.0);
    constexpr auto highestBar = static_cast<double>(kBars.size() - 1);
    std::string line;
    for (const std::int64_t number : numbers) {
        const double bar = (static_cast<double>(number) - lowest) * highestBar / span;
        line += kBars[static_cast<std::size_t>(bar)];
    }
    return line;
}

std::vector<Line> statusPicture(std::int64_t channel, const Value& status, const Fields& fields,
                                std::span<const std::int64_t> levels)
{
    const Reading reading(status, fields);
    std::vector<Line> lines{
        {"Radio channel " + std::to_string(channel) + ", node " + reading["ZyrState"]},
        labelled("Link", reading["RadioChannelStatus"]),
        labelled("Transmitter", reading["TXActualStatus"] + ", " + reading["ReportedRFOutputPower"] + ", " +
                                    reading["TxFrequency"] + ", " + reading["ActualTxModulation"]),
        labelled("Receiver", reading["ActualRFInputPower"] + ", " + reading["RxFrequency"] + ", " +
                                 reading["ActualRxModulation"]),
        labelled("SNIR", reading["ActualSNIR"]),
        labelled("Blocks",
                 "errored " + reading["ErroredBlocks"] + ", background " + reading["BackgroundBlocks"]),
        labelled("Hop latency", reading["HopLengthLatency"]),
        labelled("Running", runningFeatures(status, reading)),
    };
    if (levels.size() > 1) {
        const auto [lowest, highest] = std::ranges::minmax(levels);
        const std::string unit = unitOf(fields, "ActualRFInputPower");
        lines.push_back(labelled("Level", sparkline(levels) + "  " + measured(lowest, unit) + " to " +
                                              measured(highest, unit)));
    }
    return lines;
}

std::vector<Line> framesPicture(const Value& answer, const Fields& fields)
{
    const Fields& frameFields = fieldsIn(fields, "FrameFormatCapabilities");
    const Fields& modulationFields = fieldsIn(frameFields, "AvailableModulations");
    std::vector<std::vector<std::string>> rows;
    for (const Value& frame : listOf(answer, "FrameFormatCapabilities")) {
        const Value& available = listOf(frame, "AvailableModulations");
        rows.push_back(
            {member(frame, "RadioFrameID"),
             enumeration(frame.value("FrameLinkType", Value()), textsOf(frameFields, "FrameLinkType")),
             member(frame, "TelecomStd"), Reading(frame, frameFields)["ChannelSpacing"],
             modulationRange(available, textsOf(modulationFields, "Modulation")),
             capacityRange(available, unitOf(modulationFields, "Capacity"))});
    }
    return tableLines({"frame", "type", "standard", "spacing", "modulations", "capacity"}, rows);
}

std::vector<Line> capabilityPicture(std::int64_t channel, const Value& answer, const Fields& fields)
{
    const Reading reading(answer, fields);
    const Value& powers = listOf(answer, "AvailableMaxRFOutputPower");
    std::vector<Line> lines{
        {"Radio channel " + std::to_string(channel) + " of " + reading["NumberOfChannels"]},
        labelled("Transmit", reading["MinTXFrequency"] + " to " + reading["MaxTXFrequency"] + ", step " +
                                 reading["FrequencyStepSize"]),
        labelled("Receive", reading["MinRXFrequency"] + " to " + reading["MaxRXFrequency"] + ", duplex " +
                                reading["DuplexType"]),
        labelled("Band", reading["FrequencyBand"] + ", sub-band " + reading["FrequencySubBand"]),
        labelled("Temperature", reading["MinTemp"] + " to " + reading["MaxTemp"]),
        labelled("Features", availableFeatures(answer)),
        labelled("Power", "from " + reading["AvailableMinRFOutputPower"] + (powers.empty() ? "" : ", up to")),
    };
    addPowers(lines, powers, fieldsIn(fields, "AvailableMaxRFOutputPower"));
    return lines;
}

std::vector<Line> eventsPicture(const Value& answer)
{
    std::vector<std::vector<std::string>> rows;
    for (const Value& event : listOf(answer, "events")) {
        const std::string channel = member(event, "radioChannelId");
        rows.push_back({flag(event, "isActive") ? "raised" : "cleared", member(event, "eventName"),
                        channel == "0" ? "-" : channel, member(event, "numberOfTimesEventHasBeenActive")});
    }
    return rows.empty() ? std::vector<Line>{{"no alarms"}}
                        : tableLines({"state", "alarm", "channel", "times"}, rows);
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
    const Reading status(answers.status.answer, answers.status.fields);
    std::vector<Line> lines{
        {"Radio channel " + std::to_string(channel)},
        labelled("ACM mode",
                 choice(answers.mode, "acmMode") + ", " + choice(answers.mode, "acmModePosition")),
        labelled("Transmit", status["ActualTxModulation"]),
        labelled("Receive", status["ActualRxModulation"]),
        labelled("SNIR", status["ActualSNIR"]),
    };
    if (answers.thresholds.answer.empty()) {
        lines.push_back(labelled("Thresholds", "not told by this node"));
    } else {
        lines.push_back(labelled("Thresholds", "SNIR below which the receiver leaves the modulation"));
        addLadder(lines, answers);
    }
    return lines;
}

std::vector<Line> combinerPicture(std::int64_t channel, const Value& answer, const Fields& fields)
{
    const Reading reading(answer, fields);
    std::vector<Line> lines{
        {"Radio channel " + std::to_string(channel) + ", combiner " + reading["sdcOperStatus"]},
        labelled("Calibration", reading["sdcDadeStatus"] + ", delay " + reading["sdcDadeDelay"]),
        labelled("Path in use", reading["actualPath"]),
        labelled("Gain", reading["sdcGain"]),
    };
    const std::vector<Line> table =
        tableLines({"path", "level", "error", ""},
                   {{"main", reading["sdcInputPowerMain"], character(answer, "hwErrorSdcMain"),
                     levelBar(answer, "sdcInputPowerMain")},
                    {"diversity", reading["sdcInputPowerDiversity"], character(answer, "hwErrorSdcDiversity"),
                     levelBar(answer, "sdcInputPowerDiversity")}});
    lines.insert(lines.end(), table.begin(), table.end());
    return lines;
}

std::string calibrationState(const DescribedAnswer& calibration)
{
    return choice(calibration, "ppsCalibStatus");
}

std::vector<Line> ppsPicture(std::int64_t channel, const PpsAnswers& answers, const std::string& progress)
{
    const DescribedAnswer& settings = answers.settings;
    const std::string state = calibrationState(answers.calibration);
    const std::string reason =
        state == "Failed" ? ", " + choice(answers.calibration, "ppsCalibReasonOfFailure") : "";
    const bool isTold = !settings.answer.empty();
    const std::string notTold = "not told by this node";
    std::vector<Line> lines{
        {"Radio channel " + std::to_string(channel)},
        labelled("Source", isTold ? choice(settings, "source") + ", offset " +
                                        Reading(settings.answer, settings.fields)["offset_ns"]
                                  : notTold),
        labelled("Output", isTold ? choice(settings, "outputMode") : notTold),
        labelled("Calibration", state + reason),
        labelled("Hop length", answers.noHopLength.empty()
                                   ? timeAndWay(answers.hopLength.answer, "ppsHopLengthTime")
                                   : "none: " + printable(answers.noHopLength)),
    };
    if (!progress.empty()) {
        lines.push_back(labelled("Progress", progress));
    }
    return lines;
}

} // namespace zyr_ctl
