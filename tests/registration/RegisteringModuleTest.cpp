#include "RegisteringModule.h"

#include "CommandTest.h"
#include "NodeDoubles.h"
#include "RecordError.h"
#include "StoredVariables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <future>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace
{

using zyr_registration::Answer;
using zyr_registration::RegisteringModule;
using zyr_registration::RegistrationError;
using zyr_registration::Value;
using zyr_top_api::CmdWrapperBase;
using zyr_top_api::ZyrApiHandler;

class RegisteringModuleTest : public zyr_test::CommandTest
{
  protected:
    static Answer call(RegisteringModule& module, const char* name, const Value& members = Value::object())
    {
        return module.call(*zyr_registration::findCommand(name), members);
    }

    static Value sdcConfiguration(const std::string& channelSpacing)
    {
        return {{"channelId", 2},
                {"selectedMaxAcm", "256"},
                {"channelSpacing", channelSpacing},
                {"xpicEnabled", true}};
    }

    // Why the commands can't be registered, "" if they can.
    static std::string refusalToOpen()
    {
        try {
            const RegisteringModule module({.numberOfChannels = 2, .enableTi = true});
            return {};
        } catch (const RegistrationError& error) {
            return error.what();
        }
    }

    zyr_test::StoredVariables variables;
    zyr_test::NodeDoubles node{transcript};
};

TEST_F(RegisteringModuleTest, CommandRunsOnTheRegisteredObject)
{
    publishNode(node);
    RegisteringModule module({.numberOfChannels = 2, .enableTi = false});
    transcript.clear();
    const Answer answer = call(module, "CRI.EnableAcm", {{"channelId", 2}, {"enable", true}});
    EXPECT_EQ(answer.faultCode, 0);
    EXPECT_EQ(answer.value.dump(), R"({"tiResult":0})");
    EXPECT_EQ(transcript.lines().back(), "IAcmHandler_2.enableAcm(true)");
}

TEST_F(RegisteringModuleTest, FailureOfACommandIsAFault)
{
    publishNode(node);
    node.channel1.acmHandler.onEnableAcm = 0x8000;
    RegisteringModule module({.numberOfChannels = 2, .enableTi = false});
    const Answer answer = call(module, "CRI.EnableAcm", {{"channelId", 1}, {"enable", false}});
    EXPECT_EQ(answer.faultCode, 4);
    EXPECT_EQ(answer.faultText, "CRI.EnableAcm failed to disable ACM");
}

TEST_F(RegisteringModuleTest, ChannelBeyondTheNodesIsRefusedBeforeTheCommandRuns)
{
    publishNode(node);
    RegisteringModule module({.numberOfChannels = 1, .enableTi = false});
    transcript.clear();
    EXPECT_THROW(call(module, "CRI.EnableAcm", {{"channelId", 2}, {"enable", true}}),
                 zyr_registration::RecordError);
    EXPECT_EQ(transcript.text(), "\n");
}

constexpr const char* kWhatASpacingIs =
    ", it takes a string that begins with an integer from -2147483648 to 2147483647, known are "
    R"("3500", "5000", "6000", "7000", "10000", "14000", "20000", "28000", "30000", "40000", "50000", )"
    R"("56000", "60000", "62000", "62500", "80000", "100000", "112000", "125000", "150000", "200000", )"
    R"("250000", "300000", "350000", "400000", "450000", "500000", "600000", "750000", "1000000", )"
    R"("1250000", "1500000", "1750000", "2000000")";

TEST_F(RegisteringModuleTest, TextThatACommandCannotReadAsANumberIsRefusedWithItsMember)
{
    publishNode(node);
    RegisteringModule module({.numberOfChannels = 2, .enableTi = false});
    for (const std::string text : {"", "wide", "-", " kHz 28000", "2147483648", "-2147483649"}) {
        try {
            call(module, "CRI.SetSdcRlConfiguration", sdcConfiguration(text));
            ADD_FAILURE() << text;
        } catch (const zyr_registration::RecordError& error) {
            EXPECT_EQ(error.result(), 0xA100U);
            EXPECT_EQ(error.what(),
                      "eTI_E_INVALID_ARGUMENT: CRI.SetSdcRlConfiguration: channelSpacing is the "
                      "string \"" +
                          text + "\"" + kWhatASpacingIs);
        }
    }
}

TEST_F(RegisteringModuleTest, TextThatBeginsWithANumberIsRead)
{
    publishNode(node);
    RegisteringModule module({.numberOfChannels = 2, .enableTi = false});
    for (const char* const text : {"28000", " +28000", "28000kHz"}) {
        transcript.clear();
        EXPECT_EQ(call(module, "CRI.SetSdcRlConfiguration", sdcConfiguration(text)).faultCode, 0);
        EXPECT_EQ(transcript.lines().back(),
                  "ISpaceDiversityCombinerController_2.setRlConfiguration(256, 28, true)");
    }
    for (const char* const text : {"2147483647", "-2147483648"}) {
        transcript.clear();
        EXPECT_EQ(call(module, "CRI.SetSdcRlConfiguration", sdcConfiguration(text)).faultCode, 0);
        EXPECT_EQ(transcript.lines().back(),
                  "ISpaceDiversityCombinerController_2.setRlConfiguration(256, 3000, true)");
    }
}

TEST_F(RegisteringModuleTest, RequestThatLacksAnOptionForWhatItAsksIsRefusedWithThatOption)
{
    publishNode(node);
    RegisteringModule module({.numberOfChannels = 2, .enableTi = true});
    const auto refusal = [&](const char* name, const Value& members) {
        try {
            return call(module, name, members).value.dump();
        } catch (const zyr_registration::RecordError& error) {
            EXPECT_EQ(error.result(), 0xA102U);
            return std::string(error.what());
        }
    };
    EXPECT_EQ(
        refusal("CRI.GetSpectrumDiagnostics", {{"RadioChannelID", 1}, {"RequestOption", "scan-stop"}}),
        "eTI_E_REQUIRED_INPUT_MISSING: CRI.GetSpectrumDiagnostics: DmSleep is missing, it is needed for the "
        "two starts and the stop and takes an integer from 0 to 4294967295");
    EXPECT_EQ(refusal("TI.ManageXPIC", {{"xpicAcquireStart", true}, {"xpicAcquireMode", 1}}),
              "eTI_E_REQUIRED_INPUT_MISSING: TI.ManageXPIC: xpicSpectralInversionMode is missing, it is "
              "needed for xpicAcquireStart and takes an integer from 0 to 4294967295");
    EXPECT_EQ(
        refusal("TI.ManageXPIC",
                {{"xpicAcquireStart", true}, {"xpicAcquireMode", nullptr}, {"xpicSpectralInversionMode", 1}}),
        "eTI_E_REQUIRED_INPUT_MISSING: TI.ManageXPIC: xpicAcquireMode is missing, it is needed for "
        "xpicAcquireStart and takes an integer from 0 to 4294967295");
}

TEST_F(RegisteringModuleTest, OptionThatNothingNeedsIsBlamedForNothing)
{
    publishNode(node);
    RegisteringModule module({.numberOfChannels = 2, .enableTi = false});
    node.channel2.spaceDiversityCombinerController.onSetRlConfiguration.doInstead(
        []() -> zyr_top_api::ETIResult { throw general_classes::BadOptional(); });
    EXPECT_THROW(call(module, "CRI.SetSdcRlConfiguration", sdcConfiguration("28000")),
                 general_classes::BadOptional);
}

TEST_F(RegisteringModuleTest, WhatElseLeavesACommandIsBlamedOnNoMember)
{
    publishNode(node);
    RegisteringModule module({.numberOfChannels = 2, .enableTi = false});
    node.channel2.spaceDiversityCombinerController.onSetRlConfiguration.doInstead(
        []() -> zyr_top_api::ETIResult { throw std::out_of_range("of its own"); });
    try {
        call(module, "CRI.SetSdcRlConfiguration", sdcConfiguration("28000"));
        ADD_FAILURE();
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ(error.what(), "of its own");
    }
}

TEST_F(RegisteringModuleTest, EventsOfAResponseBecomeStructs)
{
    publishNode(node);
    node.alarmHandler.onGetAlarms = {0U, {{"LinkDown", true, 3, 2}}};
    RegisteringModule module({.numberOfChannels = 2, .enableTi = false});
    EXPECT_EQ(call(module, "CI.GetEvents").value.dump(),
              R"({"tiResult":0,"events":[{"eventName":"LinkDown","isActive":true,)"
              R"("numberOfTimesEventHasBeenActive":3,"radioChannelId":2}]})");
}

TEST_F(RegisteringModuleTest, DirectCommandIsRefusedWhileTheTestFamilyIsClosed)
{
    publishNode(node);
    RegisteringModule module({.numberOfChannels = 2, .enableTi = false});
    transcript.clear();
    const Answer answer = call(module, "TI.GetEvents", {{"requestOption", 1}});
    EXPECT_EQ(answer.faultCode, 4);
    EXPECT_EQ(answer.faultText, "Error: Command not available");
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(RegisteringModuleTest, DirectCommandRunsWithoutTheFrame)
{
    publishNode(node);
    RegisteringModule module({.numberOfChannels = 2, .enableTi = true});
    setTraceLevel("*", 6);
    transcript.clear();
    EXPECT_EQ(call(module, "TI.GetEvents", {{"requestOption", 1}}).value.dump(),
              R"({"tiResult":0,"events":[],"requestOption":1})");
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiGetEvents:
IAlarmHandlerTopApi.getAlarmsByOption(1)
)");
}

TEST_F(RegisteringModuleTest, CatalogueHasEveryCommandInOrder)
{
    publishNode(node);
    RegisteringModule module({.numberOfChannels = 2, .enableTi = true});
    const Value commands = call(module, "TI.GetAllCommandsData").value["commands"];
    ASSERT_EQ(commands.size(), zyr_registration::allCommands().size());
    ASSERT_EQ(ZyrApiHandler::m_allCommandsDescData.size(), zyr_registration::allCommands().size());
    for (std::size_t index = 0; index < commands.size(); ++index) {
        EXPECT_EQ(commands[index]["name"], std::string(zyr_registration::allCommands()[index].name()));
        EXPECT_EQ(ZyrApiHandler::m_allCommandsDescData[index].name,
                  zyr_registration::allCommands()[index].name());
    }
    const auto descriptionOf = [&](const char* name) {
        const auto row = std::ranges::find(
            commands, name, [](const Value& command) { return command["name"].get<std::string>(); });
        return row != commands.end() ? (*row)["description"] : Value();
    };
    EXPECT_EQ(descriptionOf("TI.ManageRadioChannelStatus"),
              "This is a TI version of the CRI.GetRadioChannelStatus");
    EXPECT_EQ(descriptionOf("CRI.EnableAcm"),
              "Switches adaptive coding and modulation (ACM) of a radio channel on or off.");
}

TEST_F(RegisteringModuleTest, CommandWithNestedFieldsAndTextsRuns)
{
    publishNode(node);
    RegisteringModule module({.numberOfChannels = 2, .enableTi = false});
    setTraceLevel("ZYR.COMM", 5);
    transcript.clear();
    call(module, "CRI.SetRadioChannelNearEnd",
         {{"RadioChannelID", 2},
          {"radioFrameId", 101},
          {"minModulation", "4QAM"},
          {"maxModulation", 81},
          {"referenceSec", "4L"},
          {"txFrequency_kHz", 7125000},
          {"rxFrequency_kHz", 7286000},
          {"iduMacAddress", "01:02:03:04:05:06"},
          {"rauMultiTrxConfig", {{"ifSwitchMode", 3}}}});
    const auto lines = transcript.lines();
    ASSERT_FALSE(lines.empty());
    EXPECT_TRUE(lines.front().starts_with(
        "5 ZYR.COMM: CRI.SetRadioChannelNearEnd Request: RadioChannelID: 2, radioFrameId: 101, "
        "minModulation: 4QAM, "
        "maxModulation: 256QAM, referenceSec: 4L, txFrequency_kHz: 7125000, rxFrequency_kHz: 7286000, "))
        << lines.front();
    EXPECT_NE(lines.front().find("iduMacAddress: 1:2:3:4:5:6"), std::string::npos) << lines.front();
    EXPECT_NE(lines.front().find("rauMultiTrxConfig.ifSwitchMode: 3"), std::string::npos) << lines.front();
}

TEST_F(RegisteringModuleTest, EveryFailedInitialisationIsNamedAndNothingStaysOpen)
{
    publish(node.channel1.acmHandler);
    const std::string refusal = refusalToOpen();
    EXPECT_TRUE(refusal.starts_with("the commands can't be registered:\n")) << refusal;
    for (const char* const line :
         {"\n  CI.GetEvents: initialize failed with eTI_E_FAILED, see the trace of ZYR.TI.CiGetEvents",
          "\n  CI.GetFastEvents: initialize failed with eTI_E_FAILED, see the trace of "
          "ZYR.TI.CiGetFastEvents",
          "\n  CRI.EnableAcm: initialize failed with eTI_E_FAILED, see the trace of ZYR.TI.CriEnableAcm",
          "\n  TI.SetEvents: initialize failed with eTI_E_FAILED, see the trace of ZYR.TI.TiSetEvents"}) {
        EXPECT_NE(refusal.find(line), std::string::npos) << line << "\nin\n" << refusal;
    }
    EXPECT_EQ(refusal.find("TI.GetAllCommandsData"), std::string::npos);
    EXPECT_TRUE(ZyrApiHandler::m_cmds.empty());
    EXPECT_TRUE(ZyrApiHandler::m_registerInImFunctionsCri.empty());
    EXPECT_TRUE(ZyrApiHandler::m_registerInImFunctionsTi.empty());
    EXPECT_TRUE(ZyrApiHandler::m_allCommandsDescData.empty());
}

TEST_F(RegisteringModuleTest, SecondModuleIsRefusedAndTheFirstStays)
{
    publishNode(node);
    RegisteringModule module({.numberOfChannels = 2, .enableTi = false});
    EXPECT_EQ(refusalToOpen(), "the commands can't be registered: the table of commands is already in use");
    EXPECT_EQ(call(module, "CI.GetEvents").faultCode, 0);
}

TEST_F(RegisteringModuleTest, ClosingEmptiesTheTablesSoThatTheNextOneCanOpen)
{
    publishNode(node);
    for (int round = 0; round < 2; ++round) {
        const RegisteringModule module({.numberOfChannels = 2, .enableTi = true});
        EXPECT_FALSE(ZyrApiHandler::m_cmds.empty());
    }
    EXPECT_TRUE(ZyrApiHandler::m_cmds.empty());
    RegisteringModule module({.numberOfChannels = 2, .enableTi = false});
    EXPECT_EQ(call(module, "TI.SetEvents").faultText, "Error: Command not available");
}

// Holds each sleeping caller until so many of them sleep at once.
class MeetingSleeper : public Util::DefaultSleepApi
{
  public:
    explicit MeetingSleeper(unsigned callers) : m_callers(callers) {}

    void sleep(std::uint32_t milliSec) override
    {
        std::unique_lock lock(m_mutex);
        slept.insert(milliSec);
        m_arrival.notify_all();
        haveMet =
            m_arrival.wait_for(lock, std::chrono::minutes(1), [&] { return slept.size() >= m_callers; });
    }

    std::multiset<std::uint32_t> slept;
    bool haveMet = false;

  private:
    unsigned m_callers;
    std::mutex m_mutex;
    std::condition_variable m_arrival;
};

TEST_F(RegisteringModuleTest, CallersOfADirectCommandDoNotWaitForEachOther)
{
    publishNode(node);
    RegisteringModule module({.numberOfChannels = 2, .enableTi = true});
    MeetingSleeper sleeper(2);
    const zyr_platform::Replacement<Util::DefaultSleepApi> inForce(sleeper);
    const auto callFor = [&](unsigned seconds) {
        return std::async(std::launch::async, [&module, seconds] {
            return call(module, "TI.ManageDsp",
                        {{"RadioChannelID", 1},
                         {"injectError", "ComFailure"},
                         {"injectCounter", 1},
                         {"WaitInSeconds", seconds}})
                .faultText;
        });
    };
    auto first = callFor(100);
    auto second = callFor(99);
    EXPECT_EQ(first.get(), "");
    EXPECT_EQ(second.get(), "");
    EXPECT_TRUE(sleeper.haveMet);
    EXPECT_EQ(sleeper.slept, (std::multiset<std::uint32_t>{99'000, 100'000}));
}

TEST_F(RegisteringModuleTest, TableDefectsAreAllNamed)
{
    const auto entry = [](const char* name) { return std::make_shared<CmdWrapperBase>(name); };
    std::vector<std::shared_ptr<CmdWrapperBase>> table;
    for (const auto& command : zyr_registration::allCommands()) {
        if (!command.isDirect()) {
            table.push_back(entry(std::string(command.name()).c_str()));
        }
    }
    EXPECT_EQ(zyr_registration::tableDefects(table), std::vector<std::string>{});

    std::erase_if(table, [](const auto& one) { return one->name() == "CI.GetEvents"; });
    table.push_back(entry("CRI.EnableAcm"));
    table.push_back(nullptr);
    table.push_back(entry("TI.GetEvents"));
    table.push_back(entry("CRI.enableAcm"));
    EXPECT_EQ(zyr_registration::tableDefects(table),
              (std::vector<std::string>{"an entry is null", "TI.GetEvents: no dispatched command",
                                        "CRI.enableAcm: no dispatched command", "CI.GetEvents: missing",
                                        "CRI.EnableAcm: more than one entry"}));
}

} // namespace
