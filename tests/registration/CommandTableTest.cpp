#include "CommandEntry.h"
#include "CommandTest.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace
{

using zyr_registration::CommandEntry;
using zyr_top_api::BaseResponse;
using zyr_top_api::ZyrApiHandler;

// What a command is called everywhere.
struct Row
{
    std::string wireName;
    std::string className;
    std::string responseLabel;
    std::string traceChannel;
    bool isGated;
    bool isDirect;
};

const std::vector<Row> kRows{
    {"CI.GetEvents", "CiGetEvents", "CiGetEvents::Response", "ZYR.TI.CiGetEvents", false, false},
    {"CI.GetFastEvents", "CiGetFastEvents", "CiGetFastEvents::Response", "ZYR.TI.CiGetFastEvents", false,
     false},
    {"CI.ReleaseFastEventsRequests", "CiReleaseFastEventsRequests", "StandardResponse",
     "ZYR.TI.CiReleaseFastEventsRequests", false, false},
    {"CRI.EnableAcm", "CriEnableAcm", "StandardResponse", "ZYR.TI.CriEnableAcm", false, false},
    {"CRI.GetAirInterfaceCapability", "CriGetAirInterfaceCapability",
     "CriGetAirInterfaceCapability::Response", "ZYR.TI.CriGetAirInterfaceCapability", false, false},
    {"CRI.GetRadioChannelCapability", "CriGetRadioChannelCapability",
     "CriGetRadioChannelCapability::Response", "ZYR.TI.CriGetRadioChannelCapability", false, false},
    {"CRI.GetRadioChannelStatus", "CriGetRadioChannelStatus", "CriGetRadioChannelStatus::Response",
     "ZYR.TI.CriGetRadioChannelStatus", false, false},
    {"CRI.SetRFPower", "CriSetRfPower", "StandardResponse", "ZYR.TI.CriSetRfPowerImpl", false, false},
    {"CRI.SetRadioChannelNearEnd", "CriSetRadioChannelNearEnd", "StandardResponse",
     "ZYR.TI.CriSetRadioChannelNearEnd", false, false},
    {"TI.GetAllCommandsData", "TiGetAllCommandsData", "TiGetAllCommandsData::Response",
     "ZYR.TI.TiGetAllCommandsData", false, true},
    {"TI.GetEvents", "TiGetEvents", "TiGetEvents::Response", "ZYR.TI.TiGetEvents", false, true},
    {"TI.ManageRadioChannelStatus", "TiManageRadioChannelStatus", "TiManageRadioChannelStatus::Response",
     "ZYR.TI.TiManageRadioChannelStatus", false, true},
    {"TI.SetEvents", "TiSetEvents", "StandardResponse", "ZYR.TI.TiSetEvents", false, true},
};

// A call with the command's default record that keeps the outcome.
class DefaultCall : public zyr_registration::Exchange
{
  public:
    void fill(void*) const override {}
    void take(const BaseResponse& response, const void*) override { outcome = response; }

    BaseResponse outcome{zyr_top_api::eTI_E_FAILED, "not called"};
};

// What no command is.
struct Stranger
{};

class CommandTableTest : public zyr_test::CommandTest
{
  protected:
    // Dispatches a command with the frame's traces on.
    BaseResponse dispatch(const CommandEntry& command)
    {
        setTraceLevel("*", 6);
        transcript.clear();
        DefaultCall call;
        command.run(nullptr, call);
        return call.outcome;
    }

    // Calls the function for each dispatched command and its row.
    template <class Check>
    static void forEachDispatched(const Check& check)
    {
        for (std::size_t index = 0; index < kRows.size(); ++index) {
            if (!kRows[index].isDirect) {
                SCOPED_TRACE(kRows[index].wireName);
                check(zyr_registration::allCommands()[index], kRows[index]);
            }
        }
    }
};

TEST_F(CommandTableTest, EveryCommandHasItsNames)
{
    const auto commands = zyr_registration::allCommands();
    ASSERT_EQ(commands.size(), kRows.size());
    for (std::size_t index = 0; index < kRows.size(); ++index) {
        const auto& identity = *commands[index].identity;
        EXPECT_EQ(commands[index].name(), kRows[index].wireName);
        EXPECT_EQ(identity.className, kRows[index].className);
        EXPECT_EQ(identity.responseLabel, kRows[index].responseLabel);
        EXPECT_EQ(identity.traceChannel, kRows[index].traceChannel);
        EXPECT_EQ(identity.isGated(), kRows[index].isGated);
        EXPECT_EQ(commands[index].isDirect(), kRows[index].isDirect);
        EXPECT_EQ(commands[index].notes.isTest, kRows[index].isGated || kRows[index].isDirect);
    }
}

TEST_F(CommandTableTest, CommandsAreFoundByTheirExactNames)
{
    EXPECT_EQ(zyr_registration::findCommand("CRI.EnableAcm")->name(), "CRI.EnableAcm");
    EXPECT_EQ(zyr_registration::findCommand("CRI.enableAcm"), nullptr);
    EXPECT_EQ(zyr_registration::findCommand(""), nullptr);
    EXPECT_EQ(zyr_registration::findCommand("ZZ"), nullptr);
}

TEST_F(CommandTableTest, EveryCommandIsDescribed)
{
    for (const CommandEntry& command : zyr_registration::allCommands()) {
        SCOPED_TRACE(command.name());
        EXPECT_TRUE(command.notes.help.ends_with('.'));
        for (const auto fields : {command.notes.request, command.notes.response}) {
            for (const auto& field : fields) {
                EXPECT_FALSE(field.notes.help.empty()) << field.name;
            }
        }
        for (const auto& fault : command.notes.faults) {
            EXPECT_NE(zyr_top_api::etiResultToString(fault.result), "Unknown");
            EXPECT_GT(BaseResponse(fault.result, {}).faultCode, 0);
            EXPECT_FALSE(fault.meaning.empty());
        }
    }
}

TEST_F(CommandTableTest, UnregisteredCommandSucceedsSilently)
{
    forEachDispatched([this](const CommandEntry& command, const Row& row) {
        openTestGate();
        const BaseResponse outcome = dispatch(command);
        EXPECT_EQ(outcome.tiResult, 0U);
        EXPECT_EQ(outcome.faultCode, 0);
        const auto lines = transcript.lines();
        ASSERT_GE(lines.size(), 2U);
        EXPECT_NE(std::ranges::find(lines, "6 ZYR.ZyrTopApi: Running " + row.className + "::Command"),
                  lines.end())
            << transcript.text();
        EXPECT_EQ(lines[lines.size() - 2], "6 ZYR.ZyrTopApi: Return " + row.responseLabel);
        EXPECT_TRUE(lines.back().starts_with("5 ZYR.COMM: " + row.wireName + " Response: ")) << lines.back();
    });
}

TEST_F(CommandTableTest, EntryOfAnotherTypeFailsTheCast)
{
    forEachDispatched([this](const CommandEntry& command, const Row& row) {
        openTestGate();
        ZyrApiHandler::m_cmds = {std::make_shared<zyr_top_api::CmdWrapper<Stranger>>(row.wireName)};
        const BaseResponse outcome = dispatch(command);
        EXPECT_EQ(outcome.tiResult, 0x8000U);
        EXPECT_EQ(outcome.faultCode, 4);
        EXPECT_EQ(outcome.faultString, "Error: Cast of CmdWrapper failed");
        const auto lines = transcript.lines();
        EXPECT_NE(
            std::ranges::find(lines, "1 ZYR.ZyrTopApi: Error: Cast of CmdWrapper failed for " + row.wireName),
            lines.end())
            << transcript.text();
    });
}

TEST_F(CommandTableTest, ClosedGateRefusesTheGatedCommandsAlone)
{
    forEachDispatched([this](const CommandEntry& command, const Row& row) {
        openTestGate(false);
        const BaseResponse outcome = dispatch(command);
        EXPECT_EQ(outcome.tiResult, row.isGated ? 0x8003U : 0U);
        EXPECT_EQ(outcome.faultCode, row.isGated ? 4 : 0);
        EXPECT_EQ(outcome.faultString, row.isGated ? "Error: Command not available" : "");
        EXPECT_EQ(transcript.lines().back() ==
                      "1 ZYR.ZyrTopApi: Error: Command " + row.wireName + " not available",
                  row.isGated);
    });
}

} // namespace
