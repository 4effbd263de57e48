#include "BasebandSdcControllerDouble.h"
#include "CommandTest.h"
#include "CriSetBasebandSdcChannelImpl.h"
#include "CriSetBasebandSdcDadeCalibrationImpl.h"
#include "CriSetBasebandSdcDadeParamsImpl.h"
#include "CriSetBasebandSdcDadeResetCalibrationImpl.h"
#include "CriSetBasebandSdcEnableImpl.h"
#include "CriSetSdcDadeCalibrationImpl.h"
#include "CriSetSdcEnableImpl.h"
#include "CriSetSdcPathControlImpl.h"
#include "CriSetSdcRlConfigurationImpl.h"
#include "SpaceDiversityCombinerControllerDouble.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

// The commands that set something at a combiner: one row of texts each, more where a command has branches.

namespace zyr_top_api
{
namespace
{

struct Controllers
{
    explicit Controllers(zyr_test::Transcript& transcript)
        : combiner1(transcript, "ISpaceDiversityCombinerController_1"),
          combiner2(transcript, "ISpaceDiversityCombinerController_2"),
          baseband1(transcript, "IBasebandSdcController_1"), baseband2(transcript, "IBasebandSdcController_2")
    {}

    zyr_test::SpaceDiversityCombinerControllerDouble combiner1;
    zyr_test::SpaceDiversityCombinerControllerDouble combiner2;
    zyr_test::BasebandSdcControllerDouble baseband1;
    zyr_test::BasebandSdcControllerDouble baseband2;
};

/// A command with the rest of its record, whatever its type.
struct Setter
{
    std::function<ETIResult(unsigned numberOfChannels)> initialize;
    std::function<StandardResponse(std::uint32_t channel)> execute;
};

using Answered = zyr_test::Answer<ETIResult>;

class CombinerSetterTest;

/// "<id>" stands for the channel in all texts.
struct Row
{
    std::string_view name;
    std::string_view traceChannel;
    std::string_view wireName;
    std::string_view input;        ///< behind "RadioChannelID: <id>"
    std::string_view entry;        ///< behind "command.channelId=<id>"
    std::string_view detail;       ///< line between summary and call, if any
    std::string_view controller;   ///< its name without channel
    std::string_view call;         ///< of the controller
    std::string_view failedLogged; ///< level 1 line on failure
    std::string_view failed;       ///< fault text on failure
    std::string_view missing;      ///< fault text without controller
    std::string_view notFound;     ///< level 1 line of `initialize`, in front of the name

    Answered& (*answer)(Controllers& controllers, std::uint32_t channel);
    // Made by `row`.
    Setter (*make)() = nullptr;
    void (*enrol)(CombinerSetterTest& test) = nullptr;
    StandardResponse (*dispatch)(std::uint32_t channel) = nullptr;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.name;
}

class CombinerSetterTest : public zyr_test::CommandTest, public testing::WithParamInterface<Row>
{
  public:
    template <class XImpl>
    void enrolOnly()
    {
        enrol<XImpl>();
    }

  protected:
    CombinerSetterTest()
    {
        publish(controllers.combiner1);
        publish(controllers.combiner2);
        publish(controllers.baseband1);
        publish(controllers.baseband2);
        transcript.clear();
    }

    /// What a test expects: lines that begin with '*' are the command's trace lines.
    static std::string expected(std::uint32_t channel, const std::vector<std::string>& lines)
    {
        std::string all = "\n";
        for (std::string line : lines) {
            if (line.empty()) {
                continue;
            }
            if (line.starts_with('*')) {
                line = line.substr(1, 1) + " " + std::string(GetParam().traceChannel) + ":" + line.substr(2);
            }
            for (auto at = line.find("<id>"); at != std::string::npos; at = line.find("<id>")) {
                line.replace(at, 4, std::to_string(channel));
            }
            all += line + "\n";
        }
        return all;
    }

    static std::string entry() { return "*6 command.channelId=<id>" + std::string(GetParam().entry); }
    static std::string input() { return "*3 RadioChannelID: <id>" + std::string(GetParam().input) + "\\n"; }
    static std::string detail() { return std::string(GetParam().detail); }
    static std::string call()
    {
        return std::string(GetParam().controller) + "_<id>." + std::string(GetParam().call);
    }
    static std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }
    static std::string ownName(std::uint32_t channel)
    {
        return std::string(GetParam().controller) + "_" + std::to_string(channel);
    }
    Answered& answer(std::uint32_t channel) { return GetParam().answer(controllers, channel); }

    /// Shows all lines of the command, and no others.
    static void showAll() { setTraceLevel(GetParam().traceChannel, 7); }

    Controllers controllers{transcript};
    Setter setter = GetParam().make();
};

TEST_P(CombinerSetterTest, ReachesTheControllerOfTheChannelThroughTheFrame)
{
    GetParam().enrol(*this);
    showAll();
    setTraceLevel("ZYR.COMM", 5);
    for (const std::uint32_t channel : {1U, 2U}) {
        transcript.clear();
        tell(GetParam().dispatch(channel));
        EXPECT_EQ(
            transcript.text(),
            expected(
                channel,
                {"5 ZYR.COMM: " + std::string(GetParam().wireName) + " Request: RadioChannelID: <id>" +
                     std::string(GetParam().input) + "\\n",
                 entry(), input(), detail(), call(),
                 "5 ZYR.COMM: " + std::string(GetParam().wireName) +
                     R"( Response: StandardResponse Sent\n\n----------------------------------------------------\n)",
                 R"(result 0x0 0 "")", R"(prints StandardResponse Sent\n)"}));
    }
}

TEST_P(CombinerSetterTest, ControllersResult0x8000IsAFailureWithItsTexts)
{
    ASSERT_EQ(setter.initialize(2), eTI_S_OK);
    showAll();
    transcript.clear();
    answer(2) = 0x8000;
    tell(setter.execute(2));
    EXPECT_EQ(
        transcript.text(),
        expected(2, {entry(), input(), detail(), call(), "*1 " + std::string(GetParam().failedLogged),
                     "result 0x8000 4 " + quoted(GetParam().failed), R"(prints StandardResponse Sent\n)"}));
}

TEST_P(CombinerSetterTest, EveryOtherResultIsSuccessAndIsNotPassedOn)
{
    ASSERT_EQ(setter.initialize(2), eTI_S_OK);
    transcript.clear();
    for (const unsigned result : {0x1U, 0x1002U, 0x1003U, 0x1004U, 0x7FFFU, 0x8001U, 0x8002U, 0x18000U,
                                  0x80000000U, 0x80008000U, 0xFFFF8000U, 0xFFFFFFFFU}) {
        transcript.clear();
        answer(1) = result;
        tell(setter.execute(1));
        EXPECT_EQ(transcript.text(),
                  expected(1, {input(), call(), R"(result 0x0 0 "")", R"(prints StandardResponse Sent\n)"}))
            << std::hex << result;
    }
}

TEST_P(CombinerSetterTest, NothingIsKeptBetweenCalls)
{
    ASSERT_EQ(setter.initialize(2), eTI_S_OK);
    answer(1).inTurn({0x8000, 0, 0x8000});
    EXPECT_EQ(setter.execute(1).tiResult, 0x8000);
    EXPECT_EQ(setter.execute(2).tiResult, 0);
    EXPECT_EQ(setter.execute(1).tiResult, 0);
    EXPECT_EQ(setter.execute(1).tiResult, 0x8000);
}

TEST_P(CombinerSetterTest, ChannelAboveTheNumberOfChannelsIsRefusedWithALineAtLevel1)
{
    ASSERT_EQ(setter.initialize(2), eTI_S_OK);
    showAll();
    for (const std::uint32_t channel : {3U, 4294967295U}) {
        transcript.clear();
        tell(setter.execute(channel));
        EXPECT_EQ(transcript.text(),
                  expected(channel, {entry(), input(), "*1 command.channelId: <id> m_numberOfChannels 2",
                                     R"(result 0xA100 2 "RadioChannelID out of bounds")",
                                     R"(prints StandardResponse Sent\n)"}));
    }
}

TEST_P(CombinerSetterTest, SecondChannelOfANodeWithOneIsRefused)
{
    ASSERT_EQ(setter.initialize(1), eTI_S_OK);
    transcript.clear();
    tell(setter.execute(2));
    EXPECT_EQ(transcript.text(), expected(2, {input(), "*1 command.channelId: <id> m_numberOfChannels 1",
                                              R"(result 0xA100 2 "RadioChannelID out of bounds")",
                                              R"(prints StandardResponse Sent\n)"}));
}

TEST_P(CombinerSetterTest, BoundIsCheckedBeforeTheController)
{
    tell(setter.execute(1));
    EXPECT_EQ(transcript.text(), expected(1, {input(), "*1 command.channelId: <id> m_numberOfChannels 0",
                                              R"(result 0xA100 2 "RadioChannelID out of bounds")",
                                              R"(prints StandardResponse Sent\n)"}));
}

TEST_P(CombinerSetterTest, MissingControllerIsAnsweredWithoutALine)
{
    withdraw(ownName(2));
    ASSERT_EQ(setter.initialize(2), 0x8000);
    showAll();
    transcript.clear();
    tell(setter.execute(2));
    EXPECT_EQ(transcript.text(),
              expected(2, {entry(), input(), "result 0x8008 4 " + quoted(GetParam().missing),
                           R"(prints StandardResponse Sent\n)"}));
}

TEST_P(CombinerSetterTest, Channel0HasNoController)
{
    ASSERT_EQ(setter.initialize(2), eTI_S_OK);
    showAll();
    transcript.clear();
    tell(setter.execute(0));
    EXPECT_EQ(transcript.text(),
              expected(0, {entry(), input(), "result 0x8008 4 " + quoted(GetParam().missing),
                           R"(prints StandardResponse Sent\n)"}));
}

TEST_P(CombinerSetterTest, InitialiseTellsTheCountAndRefusesZeroAndThreeChannels)
{
    showAll();
    EXPECT_EQ(setter.initialize(0), 0xA100);
    EXPECT_EQ(setter.initialize(3), 0xA100);
    EXPECT_EQ(setter.initialize(1), 0);
    EXPECT_EQ(transcript.text(),
              expected(0, {"*6 numberOfChannels=0", "*1 Error: numberOfChannels is out of range (0)",
                           "*6 numberOfChannels=3", "*1 Error: numberOfChannels is out of range (3)",
                           "*6 numberOfChannels=1"}));
}

TEST_P(CombinerSetterTest, SecondInitialiseIsRefusedBehindTheRangeTest)
{
    ASSERT_EQ(setter.initialize(1), eTI_S_OK);
    EXPECT_EQ(setter.initialize(3), 0xA100);
    EXPECT_EQ(setter.initialize(2), 0x8000);
    EXPECT_EQ(setter.execute(2).tiResult, 0xA100);
    EXPECT_EQ(transcript.text(),
              expected(2, {"*1 Error: numberOfChannels is out of range (3)", "*1 Already initialized",
                           input(), "*1 command.channelId: <id> m_numberOfChannels 1"}));
}

TEST_P(CombinerSetterTest, FailedInitialiseNamesTheControllerKeepsTheOneBeforeAndCountsAsACall)
{
    withdraw(ownName(2));
    EXPECT_EQ(setter.initialize(2), 0x8000);
    EXPECT_EQ(setter.initialize(2), 0x8000);
    setter.execute(1);
    EXPECT_EQ(transcript.text(), expected(1, {"*1 " + std::string(GetParam().notFound) + ownName(2),
                                              "*1 Already initialized", input(), call()}));
}

TEST_P(CombinerSetterTest, InitialiseTriesNoChannelBehindAMissingController)
{
    withdraw(ownName(1));
    EXPECT_EQ(setter.initialize(2), 0x8000);
    EXPECT_EQ(setter.execute(2).tiResult, 0x8008);
    EXPECT_EQ(transcript.text(),
              expected(2, {"*1 " + std::string(GetParam().notFound) + ownName(1), input()}));
}

TEST_P(CombinerSetterTest, ControllerOfTheOtherFamilyIsNoController)
{
    const std::string name = ownName(1);
    withdraw(name);
    if (GetParam().controller == "IBasebandSdcController") {
        publish(name, controllers.combiner1);
    } else {
        publish(name, controllers.baseband1);
    }
    EXPECT_EQ(setter.initialize(1), 0x8000);
    EXPECT_EQ(transcript.text(), expected(1, {"*1 " + std::string(GetParam().notFound) + name}));
}

/// What differs in type from row to row.
/// @tparam Dispatch  the command's exported function
/// @tparam Record    gives the record of the row
template <class XImpl, auto Dispatch, auto Record>
Row row(Row texts)
{
    static constexpr auto commandFor = [](std::uint32_t channel) {
        typename XImpl::Command command = Record();
        command.channelId = channel;
        return command;
    };
    texts.make = [] {
        const auto impl = std::make_shared<XImpl>();
        return Setter{[impl](unsigned numberOfChannels) { return impl->initialize(numberOfChannels); },
                      [impl](std::uint32_t channel) { return impl->execute(commandFor(channel)); }};
    };
    texts.enrol = [](CombinerSetterTest& test) { test.enrolOnly<XImpl>(); };
    texts.dispatch = [](std::uint32_t channel) { return Dispatch(commandFor(channel)); };
    return texts;
}

template <auto Member>
Answered& combiner(Controllers& controllers, std::uint32_t channel)
{
    return (channel == 1 ? controllers.combiner1 : controllers.combiner2).*Member;
}

template <auto Member>
Answered& baseband(Controllers& controllers, std::uint32_t channel)
{
    return (channel == 1 ? controllers.baseband1 : controllers.baseband2).*Member;
}

using zyr_test::BasebandSdcControllerDouble;
using zyr_test::SpaceDiversityCombinerControllerDouble;

const std::vector<Row> kRows = {
    row<CriSetSdcEnableImpl, &criSetSdcEnable,
        [] {
            return CriSetSdcEnable::Command{1U, true};
        }>({
        .name = "SdcOn",
        .traceChannel = "ZYR.TI.CriSetSdc",
        .wireName = "CRI.SetSdcEnable",
        .input = ", sdcEnable: 1",
        .entry = ", command.sdcEnable=1",
        .detail = "",
        .controller = "ISpaceDiversityCombinerController",
        .call = "setSdcEnable(true)",
        .failedLogged = "CRI.SetSdcEnable failed to enable or disable Space Diversity Combiner",
        .failed = "Failed to enable or disable Space Diversity Combiner",
        .missing = "Space Diversity Combiner Controller missing",
        .notFound = " Error getting interface to ",
        .answer = &combiner<&SpaceDiversityCombinerControllerDouble::onSetSdcEnable>,
    }),
    row<CriSetSdcEnableImpl, &criSetSdcEnable,
        [] {
            return CriSetSdcEnable::Command{1U, false};
        }>({
        .name = "SdcOff",
        .traceChannel = "ZYR.TI.CriSetSdc",
        .wireName = "CRI.SetSdcEnable",
        .input = ", sdcEnable: 0",
        .entry = ", command.sdcEnable=0",
        .detail = "",
        .controller = "ISpaceDiversityCombinerController",
        .call = "setSdcEnable(false)",
        .failedLogged = "CRI.SetSdcEnable failed to enable or disable Space Diversity Combiner",
        .failed = "Failed to enable or disable Space Diversity Combiner",
        .missing = "Space Diversity Combiner Controller missing",
        .notFound = " Error getting interface to ",
        .answer = &combiner<&SpaceDiversityCombinerControllerDouble::onSetSdcEnable>,
    }),
    row<CriSetSdcRlConfigurationImpl, &criSetSdcRlConfiguration,
        [] {
            return CriSetSdcRlConfiguration::Command{1U, "4-512-light", "62500", true};
        }>({
        .name = "SdcRlConfiguration",
        .traceChannel = "ZYR.TI.CriSetSdcRlConfiguration",
        .wireName = "CRI.SetSdcRlConfiguration",
        .input = ", selectedMaxAcm: 4-512-light, channelSpacing: 62500, xpicEnabled: 1",
        .entry = ", command.selectedMaxAcm=4-512-light, command.channelSpacing=62500, command.xpicEnabled=1",
        .detail = "*5 Max modulation: 512QAM, channel spacing: 62, xpic enabled: 1",
        .controller = "ISpaceDiversityCombinerController",
        .call = "setRlConfiguration(512, 62, true)",
        .failedLogged = "CRI.SetSdcRlConfiguration failed to set RL configuration attributes (maxModulation, "
                        "channelSpacing, xpicEnabled)",
        .failed = "Failed to set RL configuration attributes",
        .missing = "Space Diversity Combiner Controller missing",
        .notFound = "Error getting interface to ",
        .answer = &combiner<&SpaceDiversityCombinerControllerDouble::onSetRlConfiguration>,
    }),
    row<CriSetSdcDadeCalibrationImpl, &criSetSdcDadeCalibration,
        [] {
            return CriSetSdcDadeCalibration::Command{1U, true};
        }>({
        .name = "SdcDadeCalibrationStart",
        .traceChannel = "ZYR.TI.CriSetDadeCalibration",
        .wireName = "CRI.SetSdcDadeCalibration",
        .input = ", dadeCalibration: 1",
        .entry = ", command.dadeCalibration=1",
        .detail = "",
        .controller = "ISpaceDiversityCombinerController",
        .call = "setDadeCalibration(true)",
        .failedLogged = "CRI.SetSdcDadecalibration failed to start or abort SDC Dade Calibration",
        .failed = "Failed to start or abort SDC Dade Calibration",
        .missing = "Space Diversity Combiner Controller missing",
        .notFound = " Error getting interface to ",
        .answer = &combiner<&SpaceDiversityCombinerControllerDouble::onSetDadeCalibration>,
    }),
    row<CriSetSdcDadeCalibrationImpl, &criSetSdcDadeCalibration,
        [] {
            return CriSetSdcDadeCalibration::Command{1U, false};
        }>({
        .name = "SdcDadeCalibrationAbort",
        .traceChannel = "ZYR.TI.CriSetDadeCalibration",
        .wireName = "CRI.SetSdcDadeCalibration",
        .input = ", dadeCalibration: 0",
        .entry = ", command.dadeCalibration=0",
        .detail = "",
        .controller = "ISpaceDiversityCombinerController",
        .call = "setDadeCalibration(false)",
        .failedLogged = "CRI.SetSdcDadecalibration failed to start or abort SDC Dade Calibration",
        .failed = "Failed to start or abort SDC Dade Calibration",
        .missing = "Space Diversity Combiner Controller missing",
        .notFound = " Error getting interface to ",
        .answer = &combiner<&SpaceDiversityCombinerControllerDouble::onSetDadeCalibration>,
    }),
    row<CriSetSdcPathControlImpl, &criSetSdcPathControl,
        [] {
            return CriSetSdcPathControl::Command{1U, "diversity"};
        }>({
        .name = "SdcPathControl",
        .traceChannel = "ZYR.TI.CriSetSdcPathControl",
        .wireName = "CRI.SetSdcPathControl",
        .input = ", sdcPath: diversity",
        .entry = ", command.sdcPath=diversity",
        .detail = "",
        .controller = "ISpaceDiversityCombinerController",
        .call = "setSdcPath(1)",
        .failedLogged = "CRI.SetSdcPathControl failed to set SDC Path",
        .failed = "Failed to set SDC Path",
        .missing = "Space Diversity Combiner Controller missing",
        .notFound = "Error getting interface to ",
        .answer = &combiner<&SpaceDiversityCombinerControllerDouble::onSetSdcPath>,
    }),
    row<CriSetBasebandSdcChannelImpl, &criSetBasebandSdcChannel,
        [] {
            return CriSetBasebandSdcChannel::Command{1U, true, false};
        }>({
        .name = "BasebandSdcMainChannel",
        .traceChannel = "ZYR.TI.CriSetBasebandSdcChannel",
        .wireName = "CRI.SetBasebandSdcChannel",
        .input = ", isMainChannelEnabled: 1, isDiversityChannelEnabled: 0",
        .entry = ", command.isMainChannelEnabled=1, command.isDiversityChannelEnabled=0",
        .detail = "",
        .controller = "IBasebandSdcController",
        .call = "setChannels(true, false)",
        .failedLogged = "CRI.SetBasebandSdcChannel failed to set SDC Path",
        .failed = "Failed to set SDC Path",
        .missing = "BadebandSdc Controller missing",
        .notFound = "Error getting interface to ",
        .answer = &baseband<&BasebandSdcControllerDouble::onSetChannels>,
    }),
    row<CriSetBasebandSdcChannelImpl, &criSetBasebandSdcChannel,
        [] {
            return CriSetBasebandSdcChannel::Command{1U, false, true};
        }>({
        .name = "BasebandSdcDiversityChannel",
        .traceChannel = "ZYR.TI.CriSetBasebandSdcChannel",
        .wireName = "CRI.SetBasebandSdcChannel",
        .input = ", isMainChannelEnabled: 0, isDiversityChannelEnabled: 1",
        .entry = ", command.isMainChannelEnabled=0, command.isDiversityChannelEnabled=1",
        .detail = "",
        .controller = "IBasebandSdcController",
        .call = "setChannels(false, true)",
        .failedLogged = "CRI.SetBasebandSdcChannel failed to set SDC Path",
        .failed = "Failed to set SDC Path",
        .missing = "BadebandSdc Controller missing",
        .notFound = "Error getting interface to ",
        .answer = &baseband<&BasebandSdcControllerDouble::onSetChannels>,
    }),
    row<CriSetBasebandSdcDadeCalibrationImpl, &criSetBasebandSdcDadeCalibration,
        [] {
            return CriSetBasebandSdcDadeCalibration::Command{1U, true};
        }>({
        .name = "BasebandSdcDadeCalibrationStart",
        .traceChannel = "ZYR.TI.CriSetBasebandSdcDadeCalibration",
        .wireName = "CRI.CriSetSdcBasebandDadeCalibration",
        .input = ", dadeCalibration: 1",
        .entry = ", command.dadeCalibration=1",
        .detail = "",
        .controller = "IBasebandSdcController",
        .call = "startDadeCalibration()",
        .failedLogged = "CRI.SetSdcDadecalibration failed to start or abort SDC Dade Calibration",
        .failed = "Failed to start or abort SDC Dade Calibration",
        .missing = "BasebandSdc Controller missing",
        .notFound = " Error getting interface to ",
        .answer = &baseband<&BasebandSdcControllerDouble::onStartDadeCalibration>,
    }),
    row<CriSetBasebandSdcDadeCalibrationImpl, &criSetBasebandSdcDadeCalibration,
        [] {
            return CriSetBasebandSdcDadeCalibration::Command{1U, false};
        }>({
        .name = "BasebandSdcDadeCalibrationAbort",
        .traceChannel = "ZYR.TI.CriSetBasebandSdcDadeCalibration",
        .wireName = "CRI.CriSetSdcBasebandDadeCalibration",
        .input = ", dadeCalibration: 0",
        .entry = ", command.dadeCalibration=0",
        .detail = "",
        .controller = "IBasebandSdcController",
        .call = "abortDadeCalibration()",
        .failedLogged = "CRI.SetSdcDadecalibration failed to start or abort SDC Dade Calibration",
        .failed = "Failed to start or abort SDC Dade Calibration",
        .missing = "BasebandSdc Controller missing",
        .notFound = " Error getting interface to ",
        .answer = &baseband<&BasebandSdcControllerDouble::onAbortDadeCalibration>,
    }),
    row<CriSetBasebandSdcDadeParamsImpl, &criSetBasebandSdcDadeParams,
        [] {
            return CriSetBasebandSdcDadeParams::Command{1U, 65535, 258};
        }>({
        .name = "BasebandSdcDadeParams",
        .traceChannel = "ZYR.TI.CriSetBasebandSdcDadeParams",
        .wireName = "CRI.SetBasebandSdcDadeParams",
        .input = ", mainDataCalibration: 65535, diversityDataCalibration: 258",
        .entry = ", command.mainDataCalibration=65535, command.diversityDataCalibration=258",
        .detail = "",
        .controller = "IBasebandSdcController",
        .call = "setDadeParams(65535, 258)",
        .failedLogged = "CRI.SetBasebandSdcChannel failed to set Data Calibration",
        .failed = "Failed to set Data Calibration",
        .missing = "BasebandSdc Controller missing",
        .notFound = "Error getting interface to ",
        .answer = &baseband<&BasebandSdcControllerDouble::onSetDadeParams>,
    }),
    row<CriSetBasebandSdcDadeResetCalibrationImpl, &criSetBasebandSdcDadeResetCalibration,
        [] { return CriSetBasebandSdcDadeResetCalibration::Command{1U}; }>({
        .name = "BasebandSdcDadeResetCalibration",
        .traceChannel = "ZYR.TI.CriSetBasebandSdcDadeResetCalibration",
        .wireName = "CRI.CriSetBasebandSdcDadeResetCalibration",
        .input = "",
        .entry = "",
        .detail = "",
        .controller = "IBasebandSdcController",
        .call = "resetDadeCalibration()",
        .failedLogged = "CRI.SetSdcDadeResetCalibration failed",
        .failed = "Failed to reset Dade Calibration",
        .missing = "BasebandSdc Controller missing",
        .notFound = " Error getting interface to ",
        .answer = &baseband<&BasebandSdcControllerDouble::onResetDadeCalibration>,
    }),
    row<CriSetBasebandSdcEnableImpl, &criSetBasebandSdcEnable,
        [] {
            return CriSetBasebandSdcEnable::Command{1U, true, true};
        }>({
        .name = "BasebandSdcStartWithCalibration",
        .traceChannel = "ZYR.TI.CriSetBasebandSdcEnable",
        .wireName = "CRI.SetBasebandSdcEnable",
        .input = ", enabled: 1, isCalibrationRequired: 1",
        .entry = ", command.enabled=1, command.isCalibrationRequired=1",
        .detail = "*7 command.channelId: <id> calling basebandSdcController->start with "
                  "isCalibrationRequired = TRUE",
        .controller = "IBasebandSdcController",
        .call = "start(true)",
        .failedLogged =
            "CRI.SetBasebandSdcEnable failed to set Baseband SDC Start with isCalibrationRequired = TRUE",
        .failed = "Failed to set SDC Baseband SDC Start",
        .missing = "BasebandSdc Controller missing",
        .notFound = "Error getting interface to ",
        .answer = &baseband<&BasebandSdcControllerDouble::onStart>,
    }),
    row<CriSetBasebandSdcEnableImpl, &criSetBasebandSdcEnable,
        [] {
            return CriSetBasebandSdcEnable::Command{1U, true, false};
        }>({
        .name = "BasebandSdcStartWithoutCalibration",
        .traceChannel = "ZYR.TI.CriSetBasebandSdcEnable",
        .wireName = "CRI.SetBasebandSdcEnable",
        .input = ", enabled: 1, isCalibrationRequired: 0",
        .entry = ", command.enabled=1, command.isCalibrationRequired=0",
        .detail = "*7 command.channelId: <id> calling basebandSdcController->start with "
                  "isCalibrationRequired = FALSE",
        .controller = "IBasebandSdcController",
        .call = "start(false)",
        .failedLogged =
            "CRI.SetBasebandSdcEnable failed to set Baseband SDC Start with isCalibrationRequired = FALSE",
        .failed = "Failed to set SDC Baseband SDC Start",
        .missing = "BasebandSdc Controller missing",
        .notFound = "Error getting interface to ",
        .answer = &baseband<&BasebandSdcControllerDouble::onStart>,
    }),
    row<CriSetBasebandSdcEnableImpl, &criSetBasebandSdcEnable,
        [] {
            return CriSetBasebandSdcEnable::Command{1U, false, false};
        }>({
        .name = "BasebandSdcStop",
        .traceChannel = "ZYR.TI.CriSetBasebandSdcEnable",
        .wireName = "CRI.SetBasebandSdcEnable",
        .input = ", enabled: 0, isCalibrationRequired: 0",
        .entry = ", command.enabled=0, command.isCalibrationRequired=0",
        .detail = "*7 command.channelId: <id> calling basebandSdcController->stop",
        .controller = "IBasebandSdcController",
        .call = "stop()",
        .failedLogged = "CRI.SetBasebandSdcEnable failed to set Baseband SDC Stop",
        .failed = "Failed to set SDC Baseband SDC Stop",
        .missing = "BasebandSdc Controller missing",
        .notFound = "Error getting interface to ",
        .answer = &baseband<&BasebandSdcControllerDouble::onStop>,
    }),
    row<CriSetBasebandSdcEnableImpl, &criSetBasebandSdcEnable,
        [] {
            return CriSetBasebandSdcEnable::Command{1U, false, true};
        }>({
        .name = "BasebandSdcStopIgnoresCalibration",
        .traceChannel = "ZYR.TI.CriSetBasebandSdcEnable",
        .wireName = "CRI.SetBasebandSdcEnable",
        .input = ", enabled: 0, isCalibrationRequired: 1",
        .entry = ", command.enabled=0, command.isCalibrationRequired=1",
        .detail = "*7 command.channelId: <id> calling basebandSdcController->stop",
        .controller = "IBasebandSdcController",
        .call = "stop()",
        .failedLogged = "CRI.SetBasebandSdcEnable failed to set Baseband SDC Stop",
        .failed = "Failed to set SDC Baseband SDC Stop",
        .missing = "BasebandSdc Controller missing",
        .notFound = "Error getting interface to ",
        .answer = &baseband<&BasebandSdcControllerDouble::onStop>,
    }),
};

INSTANTIATE_TEST_SUITE_P(, CombinerSetterTest, testing::ValuesIn(kRows),
                         [](const auto& made) { return std::string(made.param.name); });

} // namespace
} // namespace zyr_top_api
