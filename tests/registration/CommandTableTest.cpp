#include "CommandEntry.h"
#include "CommandList.h"
#include "CommandRows.h"
#include "CommandTest.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using zyr_registration::CommandEntry;
using zyr_top_api::BaseResponse;
using zyr_top_api::ZyrApiHandler;

using zyr_test::CommandRow;
using zyr_top_api::Route;

// The row of a command; null if it has none.
const CommandRow* rowOf(const CommandEntry& command)
{
    const auto* const row = std::ranges::find(zyr_test::kCommandRows, command.name(), &CommandRow::wireName);
    return row != zyr_test::kCommandRows.end() ? row : nullptr;
}

// A call with the command's default record that keeps the outcome.
class DefaultCall : public zyr_registration::Exchange
{
  public:
    void fill(void*) const override {}
    void take(const BaseResponse& response, const void*) override
    {
        outcome = response;
        printed = response.printResponse();
    }

    BaseResponse outcome{zyr_top_api::eTI_E_FAILED, "not called"};
    std::string printed; // the response as it prints itself
};

// What no command is.
struct Stranger
{};

// A response prints the same by both of its ways, faultless and failed.
template <class Response>
void expectOnePrint()
{
    Response response;
    EXPECT_EQ(response.printResponse(), zyr_top_api::printed(response));
    setResult(response, zyr_top_api::eTI_E_FAILED, "why");
    EXPECT_EQ(response.printResponse(), zyr_top_api::printed(response));
}

template <class... XImpl>
void expectOnePrintOfEach(zyr_registration::TypeList<XImpl...>)
{
    (expectOnePrint<typename XImpl::Response>(), ...);
}

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
        printed = call.printed;
        return call.outcome;
    }

    // The line in which the frame shows the response of the last dispatch, if it prints it as the response
    // prints itself.
    std::string responseLine(const CommandRow& row) const
    {
        return zyr_test::escaped(std::string("5 ZYR.COMM: ") + row.wireName + " Response: " + printed +
                                 "\n----------------------------------------------------\n");
    }

    // Calls the function for each dispatched command and its row.
    template <class Check>
    static void forEachDispatched(const Check& check)
    {
        for (const CommandEntry& command : zyr_registration::allCommands()) {
            if (!command.isDirect()) {
                SCOPED_TRACE(command.name());
                check(command, *rowOf(command));
            }
        }
    }

    std::string printed; // by the response of the last dispatch
};

TEST_F(CommandTableTest, EveryCommandHasItsNames)
{
    for (const CommandEntry& command : zyr_registration::allCommands()) {
        SCOPED_TRACE(command.name());
        const CommandRow* const row = rowOf(command);
        ASSERT_NE(row, nullptr);
        const auto& identity = *command.identity;
        EXPECT_EQ(identity.className, row->className);
        EXPECT_EQ(identity.responseLabel, row->responseLabel);
        EXPECT_STREQ(identity.traceChannel, row->traceChannel);
        EXPECT_EQ(identity.route, row->route);
        const bool isTest = row->route == Route::Gated || row->route == Route::Direct;
        EXPECT_EQ(command.notes.isTest, isTest);
    }
}

TEST_F(CommandTableTest, CommandsAreFoundByTheirExactNames)
{
    EXPECT_EQ(zyr_registration::findCommand("CRI.EnableAcm")->name(), "CRI.EnableAcm");
    EXPECT_EQ(zyr_registration::findCommand("CRI.enableAcm"), nullptr);
    EXPECT_EQ(zyr_registration::findCommand(""), nullptr);
    EXPECT_EQ(zyr_registration::findCommand("ZZ"), nullptr);
}

TEST_F(CommandTableTest, EveryTraceChannelStartsAtLevel3)
{
    std::vector<std::string> names{"ZYR.COMM", "ZYR.ZyrTopApi"};
    for (const CommandEntry& command : zyr_registration::allCommands()) {
        names.emplace_back(command.identity->traceChannel);
        const zyr_registration::LiveCommand live = command.create();
        command.initialize(live.implementation.get(), 2);
        DefaultCall call;
        try {
            command.run(live.implementation.get(), call);
        } catch (const std::out_of_range&) { // its collaborators are missing
        }
    }
    const auto channels = zyr_platform::TraceService::get().channels();
    for (const std::string& name : names) {
        const auto channel = std::ranges::find(channels, name, &zyr_platform::TraceService::Channel::name);
        ASSERT_NE(channel, channels.end()) << name;
        EXPECT_EQ(channel->defaultLevel, 3) << name;
        EXPECT_EQ(channel->level, 3) << name;
    }
}

TEST_F(CommandTableTest, EveryCommandIsDescribed)
{
    for (const CommandEntry& command : zyr_registration::allCommands()) {
        SCOPED_TRACE(command.name());
        EXPECT_TRUE(command.notes.help.ends_with('.'));
        for (const auto& fault : command.notes.faults) {
            EXPECT_NE(zyr_top_api::etiResultToString(fault.result), "Unknown");
            EXPECT_GT(BaseResponse(fault.result, {}).faultCode, 0);
            EXPECT_FALSE(fault.meaning.empty());
        }
    }
}

TEST_F(CommandTableTest, UnregisteredCommandSucceedsSilently)
{
    forEachDispatched([this](const CommandEntry& command, const CommandRow& row) {
        openTestGate();
        const BaseResponse outcome = dispatch(command);
        EXPECT_EQ(outcome.tiResult, 0U);
        EXPECT_EQ(outcome.faultCode, 0);
        const auto lines = transcript.lines();
        ASSERT_GE(lines.size(), 2U);
        EXPECT_NE(
            std::ranges::find(lines, std::string("6 ZYR.ZyrTopApi: Running ") + row.className + "::Command"),
            lines.end())
            << transcript.text();
        EXPECT_EQ(lines[lines.size() - 2], std::string("6 ZYR.ZyrTopApi: Return ") + row.responseLabel);
        EXPECT_EQ(lines.back(), responseLine(row));
    });
}

TEST_F(CommandTableTest, EntryOfAnotherTypeFailsTheCast)
{
    forEachDispatched([this](const CommandEntry& command, const CommandRow& row) {
        openTestGate();
        ZyrApiHandler::m_cmds = {std::make_shared<zyr_top_api::CmdWrapper<Stranger>>(row.wireName)};
        const BaseResponse outcome = dispatch(command);
        EXPECT_EQ(outcome.tiResult, 0x8000U);
        EXPECT_EQ(outcome.faultCode, 4);
        EXPECT_EQ(outcome.faultString, "Error: Cast of CmdWrapper failed");
        const auto lines = transcript.lines();
        EXPECT_NE(
            std::ranges::find(lines, std::string("1 ZYR.ZyrTopApi: Error: Cast of CmdWrapper failed for ") +
                                         row.wireName),
            lines.end())
            << transcript.text();
        EXPECT_EQ(lines.back(), responseLine(row));
    });
}

TEST_F(CommandTableTest, EveryResponsePrintsItselfInOneWay)
{
    expectOnePrintOfEach(zyr_registration::CommandList());
}

TEST_F(CommandTableTest, ClosedGateRefusesTheGatedCommandsAlone)
{
    forEachDispatched([this](const CommandEntry& command, const CommandRow& row) {
        openTestGate(false);
        const BaseResponse outcome = dispatch(command);
        EXPECT_EQ(outcome.tiResult, (row.route == Route::Gated) ? 0x8003U : 0U);
        EXPECT_EQ(outcome.faultCode, (row.route == Route::Gated) ? 4 : 0);
        EXPECT_EQ(outcome.faultString, (row.route == Route::Gated) ? "Error: Command not available" : "");
        EXPECT_EQ(transcript.lines().back() ==
                      std::string("1 ZYR.ZyrTopApi: Error: Command ") + row.wireName + " not available",
                  (row.route == Route::Gated));
    });
}

} // namespace
