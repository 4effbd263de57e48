#pragma once

#include "CommandRows.h"
#include "TraceSink.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace zyr_test
{

/// The commands whose every record names one source, "<class>Impl.cpp" of its folder, so that those who read
/// traces find it.
inline constexpr std::array<std::string_view, 31> kCommandsWithToldSource{
    "CriCalibrateDspPps",
    "CriEnableAcm",
    "CriGetCalibrationStatusDspPps",
    "CriGetHopLengthTimeDspPps",
    "CriGetIsRau2T2R",
    "CriGetRadioChannelCapability",
    "CriGetRadioChannelStatus",
    "CriGetRauPowerMode",
    "CriGetSpectrumDiagnostics",
    "CriManagePathLatency",
    "CriMimoSpatialMute",
    "CriSetActiveSubBand",
    "CriSetOutputModeDspPps",
    "CriSetRadioLinkEncryption",
    "CriSetRauPowerMode",
    "CriSetSourceDspPps",
    "CriXpicSlaveMute",
    "TiGetIfLoop",
    "TiGetNarrowWideFilters",
    "TiGetRxXcStatusLevel",
    "TiGetTXRFDetectedOutputPower",
    "TiManageMimo",
    "TiManagePathLatencyCompensation",
    "TiManageRadioChannelStatus",
    "TiManageRealTimeClock",
    "TiManageTXIFOutputPower",
    "TiManageTXRFGain",
    "TiManageXpic",
    "TiSetIfFrequency",
    "TiSetIfLoop",
    "TiSetNarrowWideFilters",
};

/// What a command's records name besides "execute" and "initialize", which hold their steps whatever function
/// these stand in.
struct ToldFunction
{
    std::string_view command;
    std::string_view function;
};

inline constexpr std::array<ToldFunction, 14> kFurtherFunctions{{
    {"CriSetRadioChannelNearEnd", "configure"},
    {"CriSetRadioChannelNearEnd", "logCall"},
    {"CriSetRadioChannelNearEnd", "turnOffTransmitter"},
    {"CriSetRadioChannelNearEnd", "restoreTransmitter"},
    {"CriSetRadioChannelNearEnd", "updateFrequencies"},
    {"CriSetRadioChannelNearEnd", "configureMultiTrx"},
    {"CriSetRadioChannelNearEnd", "recoverDspIfNeeded"},
    {"CriSetRadioChannelNearEnd", "checkFfAndCopyDcFileIfNeeded"},
    {"TiManageRealTimeClock", "ddevioRtcOneshot"},
    {"TiManageRealTimeClock", "writeRealTimeClock"},
    {"TiManageRealTimeClock", "readRealTimeClock"},
    {"TiManageRealTimeClock", "legacyIso8601ToBrokenDownTime"},
    {"TiManageRealTimeClock", "validateBrokenDownTime"},
    {"TiManageRealTimeClock", "brokenDownTimeToLegacyIso8601"},
}};

/// Whether a record of the command may name the function.
inline bool isToldFunction(std::string_view command, std::string_view function)
{
    return function == "execute" || function == "initialize" ||
           std::ranges::any_of(kFurtherFunctions, [&](const ToldFunction& told) {
               return told.command == command && told.function == function;
           });
}

/// Expects that a record of a command's channel names the command's source, and the function that its text
/// belongs to; and that the requests and responses are the dispatcher's.
inline void expectToldSource(const zyr_platform::TraceRecord& record)
{
    const auto* const row = std::ranges::find(kCommandRows, record.channel, [](const CommandRow& one) {
        return std::string_view(one.traceChannel);
    });
    if (row == kCommandRows.end()) {
        if (record.channel == "ZYR.COMM") {
            EXPECT_STREQ(record.header.function, "executeCommand") << record.text;
        }
        return;
    }
    const std::string command = row->className;
    const std::string folder = "src/Device/ZyrTopApi/messages/" + command + "/src/";
    if (command == "CriGetAirInterfaceCapability") {
        EXPECT_EQ(record.header.file, folder + "CriGetAirInterfaceCapabilityImplNev.cpp") << record.text;
    } else if (std::ranges::find(kCommandsWithToldSource, command) != kCommandsWithToldSource.end()) {
        EXPECT_EQ(record.header.file, folder + command + "Impl.cpp") << record.text;
    } else {
        EXPECT_TRUE(std::string_view(record.header.file).starts_with(folder)) << record.header.file;
    }
    EXPECT_TRUE(isToldFunction(command, record.header.function))
        << record.header.function << ": " << record.text;
}

} // namespace zyr_test
