#include "CommandEntry.h"
#include "CommandRows.h"
#include "CommandTest.h"
#include "NodeDoubles.h"
#include "StoredVariables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

// `initialize` of all commands against a table written by hand: the range of the count, the second call, when
// the count is stored, and what is said of a collaborator that is missing.

namespace
{

using zyr_registration::CommandEntry;
using zyr_registration::LiveCommand;

constexpr const char* kCommonRange = "Error: numberOfChannels is out of range (3)";
constexpr const char* kBoundsRange = "numberOfChannels is out of bounds";
constexpr const char* kSilent = "";

enum class Order
{
    RangeOnly, // a second call isn't guarded
    RangeFirst,
    GuardFirst,
    NotTested, // any count will do
};

enum class Stored
{
    First,
    Last,
    NotAtAll, // or without a guard that would show it
};

// Without this, `initialize` with two channels answers so, with this line at levels 1 to 4. A part of the DSP
// is named as it is fetched.
struct Absence
{
    const char* what;
    const char* line; // with its level
    bool fails = true;
};

struct Row
{
    const char* className;
    bool entryTellsCount;
    Order order;
    const char* range;
    unsigned rangeResult;
    const char* guard;
    Stored stored;
    std::vector<Absence> absences = {};
};

Row plain(const char* className, std::vector<Absence> absences)
{
    return {className, false,   Order::RangeOnly, kCommonRange,
            0xA100,    kSilent, Stored::NotAtAll, std::move(absences)};
}

Row withDsp(const char* className)
{
    return plain(className, {{"IDspApi_1", "1  Error getting interface to IDspApi_1"},
                             {"IDspApi_2", "1  Error getting interface to IDspApi_2"}});
}

Row withAlarms(const char* className)
{
    return {className,
            false,
            Order::NotTested,
            kSilent,
            0,
            kSilent,
            Stored::NotAtAll,
            {{"IAlarmHandlerTopApi", "1  Error getting interface to IAlarmHandlerTopApi"}}};
}

Row guarded(const char* className, std::vector<Absence> absences)
{
    return {className,
            true,
            Order::RangeFirst,
            kCommonRange,
            0xA100,
            "Already initialized",
            Stored::First,
            std::move(absences)};
}

Row bounds(const char* className, Order order, const char* guard, Stored stored,
           std::vector<Absence> absences)
{
    return {className, true, order, kBoundsRange, 0x8000, guard, stored, std::move(absences)};
}

Row withOutputPowerHandler(const char* className)
{
    return {className,
            true,
            Order::NotTested,
            kSilent,
            0,
            kSilent,
            Stored::NotAtAll,
            {{"IOutputPowerHandler.1", "1 Could not find IOutputPowerHandler.1"}}};
}

Row withNothing(const char* className)
{
    return {className, false, Order::NotTested, kSilent, 0, kSilent, Stored::NotAtAll};
}

std::vector<Row> allRows()
{
    std::vector<Row> rows;
    for (const char* const name :
         {"CiGetEvents", "CiGetFastEvents", "CiReleaseFastEventsRequests", "TiGetEvents", "TiSetEvents"}) {
        rows.push_back(withAlarms(name));
    }
    for (const char* const name :
         {"CriSetAcmMode", "CriGetAcmMode", "CriSetAcmRlpControl", "CriCalibrateDspPps",
          "CriGetCalibrationStatusDspPps", "CriGetHopLengthTimeDspPps", "CriSetSourceDspPps",
          "CriSetOutputModeDspPps", "TiGetAcmThresholds", "TiSetDspTxMode", "TiGetDspTxMode",
          "TiSetIfFrequency", "TiSetNarrowWideFilters", "TiGetNarrowWideFilters", "TiGetRxXcStatusLevel"}) {
        rows.push_back(withDsp(name));
    }
    for (const char* const name :
         {"TiManageTXRFGain", "TiManageTXIFOutputPower", "TiGetTXRFDetectedOutputPower"}) {
        rows.push_back(withOutputPowerHandler(name));
    }
    for (const char* const name : {"TiGetAllCommandsData", "TiManageRealTimeClock"}) {
        rows.push_back(withNothing(name));
    }
    const std::vector<Row> others{
        plain("CriEnableAcm", {{"IAcmHandler_1", "1  Error getting interface to IAcmHandler_1"},
                               {"IAcmHandler_2", "1  Error getting interface to IAcmHandler_2"}}),
        plain("CriXpicSlaveMute", {{"ICcdpController_2", "1  Error getting interface to ICcdpController_2"}}),
        plain("CriMimoSpatialMute",
              {{"IMimoController_2", "1  Error getting interface to IMimoController_2"}}),
        plain("CriSetRouting", {{"IRouteUpdater", "1  Error getting interface to IRouteUpdater"}}),
        plain("CriSetRauPowerSupplied", {{"IRadio_2", "1  Error getting interface to IRadio_2"}}),
        plain("CriGetRauPowerSupplied", {{"IRadio_2", "1  Error getting interface to IRadio_2"}}),
        {"CriSetRadioLinkEncryption",
         true,
         Order::RangeOnly,
         kCommonRange,
         0xA100,
         kSilent,
         Stored::NotAtAll,
         {{"IZyrRleHandler_1", "1  Error getting interface to IZyrRleHandler_1"},
          {"IZyrRleHandler_2", "1  Error getting interface to IZyrRleHandler_2"}}},
        plain("TiManageTaps",
              {{"ITapsController_2", "1  Error getting interface to ITapsController_2"},
               {"ITapsControllerLog_2", "1  Error getting interface to ITapsControllerLog_2"}}),
        plain("CiManageLoops", {{"ILoopController", "1 Could not find the LoopController interface"}}),
        plain("CriSetRauCarrierAggregation",
              {{"IHardwareConfigurationHandler", "1 could not get hardwareConfigurationHandler."}}),
        plain("CriGetRadioChannelCapability",
              {{"common.minTemp", "1  Could not get storage variable common.minTemp"},
               {"common.maxTemp", "1  Could not get storage variable common.maxTemp"},
               {"IOutputPowerCalculator_2", "1 Error getting interface: IOutputPowerCalculator_2"},
               {"ICapabilityHandler_2", "1 Error getting interface: ICapabilityHandler_2"},
               {"IRadioCapability_2", "1 Error getting interface: IRadioCapability_2"}}),
        plain("CriGetAirInterfaceCapability",
              {{"IHardwareConfigurationHandler",
                "1 Could not find the Hardware Configuration Handler Interface"},
               {"common.xpicCapable", "1 Failed to get HW XPIC capable variable from hardware database"},
               {"ICapabilityHandler_2", "1 Error getting interface: ICapabilityHandler_2"}}),
        plain("CriGetRadioChannelStatus",
              {{"ISystemPowerController_2",
                "1 Could not find the System Power Controller interface: ISystemPowerController_2"},
               {"IOutputPowerController_2",
                "1 Could not find the Output Power Controller interface: IOutputPowerController_2"},
               {"IAcmHandler_2", "1 Could not find the Acm Handler interface"},
               {"IFrequencyController_2", "1 Could not find the Frequency Controller interface"},
               {"IRssiHandler_2", "1 Could not find the RSSI Handler interface"},
               {"ICcdpController_2", kSilent, false},
               {"IDspApi_2", "1 Could not find the DSP API interface"},
               {"IZyrRleHandler_2", kSilent, false},
               {"IMimoController_2", kSilent, false},
               {"IBasebandSdcController_2", kSilent, false},
               {"IPpsController2", kSilent, false}}),
        plain("CriSetRadioChannelNearEnd",
              {{"IHardwareConfigurationHandler",
                "1 Could not find the Hardware Configuration Handler interface"},
               {"ICapabilityHandler_2", "1 Error getting interface: ICapabilityHandler_2"},
               {"ISystemPowerController_2", "1 Could not find the System Power Controller interface"},
               {"IOutputPowerController_2", "1 Could not find : IOutputPowerController_2"},
               {"ICcdpController_2", kSilent, false},
               {"IMimoController_2", kSilent, false},
               {"IAcmHandler_2", "1 Could not find the AdMod Handler interface"},
               {"IRssiHandler_2", "1 Could not find the RSSI Handler interface"},
               {"IFrequencyController_2", "1 Could not find the Frequency Controller interface"},
               {"ITxIQImbalanceHandler_2", "4 Could not find the Tx IQImbalance Handler interface", false},
               {"IDspApi_2", "1 Could not find the DSP API interface"},
               {"IRadioCapability_2", "1 Error getting interface: IRadioCapability_2"},
               {"IRadio_2", "4 Did not find interface: IRadio_2", false},
               {"IPpsController2", "4 Interface not available: IPpsController2", false},
               {"IRauHandler_2", "4 Did not find interface: IRauHandler_2", false},
               {"RecoveryController", "4 RecoveryController Interface not available", false}}),
        plain("TiManageRadioChannelStatus",
              {{"ISystemPowerController_2",
                "1 Could not find the System Power Controller interface: ISystemPowerController_2"},
               {"IOutputPowerController_2", "1 Could not find : IOutputPowerController_2"},
               {"IAcmHandler_2", "1 Could not find the Acm Handler interface"},
               {"IFrequencyController_2", "1 Could not find the Frequency Controller interface"},
               {"IRssiHandler_2", "1 Could not find the RSSI Handler interface"},
               {"IDspApi_2", "1 Could not find the DSP API interface"}}),
        plain("TiManagePm", {{"IDspApi_2", "1 Could not find the DSP API interface"}}),
        plain("TiManageDsp", {{"IDspApi_2", "1 Could not find the DSP API interface"}}),
        plain("TiGetIfLoop",
              {{"IIfLoopDriver_1", "1 Could not find the IIfLoopDriver  interface for ct: 1"},
               {"IIfLoopDriver_2", "1 Could not find the IIfLoopDriver  interface for ct: 2"}}),
        plain("TiSetIfLoop", {{"IIfLoopDriver_1", "1 Could not find the IIfLoopDriver interface for ct: 1"},
                              {"IIfLoopDriver_2", "1 Could not find the IIfLoopDriver interface for ct: 2"}}),
        guarded("CriSetSdcEnable", {{"ISpaceDiversityCombinerController_2",
                                     "1  Error getting interface to ISpaceDiversityCombinerController_2"}}),
        guarded("CriSetSdcDadeCalibration",
                {{"ISpaceDiversityCombinerController_2",
                  "1  Error getting interface to ISpaceDiversityCombinerController_2"}}),
        guarded("CriSetSdcRlConfiguration",
                {{"ISpaceDiversityCombinerController_2",
                  "1 Error getting interface to ISpaceDiversityCombinerController_2"}}),
        guarded("CriSetSdcPathControl",
                {{"ISpaceDiversityCombinerController_2",
                  "1 Error getting interface to ISpaceDiversityCombinerController_2"}}),
        guarded("CriGetSdcStatus", {{"ISpaceDiversityCombinerController_2",
                                     "1 Could not find the Space Diversity Combiner Controller interface: "
                                     "ISpaceDiversityCombinerController_2"}}),
        guarded("CriSetBasebandSdcChannel",
                {{"IBasebandSdcController_2", "1 Error getting interface to IBasebandSdcController_2"}}),
        guarded("CriSetBasebandSdcDadeParams",
                {{"IBasebandSdcController_2", "1 Error getting interface to IBasebandSdcController_2"}}),
        guarded("CriSetBasebandSdcEnable",
                {{"IBasebandSdcController_2", "1 Error getting interface to IBasebandSdcController_2"}}),
        guarded("CriSetBasebandSdcDadeCalibration",
                {{"IBasebandSdcController_2", "1  Error getting interface to IBasebandSdcController_2"}}),
        guarded("CriSetBasebandSdcDadeResetCalibration",
                {{"IBasebandSdcController_2", "1  Error getting interface to IBasebandSdcController_2"}}),
        guarded("CriSetActiveSubBand", {{"IRadio_2", "1 Error getting interface to IRadio_2"}}),
        guarded("CriSetBoosterPresence",
                {{"IOutputPowerCalculator_2", "1  Error getting interface to IOutputPowerCalculator_2"}}),
        {"CriGetSpectrumDiagnostics",
         true,
         Order::RangeFirst,
         "Error numberOfChannels is out of range (3)",
         0xA100,
         "Already initialized",
         Stored::First,
         {{"ISpectrumDiagnosticsController_2",
           "1 Error getting interface to ISpectrumDiagnosticsController_2"}}},
        {"CriDisableModulation",
         true,
         Order::GuardFirst,
         kCommonRange,
         0xA100,
         "CriDisableModulationImpl already initialize",
         Stored::Last,
         {{"IDspApi_2", kSilent}, {"IAcmHandler_2", kSilent}}},
        bounds("CriSetRfPower", Order::RangeFirst, "CriSetRfPowerImpl already initialized", Stored::Last,
               {{"ISystemPowerController_2", "1 Could not find the System Power Controller interface"},
                {"IOutputPowerCalculator_2", "1 Could not find the Output Power Calculator interface"},
                {"IDspApi_2", "1 Could not find the DSP API interface"},
                {"ITapsController_2", "1  Error getting interface to ITapsController_2"},
                {"IAcmHandler_2", "1  Error getting interface to IAcmHandler_2"}}),
        bounds("CriWarmInitCompleted", Order::RangeFirst, "CriWarmInitCompletedImpl already initialized",
               Stored::Last,
               {{"IDspApi_2", "1 Could not find the DSP API interface"},
                {"ISystemPowerController_2", "1  Error getting interface to ISystemPowerController_2"},
                {"IAcmHandler_2", "1  Error getting interface to IAcmHandler_2"}}),
        bounds("CriRestartRadio", Order::RangeFirst, "CriRestartRadioImpl already initialized", Stored::Last,
               {{"IRadio_2", "1 Could not find the RauHandler interface IRadio_2"},
                {"ISystemPowerController_2",
                 "1  Failed to get System Power Controller interface ISystemPowerController_2"}}),
        bounds("TiManageRfPower", Order::RangeFirst, "TiManageRfPowerImpl already initialized", Stored::Last,
               {{"ISystemPowerController_2", "1 Could not find the System Power Controller interface"},
                {"IAtpcController_2", "1 Could not find the System Power Controller interface"}}),
        bounds("TiManageSpc", Order::RangeFirst, "TiManageSpcImpl already initialized", Stored::Last,
               {{"IOutputPowerController_2", "1 Could not find IOutputPowerController_2"},
                {"ISpcSimulator_2", "1 Could not find ISpcSimulator_2"},
                {"IAtpcController_2", "1 Could not find IAtpcController_2"}}),
        bounds("CriSetRauPowerMode", Order::GuardFirst, "CriSetRauPowerModeImpl already initialized",
               Stored::First, {{"IRauHandler_2", "1 Could not find the Rau Handler interface"}}),
        bounds("CriGetRauPowerMode", Order::GuardFirst, "CriGetRauPowerModeImpl already initialized",
               Stored::First, {{"IRauHandler_2", "1 Could not find the Rau Handler interface"}}),
        bounds("CriGetIsRau2T2R", Order::GuardFirst, "CriGetIsRau2T2RImpl already initialized", Stored::First,
               {{"IRauHandler_2", "1 Could not find the Rau Handler interface"}}),
        bounds(
            "TiManageXpic", Order::GuardFirst, "TiManageXpicImpl already initialize", Stored::Last,
            {{"ICcdpController_2", "1 failed to fetch interface ICcdpController for radiochannel 2"},
             {"IDspApi_2", "1 failed to fetch interface IDspApi for radiochannel 2"},
             {"IDspApi_2.getDspStatusApi", "1 failed to fetch interface IDspStatusApi for radiochannel 2"}}),
        bounds(
            "TiManageMimo", Order::GuardFirst, "TiManageMimoImpl has already been initialized", Stored::Last,
            {{"IDspApi_2", "1 channel 2: Failed to fetch interface for IDspApi"},
             {"IDspApi_2.getDspChannelApi", "1 failed to fetch interface IDspChannelApi for radio channel 2"},
             {"IDspApi_2.getDspStatusApi", "1 failed to fetch interface IDspStatusApi for radio channel 2"}}),
        bounds("TiManagePathLatencyCompensation", Order::GuardFirst,
               "TiManagePathLatencyCompensationImpl has already been initialized", Stored::Last,
               {{"IDspApi_2", "1 channel 2: Failed to fetch interface for IDspApi"},
                {"IDspApi_2.getDspChannelApi", "1 failed to fetch interface for IDspChannelApi"}}),
        {"CriStartRecovery",
         false,
         Order::RangeFirst,
         kSilent,
         0xA100,
         "CriStartRecoveryImpl already initialized",
         Stored::Last,
         {{"RecoveryController", "1 Failed to get RecoveryController interface.", false}}},
        {"CriManagePathLatency",
         false,
         Order::RangeOnly,
         kSilent,
         0x8000,
         kSilent,
         Stored::NotAtAll,
         {{"IRauLatencyCalculator_2", "1 Failed to get IRauLatencyCalculator"},
          {"RecoveryController", kSilent, false}}},
        {"CriSetFarEndPmaxCapability",
         false,
         Order::RangeOnly,
         kSilent,
         0xA100,
         kSilent,
         Stored::NotAtAll,
         {{"IAcmHandler_2", "1  Error getting interface to IAcmHandler_2"}}},
    };
    rows.insert(rows.end(), others.begin(), others.end());
    return rows;
}

class InitialiseTableTest : public zyr_test::CommandTest
{
  protected:
    InitialiseTableTest() { publishNode(node); }

    // One call with the command's trace at a level: its lines with their levels, then the result.
    std::string initialise(const CommandEntry& command, const LiveCommand& live, unsigned count,
                           TylTraceLevel level)
    {
        const std::string channel = command.identity->traceChannel;
        setTraceLevel(channel, level);
        transcript.clear();
        const unsigned result = command.initialize(live.implementation.get(), count);
        std::string text;
        for (const std::string& line : transcript.lines()) {
            const std::size_t name = line.find(' ' + channel + ':');
            if (name != std::string::npos) { // the rest are questions to collaborators
                text += line.substr(0, name) + line.substr(name + channel.size() + 2) + "\n";
            }
        }
        char number[16];
        std::snprintf(number, sizeof number, "0x%X\n", result);
        return text + number;
    }

    // Takes a collaborator away, or gives it back.
    void setPresent(const std::string& what, bool isPresent)
    {
        zyr_test::DspApiDouble& dspApi = node.channel2.dspApi;
        if (what == "IDspApi_2.getDspChannelApi") {
            dspApi.onGetDspChannelApi = isPresent ? &dspApi.channelApi : nullptr;
        } else if (what == "IDspApi_2.getDspStatusApi") {
            dspApi.onGetDspStatusApi = isPresent ? &dspApi.statusApi : nullptr;
        } else if (what.starts_with("common.")) {
            if (isPresent) {
                zyr_platform::Storage::get().set(what.c_str(), 1);
            } else {
                zyr_platform::Storage::get().remove(what.c_str());
            }
        } else if (isPresent) {
            node.forEach(2, [&](auto& collaborator) {
                if (collaborator.name() == what) {
                    publish(collaborator);
                }
            });
        } else {
            withdraw(what);
        }
    }

    // Calls the function for each command of the list and its row.
    template <class Check>
    static void forEachRow(const Check& check)
    {
        static const std::vector<Row> kRows = allRows();
        for (const CommandEntry& command : zyr_registration::allCommands()) {
            const auto row = std::ranges::find(kRows, command.identity->className, &Row::className);
            SCOPED_TRACE(command.identity->className);
            ASSERT_NE(row, kRows.end());
            check(command, *row);
        }
    }

    zyr_test::NodeDoubles node{transcript};
    zyr_test::StoredVariables storedVariables;
};

// The line of a failure at level 1; nothing if it is silent.
std::string lineOf(const char* text)
{
    return *text == '\0' ? "" : "1 " + std::string(text) + "\n";
}

std::string numberText(unsigned result)
{
    char number[16];
    std::snprintf(number, sizeof number, "0x%X\n", result);
    return number;
}

TEST_F(InitialiseTableTest, EveryCommandThereIsHasOneRow)
{
    std::vector<std::string> names;
    for (const Row& row : allRows()) {
        names.emplace_back(row.className);
    }
    std::vector<std::string> expected;
    for (const auto& row : zyr_test::kCommandRows) {
        expected.emplace_back(row.className);
    }
    std::ranges::sort(names);
    std::ranges::sort(expected);
    EXPECT_EQ(names, expected);
}

TEST_F(InitialiseTableTest, CountIsTestedAfterTheEntryIsLogged)
{
    forEachRow([this](const CommandEntry& command, const Row& row) {
        const LiveCommand live = command.create();
        const bool isSilent = command.identity->className == "TiGetAllCommandsData" ||
                              command.identity->className == "TiManageRealTimeClock";
        for (const unsigned count : {3U, 0U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
            const std::string number = std::to_string(count);
            std::string range = lineOf(row.range);
            if (const std::size_t place = range.find("(3)"); place != std::string::npos) {
                range.replace(place + 1, 1, number);
            }
            const std::string entry = row.entryTellsCount ? "6 numberOfChannels=" + number + "\n" : "6\n";
            EXPECT_EQ(initialise(command, live, count, 6),
                      (isSilent ? "" : entry) + range + numberText(row.rangeResult))
                << count;
        }
    });
}

TEST_F(InitialiseTableTest, OneAndTwoChannelsAreTaken)
{
    forEachRow([this](const CommandEntry& command, const Row&) {
        for (const unsigned count : {1U, 2U}) {
            EXPECT_EQ(initialise(command, command.create(), count, 4), "0x0\n") << count;
        }
    });
}

TEST_F(InitialiseTableTest, SecondCallIsGuardedOrNot)
{
    forEachRow([this](const CommandEntry& command, const Row& row) {
        const LiveCommand live = command.create();
        EXPECT_EQ(initialise(command, live, 2, 4), "0x0\n");
        const bool isGuarded = *row.guard != '\0';
        const std::string guard = lineOf(row.guard) + "0x8000\n";
        const std::string range = lineOf(row.range) + numberText(row.rangeResult);
        EXPECT_EQ(initialise(command, live, 1, 4), isGuarded ? guard : "0x0\n");
        EXPECT_EQ(initialise(command, live, 3, 4), row.order == Order::GuardFirst ? guard : range);
    });
}

TEST_F(InitialiseTableTest, MissingCollaboratorIsTold)
{
    forEachRow([this](const CommandEntry& command, const Row& row) {
        for (const Absence& absence : row.absences) {
            SCOPED_TRACE(absence.what);
            const LiveCommand live = command.create();
            const std::string line = *absence.line == '\0' ? "" : std::string(absence.line) + "\n";
            setPresent(absence.what, false);
            EXPECT_EQ(initialise(command, live, 2, 4), line + (absence.fails ? "0x8000\n" : "0x0\n"));
            setPresent(absence.what, true);
            const bool isRefused = *row.guard != '\0' && (row.stored == Stored::First || !absence.fails);
            EXPECT_EQ(initialise(command, live, 2, 4), isRefused ? lineOf(row.guard) + "0x8000\n" : "0x0\n");
        }
    });
}

} // namespace
