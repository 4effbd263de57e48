#include "SecondStream.h"

#include <string>
#include <utility>

namespace zyr_ctl
{

namespace
{

using Row = std::vector<std::string>;

std::string reading(const DescribedAnswer& from, const char* name)
{
    const auto found = from.answer.find(name);
    return found == from.answer.end() ? "-" : shownValue(*found, findField(from.fields, name));
}

// One of two words for a flag, be it a number.
std::string word(const DescribedAnswer& from, const char* name, const char* ifSet, const char* ifNot)
{
    const auto found = from.answer.find(name);
    const bool isFlag = found != from.answer.end() && (found->is_boolean() || found->is_number_integer());
    if (!isFlag) {
        return "-";
    }
    const bool isSet = found->is_boolean() ? found->get<bool>() : found->get<std::int64_t>() != 0;
    return isSet ? ifSet : ifNot;
}

bool isSet(const DescribedAnswer& from, const char* name)
{
    const auto found = from.answer.find(name);
    return found != from.answer.end() && found->is_boolean() && found->get<bool>();
}

std::vector<Line> picture(std::int64_t channel, const std::string& state, const std::vector<Row>& rows)
{
    std::vector<Line> lines{{"Radio channel " + std::to_string(channel) + ", " + state}};
    for (std::string& line : renderTable({"reading", "value"}, rows)) {
        lines.push_back({std::move(line)});
    }
    return lines;
}

} // namespace

std::vector<Line> xpicPicture(std::int64_t channel, const DescribedAnswer& status,
                              const DescribedAnswer& xpic)
{
    const bool isStarted = isSet(status, "XpicIsStarted");
    return picture(channel, isStarted ? "XPIC " + reading(status, "XpicStatus") : "XPIC not started",
                   {
                       {"link type", reading(xpic, "xpicEnableExt")},
                       {"control bar", word(xpic, "xpicControlBarOn", "on", "off")},
                       {"preamble", reading(xpic, "xpicPreambleGet")},
                       {"cable", word(xpic, "xpicCableConnected", "connected", "not connected")},
                       {"transmission", word(xpic, "xpicTxEnable", "on", "off")},
                       {"slave sweeps", word(xpic, "slaveSweepInProgress", "yes", "no")},
                       {"slave calibration", reading(xpic, "calibStatus")},
                       {"cross-polar discrimination", reading(xpic, "xpdDbTenths")},
                       {"slave carrier offset", reading(xpic, "slaveCarrierOffsetHz")},
                       {"slave internal gain control", reading(xpic, "slaveInternalAgc")},
                       {"slave external gain control", reading(xpic, "slaveExternalAgc")},
                       {"slave differential gain", reading(xpic, "slaveDiffGain")},
                       {"SNIR", reading(status, "ActualSNIR")},
                   });
}

std::vector<Line> mimoPicture(std::int64_t channel, const DescribedAnswer& status,
                              const DescribedAnswer& mimo)
{
    const bool isStarted = isSet(status, "MimoIsStarted");
    const std::string kind = isSet(status, "IsMimo4x4") ? "MIMO 4x4 " : "MIMO 2x2 ";
    return picture(channel, isStarted ? kind + reading(status, "MimoStatus") : "MIMO not started",
                   {
                       {"gain difference", reading(mimo, "gainDifferenceDbTenths")},
                       {"eta", reading(mimo, "etaTenThousands")},
                       {"diversity path", word(mimo, "diversityMute", "muted", "open")},
                       {"slave sweeps", word(mimo, "slaveSweepInProgress", "yes", "no")},
                       {"spatial slave sweeps", word(mimo, "spatialSlaveSweepStatus", "yes", "no")},
                       {"slave discrimination", reading(mimo, "xpdDbTenths")},
                       {"spatial discrimination", reading(mimo, "spatialXpdDbTenths")},
                       {"slave carrier offset", reading(mimo, "slaveCarrierOffsetHz")},
                       {"spatial carrier offset", reading(mimo, "spatialCarrierOffsetHz")},
                       {"spatial slave carrier offset", reading(mimo, "spatialSlaveCarrierOffsetHz")},
                       {"cross-connect calibration", reading(mimo, "calibrationStatus")},
                   });
}

} // namespace zyr_ctl
