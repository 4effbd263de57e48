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
#include <initializer_list>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
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

/// Texts of a command. "<id>" stands for the channel in all texts.
struct CommandTexts
{
    std::string_view traceChannel;
    std::string_view wireName;
    std::string_view controller; ///< its name without channel
    std::string_view missing;    ///< fault text without controller
    std::string_view notFound;   ///< level 1 line of `initialize`, in front of the name
};

/// What a command does with one record. A trace line of the command is written as '*' and its level.
struct Branch
{
    std::string_view name;
    std::string_view input = {};  ///< behind "RadioChannelID: <id>"
    std::string_view entry = {};  ///< behind "command.channelId=<id>"
    std::string_view detail = {}; ///< trace line in front of the call, if any
    std::string_view call;        ///< of the controller
    Answered& (*answer)(Controllers& controllers, std::uint32_t channel);
    std::string_view failedLogged; ///< level 1 line on failure
    std::string_view failed;       ///< fault text on failure
};

struct Row
{
    CommandTexts command;
    Branch branch;
    std::function<Setter()> make;
    std::function<void(CombinerSetterTest& test)> enrol;
    std::function<StandardResponse(std::uint32_t channel)> dispatch;
};

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.branch.name;
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

    /// What a test expects, with the texts filled in.
    static std::string expected(std::uint32_t channel, const std::vector<std::string>& lines)
    {
        std::string all = "\n";
        for (std::string line : lines) {
            if (line.empty()) {
                continue;
            }
            if (line.starts_with('*')) {
                line = line.substr(1, 1) + " " + std::string(GetParam().command.traceChannel) + ":" +
                       line.substr(2);
            }
            for (auto at = line.find("<id>"); at != std::string::npos; at = line.find("<id>")) {
                line.replace(at, 4, std::to_string(channel));
            }
            all += line + "\n";
        }
        return all;
    }

    static std::string entry() { return "*6 command.channelId=<id>" + std::string(GetParam().branch.entry); }
    static std::string input()
    {
        return "*3 RadioChannelID: <id>" + std::string(GetParam().branch.input) + "\\n";
    }
    static std::string detail() { return std::string(GetParam().branch.detail); }
    static std::string call()
    {
        return std::string(GetParam().command.controller) + "_<id>." + std::string(GetParam().branch.call);
    }
    static std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }
    static std::string ownName(std::uint32_t channel)
    {
        return std::string(GetParam().command.controller) + "_" + std::to_string(channel);
    }
    Answered& answer(std::uint32_t channel) { return GetParam().branch.answer(controllers, channel); }

    /// Shows all lines of the command, and no others.
    static void showAll() { setTraceLevel(GetParam().command.traceChannel, 7); }

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
                {"5 ZYR.COMM: " + std::string(GetParam().command.wireName) +
                     " Request: RadioChannelID: <id>" + std::string(GetParam().branch.input) + "\\n",
                 entry(), input(), detail(), call(),
                 "5 ZYR.COMM: " + std::string(GetParam().command.wireName) +
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
    EXPECT_EQ(transcript.text(), expected(2, {entry(), input(), detail(), call(),
                                              "*1 " + std::string(GetParam().branch.failedLogged),
                                              "result 0x8000 4 " + quoted(GetParam().branch.failed),
                                              R"(prints StandardResponse Sent\n)"}));
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
              expected(2, {entry(), input(), "result 0x8008 4 " + quoted(GetParam().command.missing),
                           R"(prints StandardResponse Sent\n)"}));
}

TEST_P(CombinerSetterTest, Channel0HasNoController)
{
    ASSERT_EQ(setter.initialize(2), eTI_S_OK);
    showAll();
    transcript.clear();
    tell(setter.execute(0));
    EXPECT_EQ(transcript.text(),
              expected(0, {entry(), input(), "result 0x8008 4 " + quoted(GetParam().command.missing),
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
    EXPECT_EQ(transcript.text(), expected(1, {"*1 " + std::string(GetParam().command.notFound) + ownName(2),
                                              "*1 Already initialized", input(), call()}));
}

TEST_P(CombinerSetterTest, InitialiseTriesNoChannelBehindAMissingController)
{
    withdraw(ownName(1));
    EXPECT_EQ(setter.initialize(2), 0x8000);
    EXPECT_EQ(setter.execute(2).tiResult, 0x8008);
    EXPECT_EQ(transcript.text(),
              expected(2, {"*1 " + std::string(GetParam().command.notFound) + ownName(1), input()}));
}

TEST_P(CombinerSetterTest, ControllerOfTheOtherFamilyIsNoController)
{
    const std::string name = ownName(1);
    withdraw(name);
    if (GetParam().command.controller == "IBasebandSdcController") {
        publish(name, controllers.combiner1);
    } else {
        publish(name, controllers.baseband1);
    }
    EXPECT_EQ(setter.initialize(1), 0x8000);
    EXPECT_EQ(transcript.text(), expected(1, {"*1 " + std::string(GetParam().command.notFound) + name}));
}

/// The rows of a command: one for each record that it takes another way with.
/// @tparam Dispatch  the command's exported function
template <class XImpl, auto Dispatch>
std::vector<Row> rowsOf(const CommandTexts& texts,
                        std::initializer_list<std::pair<typename XImpl::Command, Branch>> branches)
{
    std::vector<Row> rows;
    for (const auto& [record, branch] : branches) {
        const auto commandFor = [record = record](std::uint32_t channel) {
            auto command = record;
            command.channelId = channel;
            return command;
        };
        const auto make = [commandFor] {
            const auto impl = std::make_shared<XImpl>();
            return Setter{
                [impl](unsigned numberOfChannels) { return impl->initialize(numberOfChannels); },
                [impl, commandFor](std::uint32_t channel) { return impl->execute(commandFor(channel)); }};
        };
        rows.push_back({texts, branch, make, [](CombinerSetterTest& test) { test.enrolOnly<XImpl>(); },
                        [commandFor](std::uint32_t channel) { return Dispatch(commandFor(channel)); }});
    }
    return rows;
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

std::string nameOf(const testing::TestParamInfo<Row>& row)
{
    return std::string(row.param.branch.name);
}

// One instantiation for each command, under its class name.

INSTANTIATE_TEST_SUITE_P(
    CriSetSdcEnable, CombinerSetterTest,
    testing::ValuesIn(rowsOf<CriSetSdcEnableImpl, &criSetSdcEnable>(
        {
            .traceChannel = "ZYR.TI.CriSetSdc",
            .wireName = "CRI.SetSdcEnable",
            .controller = "ISpaceDiversityCombinerController",
            .missing = "Space Diversity Combiner Controller missing",
            .notFound = " Error getting interface to ",
        },
        {
            {{1U, true},
             {
                 .name = "SdcOn",
                 .input = ", sdcEnable: 1",
                 .entry = ", command.sdcEnable=1",
                 .call = "setSdcEnable(true)",
                 .answer = &combiner<&SpaceDiversityCombinerControllerDouble::onSetSdcEnable>,
                 .failedLogged = "CRI.SetSdcEnable failed to enable or disable Space Diversity Combiner",
                 .failed = "Failed to enable or disable Space Diversity Combiner",
             }},
            {{1U, false},
             {
                 .name = "SdcOff",
                 .input = ", sdcEnable: 0",
                 .entry = ", command.sdcEnable=0",
                 .call = "setSdcEnable(false)",
                 .answer = &combiner<&SpaceDiversityCombinerControllerDouble::onSetSdcEnable>,
                 .failedLogged = "CRI.SetSdcEnable failed to enable or disable Space Diversity Combiner",
                 .failed = "Failed to enable or disable Space Diversity Combiner",
             }},
        })),
    &nameOf);

INSTANTIATE_TEST_SUITE_P(
    CriSetSdcRlConfiguration, CombinerSetterTest,
    testing::ValuesIn(rowsOf<CriSetSdcRlConfigurationImpl, &criSetSdcRlConfiguration>(
        {
            .traceChannel = "ZYR.TI.CriSetSdcRlConfiguration",
            .wireName = "CRI.SetSdcRlConfiguration",
            .controller = "ISpaceDiversityCombinerController",
            .missing = "Space Diversity Combiner Controller missing",
            .notFound = "Error getting interface to ",
        },
        {
            {{1U, "4-512-light", "62500", true},
             {
                 .name = "SdcRlConfiguration",
                 .input = ", selectedMaxAcm: 4-512-light, channelSpacing: 62500, xpicEnabled: 1",
                 .entry = ", command.selectedMaxAcm=4-512-light, command.channelSpacing=62500, "
                          "command.xpicEnabled=1",
                 .detail = "*5 Max modulation: 512QAM, channel spacing: 62, xpic enabled: 1",
                 .call = "setRlConfiguration(512, 62, true)",
                 .answer = &combiner<&SpaceDiversityCombinerControllerDouble::onSetRlConfiguration>,
                 .failedLogged = "CRI.SetSdcRlConfiguration failed to set RL configuration attributes "
                                 "(maxModulation, channelSpacing, xpicEnabled)",
                 .failed = "Failed to set RL configuration attributes",
             }},
        })),
    &nameOf);

INSTANTIATE_TEST_SUITE_P(
    CriSetSdcDadeCalibration, CombinerSetterTest,
    testing::ValuesIn(rowsOf<CriSetSdcDadeCalibrationImpl, &criSetSdcDadeCalibration>(
        {
            .traceChannel = "ZYR.TI.CriSetDadeCalibration",
            .wireName = "CRI.SetSdcDadeCalibration",
            .controller = "ISpaceDiversityCombinerController",
            .missing = "Space Diversity Combiner Controller missing",
            .notFound = " Error getting interface to ",
        },
        {
            {{1U, true},
             {
                 .name = "SdcDadeCalibrationStart",
                 .input = ", dadeCalibration: 1",
                 .entry = ", command.dadeCalibration=1",
                 .call = "setDadeCalibration(true)",
                 .answer = &combiner<&SpaceDiversityCombinerControllerDouble::onSetDadeCalibration>,
                 .failedLogged = "CRI.SetSdcDadecalibration failed to start or abort SDC Dade Calibration",
                 .failed = "Failed to start or abort SDC Dade Calibration",
             }},
            {{1U, false},
             {
                 .name = "SdcDadeCalibrationAbort",
                 .input = ", dadeCalibration: 0",
                 .entry = ", command.dadeCalibration=0",
                 .call = "setDadeCalibration(false)",
                 .answer = &combiner<&SpaceDiversityCombinerControllerDouble::onSetDadeCalibration>,
                 .failedLogged = "CRI.SetSdcDadecalibration failed to start or abort SDC Dade Calibration",
                 .failed = "Failed to start or abort SDC Dade Calibration",
             }},
        })),
    &nameOf);

INSTANTIATE_TEST_SUITE_P(
    CriSetSdcPathControl, CombinerSetterTest,
    testing::ValuesIn(rowsOf<CriSetSdcPathControlImpl, &criSetSdcPathControl>(
        {
            .traceChannel = "ZYR.TI.CriSetSdcPathControl",
            .wireName = "CRI.SetSdcPathControl",
            .controller = "ISpaceDiversityCombinerController",
            .missing = "Space Diversity Combiner Controller missing",
            .notFound = "Error getting interface to ",
        },
        {
            {{1U, "diversity"},
             {
                 .name = "SdcPathControl",
                 .input = ", sdcPath: diversity",
                 .entry = ", command.sdcPath=diversity",
                 .call = "setSdcPath(1)",
                 .answer = &combiner<&SpaceDiversityCombinerControllerDouble::onSetSdcPath>,
                 .failedLogged = "CRI.SetSdcPathControl failed to set SDC Path",
                 .failed = "Failed to set SDC Path",
             }},
        })),
    &nameOf);

INSTANTIATE_TEST_SUITE_P(
    CriSetBasebandSdcChannel, CombinerSetterTest,
    testing::ValuesIn(rowsOf<CriSetBasebandSdcChannelImpl, &criSetBasebandSdcChannel>(
        {
            .traceChannel = "ZYR.TI.CriSetBasebandSdcChannel",
            .wireName = "CRI.SetBasebandSdcChannel",
            .controller = "IBasebandSdcController",
            .missing = "BadebandSdc Controller missing",
            .notFound = "Error getting interface to ",
        },
        {
            {{1U, true, false},
             {
                 .name = "BasebandSdcMainChannel",
                 .input = ", isMainChannelEnabled: 1, isDiversityChannelEnabled: 0",
                 .entry = ", command.isMainChannelEnabled=1, command.isDiversityChannelEnabled=0",
                 .call = "setChannels(true, false)",
                 .answer = &baseband<&BasebandSdcControllerDouble::onSetChannels>,
                 .failedLogged = "CRI.SetBasebandSdcChannel failed to set SDC Path",
                 .failed = "Failed to set SDC Path",
             }},
            {{1U, false, true},
             {
                 .name = "BasebandSdcDiversityChannel",
                 .input = ", isMainChannelEnabled: 0, isDiversityChannelEnabled: 1",
                 .entry = ", command.isMainChannelEnabled=0, command.isDiversityChannelEnabled=1",
                 .call = "setChannels(false, true)",
                 .answer = &baseband<&BasebandSdcControllerDouble::onSetChannels>,
                 .failedLogged = "CRI.SetBasebandSdcChannel failed to set SDC Path",
                 .failed = "Failed to set SDC Path",
             }},
        })),
    &nameOf);

INSTANTIATE_TEST_SUITE_P(
    CriSetBasebandSdcDadeCalibration, CombinerSetterTest,
    testing::ValuesIn(rowsOf<CriSetBasebandSdcDadeCalibrationImpl, &criSetBasebandSdcDadeCalibration>(
        {
            .traceChannel = "ZYR.TI.CriSetBasebandSdcDadeCalibration",
            .wireName = "CRI.CriSetSdcBasebandDadeCalibration",
            .controller = "IBasebandSdcController",
            .missing = "BasebandSdc Controller missing",
            .notFound = " Error getting interface to ",
        },
        {
            {{1U, true},
             {
                 .name = "BasebandSdcDadeCalibrationStart",
                 .input = ", dadeCalibration: 1",
                 .entry = ", command.dadeCalibration=1",
                 .call = "startDadeCalibration()",
                 .answer = &baseband<&BasebandSdcControllerDouble::onStartDadeCalibration>,
                 .failedLogged = "CRI.SetSdcDadecalibration failed to start or abort SDC Dade Calibration",
                 .failed = "Failed to start or abort SDC Dade Calibration",
             }},
            {{1U, false},
             {
                 .name = "BasebandSdcDadeCalibrationAbort",
                 .input = ", dadeCalibration: 0",
                 .entry = ", command.dadeCalibration=0",
                 .call = "abortDadeCalibration()",
                 .answer = &baseband<&BasebandSdcControllerDouble::onAbortDadeCalibration>,
                 .failedLogged = "CRI.SetSdcDadecalibration failed to start or abort SDC Dade Calibration",
                 .failed = "Failed to start or abort SDC Dade Calibration",
             }},
        })),
    &nameOf);

INSTANTIATE_TEST_SUITE_P(
    CriSetBasebandSdcDadeParams, CombinerSetterTest,
    testing::ValuesIn(rowsOf<CriSetBasebandSdcDadeParamsImpl, &criSetBasebandSdcDadeParams>(
        {
            .traceChannel = "ZYR.TI.CriSetBasebandSdcDadeParams",
            .wireName = "CRI.SetBasebandSdcDadeParams",
            .controller = "IBasebandSdcController",
            .missing = "BasebandSdc Controller missing",
            .notFound = "Error getting interface to ",
        },
        {
            {{1U, 65535, 258},
             {
                 .name = "BasebandSdcDadeParams",
                 .input = ", mainDataCalibration: 65535, diversityDataCalibration: 258",
                 .entry = ", command.mainDataCalibration=65535, command.diversityDataCalibration=258",
                 .call = "setDadeParams(65535, 258)",
                 .answer = &baseband<&BasebandSdcControllerDouble::onSetDadeParams>,
                 .failedLogged = "CRI.SetBasebandSdcChannel failed to set Data Calibration",
                 .failed = "Failed to set Data Calibration",
             }},
        })),
    &nameOf);

INSTANTIATE_TEST_SUITE_P(
    CriSetBasebandSdcDadeResetCalibration, CombinerSetterTest,
    testing::ValuesIn(
        rowsOf<CriSetBasebandSdcDadeResetCalibrationImpl, &criSetBasebandSdcDadeResetCalibration>(
            {
                .traceChannel = "ZYR.TI.CriSetBasebandSdcDadeResetCalibration",
                .wireName = "CRI.CriSetBasebandSdcDadeResetCalibration",
                .controller = "IBasebandSdcController",
                .missing = "BasebandSdc Controller missing",
                .notFound = " Error getting interface to ",
            },
            {
                {{1U},
                 {
                     .name = "BasebandSdcDadeResetCalibration",
                     .call = "resetDadeCalibration()",
                     .answer = &baseband<&BasebandSdcControllerDouble::onResetDadeCalibration>,
                     .failedLogged = "CRI.SetSdcDadeResetCalibration failed",
                     .failed = "Failed to reset Dade Calibration",
                 }},
            })),
    &nameOf);

INSTANTIATE_TEST_SUITE_P(
    CriSetBasebandSdcEnable, CombinerSetterTest,
    testing::ValuesIn(rowsOf<CriSetBasebandSdcEnableImpl, &criSetBasebandSdcEnable>(
        {
            .traceChannel = "ZYR.TI.CriSetBasebandSdcEnable",
            .wireName = "CRI.SetBasebandSdcEnable",
            .controller = "IBasebandSdcController",
            .missing = "BasebandSdc Controller missing",
            .notFound = "Error getting interface to ",
        },
        {
            {{1U, true, true},
             {
                 .name = "BasebandSdcStartWithCalibration",
                 .input = ", enabled: 1, isCalibrationRequired: 1",
                 .entry = ", command.enabled=1, command.isCalibrationRequired=1",
                 .detail = "*7 command.channelId: <id> calling basebandSdcController->start with "
                           "isCalibrationRequired = TRUE",
                 .call = "start(true)",
                 .answer = &baseband<&BasebandSdcControllerDouble::onStart>,
                 .failedLogged = "CRI.SetBasebandSdcEnable failed to set Baseband SDC Start with "
                                 "isCalibrationRequired = TRUE",
                 .failed = "Failed to set SDC Baseband SDC Start",
             }},
            {{1U, true, false},
             {
                 .name = "BasebandSdcStartWithoutCalibration",
                 .input = ", enabled: 1, isCalibrationRequired: 0",
                 .entry = ", command.enabled=1, command.isCalibrationRequired=0",
                 .detail = "*7 command.channelId: <id> calling basebandSdcController->start with "
                           "isCalibrationRequired = FALSE",
                 .call = "start(false)",
                 .answer = &baseband<&BasebandSdcControllerDouble::onStart>,
                 .failedLogged = "CRI.SetBasebandSdcEnable failed to set Baseband SDC Start with "
                                 "isCalibrationRequired = FALSE",
                 .failed = "Failed to set SDC Baseband SDC Start",
             }},
            {{1U, false, false},
             {
                 .name = "BasebandSdcStop",
                 .input = ", enabled: 0, isCalibrationRequired: 0",
                 .entry = ", command.enabled=0, command.isCalibrationRequired=0",
                 .detail = "*7 command.channelId: <id> calling basebandSdcController->stop",
                 .call = "stop()",
                 .answer = &baseband<&BasebandSdcControllerDouble::onStop>,
                 .failedLogged = "CRI.SetBasebandSdcEnable failed to set Baseband SDC Stop",
                 .failed = "Failed to set SDC Baseband SDC Stop",
             }},
            {{1U, false, true},
             {
                 .name = "BasebandSdcStopIgnoresCalibration",
                 .input = ", enabled: 0, isCalibrationRequired: 1",
                 .entry = ", command.enabled=0, command.isCalibrationRequired=1",
                 .detail = "*7 command.channelId: <id> calling basebandSdcController->stop",
                 .call = "stop()",
                 .answer = &baseband<&BasebandSdcControllerDouble::onStop>,
                 .failedLogged = "CRI.SetBasebandSdcEnable failed to set Baseband SDC Stop",
                 .failed = "Failed to set SDC Baseband SDC Stop",
             }},
        })),
    &nameOf);

} // namespace
} // namespace zyr_top_api
