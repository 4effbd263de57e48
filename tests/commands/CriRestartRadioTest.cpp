#include "CommandTest.h"
#include "CriRestartRadioImpl.h"
#include "NodeDoubles.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace zyr_top_api
{
namespace
{

class CriRestartRadioTest : public zyr_test::CommandTest
{
  protected:
    CriRestartRadioTest()
    {
        publishNode(node);
        transcript.clear();
    }

    using Action = CriRestartRadio::Action;

    static CriRestartRadio::Command command(std::uint32_t channel, Action action)
    {
        return {.RadioChannelID = channel, .Action = action};
    }

    zyr_test::NodeDoubles node{transcript};
    CriRestartRadioImpl impl;
};

TEST_F(CriRestartRadioTest, TriggerPreparesThePowerControllerAndRestartsTheRadioOfTheChannel)
{
    enrol<CriRestartRadioImpl>();
    node.channel1.radio.onGetRestartStatus = RadioRestartStatus::RestartFailed;
    node.channel2.radio.onGetRestartStatus = RadioRestartStatus::Restarting;
    setTraceLevel("ZYR.CriRestartRadioImpl", 7);
    const auto response = tell(criRestartRadio(command(2, Action::TriggerRestart)));
    EXPECT_EQ(response.Status, RadioRestartStatus::Restarting);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.CriRestartRadioImpl: command.channelId=2
3 ZYR.CriRestartRadioImpl: RadioChannelID: 2, Action: TriggerRestart\n
IRadio_2.isAvailable()
ISystemPowerController_2.prepareRadioRestart()
IRadio_2.triggerRestart(0)
IRadio_2.getRestartStatus()
3 ZYR.CriRestartRadioImpl: CriRestartRadioImpl trigger RAU COLD restart, status: Restarting
result 0x0 0 ""
prints Status: Restarting\n
)x");
}

TEST_F(CriRestartRadioTest, RequestAndStatusAreTraced)
{
    enrol<CriRestartRadioImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.CriRestartRadioImpl", 7);
    node.channel1.radio.onGetRestartStatus = RadioRestartStatus::RestartSuccessful;
    criRestartRadio(command(1, Action::GetStatus));
    EXPECT_EQ(transcript.text(), R"x(
5 ZYR.COMM: CRI.RestartRadio Request: RadioChannelID: 1, Action: GetStatus\n
6 ZYR.CriRestartRadioImpl: command.channelId=1
3 ZYR.CriRestartRadioImpl: RadioChannelID: 1, Action: GetStatus\n
IRadio_1.getRestartStatus()
5 ZYR.CriRestartRadioImpl: CriRestartRadioImpl restart status:RestartSuccessful
5 ZYR.COMM: CRI.RestartRadio Response: Status: RestartSuccessful\n\n----------------------------------------------------\n
)x");
}

TEST_F(CriRestartRadioTest, EndIsTracedBeforeTheRadioEndsAndTellsTheStatusBehind)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.CriRestartRadioImpl", 7);
    transcript.clear();
    node.channel2.radio.onGetRestartStatus = RadioRestartStatus::Idle;
    tell(impl.execute(command(2, Action::EndRestart)));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.CriRestartRadioImpl: command.channelId=2
3 ZYR.CriRestartRadioImpl: RadioChannelID: 2, Action: EndRestart\n
5 ZYR.CriRestartRadioImpl: CriRestartRadioImpl EndRestart
IRadio_2.endRestart()
IRadio_2.getRestartStatus()
result 0x0 0 ""
prints Status: Idle\n
)x");
}

TEST_F(CriRestartRadioTest, EveryStatusPrintsItsName)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    const std::pair<unsigned, std::string> rows[] = {
        {0, "Status: Invalid\n"},           {1, "Status: Idle\n"},          {2, "Status: Restarting\n"},
        {3, "Status: RestartSuccessful\n"}, {4, "Status: RestartFailed\n"}, {5, "Status: Invalid\n"},
        {4294967295U, "Status: Invalid\n"}};
    for (const auto& [number, text] : rows) {
        node.channel1.radio.onGetRestartStatus = static_cast<RadioRestartStatus>(number);
        for (const Action action : {Action::TriggerRestart, Action::GetStatus, Action::EndRestart}) {
            const auto response = impl.execute(command(1, action));
            EXPECT_EQ(static_cast<unsigned>(response.Status), number);
            EXPECT_EQ(response.printResponse(), text);
        }
    }
}

TEST_F(CriRestartRadioTest, TriggerOnARadioThatIsDownCallsNothingElse)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.radio.onIsAvailable = false;
    node.channel1.radio.onGetRestartStatus = RadioRestartStatus::Idle;
    setTraceLevel("ZYR.CriRestartRadioImpl", 7);
    const auto response = tell(impl.execute(command(1, Action::TriggerRestart)));
    EXPECT_EQ(static_cast<unsigned>(response.Status), 0U);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.CriRestartRadioImpl: command.channelId=1
3 ZYR.CriRestartRadioImpl: RadioChannelID: 1, Action: TriggerRestart\n
IRadio_1.isAvailable()
1 ZYR.CriRestartRadioImpl: channel 1: Radio is DOWN
result 0x8000 4 "channel 1: Radio is DOWN"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: channel 1: Radio is DOWN
)x");
}

TEST_F(CriRestartRadioTest, StatusAndEndWorkOnARadioThatIsDownWithoutAskingIt)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel2.radio.onIsAvailable = false;
    node.channel2.radio.onGetRestartStatus.inTurn(
        {RadioRestartStatus::RestartFailed, RadioRestartStatus::Idle});
    tell(impl.execute(command(2, Action::GetStatus)));
    tell(impl.execute(command(2, Action::EndRestart)));
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.CriRestartRadioImpl: RadioChannelID: 2, Action: GetStatus\n
IRadio_2.getRestartStatus()
result 0x0 0 ""
prints Status: RestartFailed\n
3 ZYR.CriRestartRadioImpl: RadioChannelID: 2, Action: EndRestart\n
IRadio_2.endRestart()
IRadio_2.getRestartStatus()
result 0x0 0 ""
prints Status: Idle\n
)x");
}

TEST_F(CriRestartRadioTest, FailuresOfTheCollaboratorsAreIgnored)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    node.channel1.systemPowerController.onPrepareRadioRestart = 0x8000;
    node.channel1.radio.onTriggerRestart = 0x8000;
    node.channel1.radio.onEndRestart = 0xFFFFFFFFU;
    node.channel1.radio.onGetRestartStatus.inTurn({RadioRestartStatus::Restarting, RadioRestartStatus::Idle});
    tell(impl.execute(command(1, Action::TriggerRestart)));
    tell(impl.execute(command(1, Action::EndRestart)));
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.CriRestartRadioImpl: RadioChannelID: 1, Action: TriggerRestart\n
IRadio_1.isAvailable()
ISystemPowerController_1.prepareRadioRestart()
IRadio_1.triggerRestart(0)
IRadio_1.getRestartStatus()
3 ZYR.CriRestartRadioImpl: CriRestartRadioImpl trigger RAU COLD restart, status: Restarting
result 0x0 0 ""
prints Status: Restarting\n
3 ZYR.CriRestartRadioImpl: RadioChannelID: 1, Action: EndRestart\n
IRadio_1.endRestart()
IRadio_1.getRestartStatus()
result 0x0 0 ""
prints Status: Idle\n
)x");
}

TEST_F(CriRestartRadioTest, UnknownActionAsksNobodyOnAnyChannel)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.CriRestartRadioImpl", 7);
    tell(impl.execute(command(1, Action{})));
    tell(impl.execute(command(2, static_cast<Action>(4))));
    tell(impl.execute(command(0, static_cast<Action>(4294967295U))));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.CriRestartRadioImpl: command.channelId=1
3 ZYR.CriRestartRadioImpl: RadioChannelID: 1, Action: Invalid\n
1 ZYR.CriRestartRadioImpl: channel 1: Unknown action
result 0x8000 4 "channel 1: Unknown action"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: channel 1: Unknown action
6 ZYR.CriRestartRadioImpl: command.channelId=2
3 ZYR.CriRestartRadioImpl: RadioChannelID: 2, Action: Invalid\n
1 ZYR.CriRestartRadioImpl: channel 2: Unknown action
result 0x8000 4 "channel 2: Unknown action"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: channel 2: Unknown action
6 ZYR.CriRestartRadioImpl: command.channelId=0
3 ZYR.CriRestartRadioImpl: RadioChannelID: 0, Action: Invalid\n
1 ZYR.CriRestartRadioImpl: channel 0: Unknown action
result 0x8000 4 "channel 0: Unknown action"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: channel 0: Unknown action
)x");
}

TEST_F(CriRestartRadioTest, ChannelAboveTheCountIsRefusedBeforeTheActionIsJudged)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.CriRestartRadioImpl", 7);
    tell(impl.execute(command(2, Action{})));
    tell(impl.execute(command(1, Action::GetStatus)));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.CriRestartRadioImpl: command.channelId=2
3 ZYR.CriRestartRadioImpl: RadioChannelID: 2, Action: Invalid\n
result 0xA100 2 "command.channelId > m_numberOfChannels"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: command.channelId > m_numberOfChannels
6 ZYR.CriRestartRadioImpl: command.channelId=1
3 ZYR.CriRestartRadioImpl: RadioChannelID: 1, Action: GetStatus\n
IRadio_1.getRestartStatus()
5 ZYR.CriRestartRadioImpl: CriRestartRadioImpl restart status:Invalid
result 0x0 0 ""
prints Status: Invalid\n
)x");
}

TEST_F(CriRestartRadioTest, Channel0ReachesNoRadio)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.CriRestartRadioImpl", 2);
    for (const Action action : {Action::TriggerRestart, Action::GetStatus, Action::EndRestart}) {
        EXPECT_EQ(missingIn([&] { impl.execute(command(0, action)); }), "IRadio of radio channel 0");
    }
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(CriRestartRadioTest, ObjectThatWasNotInitialisedRefusesEveryChannel)
{
    EXPECT_EQ(outcome(impl.execute(command(1, Action::GetStatus))),
              "result 0xA100 2 \"command.channelId > m_numberOfChannels\"");
}

// initialize

TEST_F(CriRestartRadioTest, InitialiseTellsTheCountAtLevel6AndRefusesAnyOther)
{
    setTraceLevel("ZYR.CriRestartRadioImpl", 7);
    EXPECT_EQ(impl.initialize(0), 0x8000);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.CriRestartRadioImpl: numberOfChannels=0
1 ZYR.CriRestartRadioImpl: numberOfChannels is out of bounds
6 ZYR.CriRestartRadioImpl: numberOfChannels=3
1 ZYR.CriRestartRadioImpl: numberOfChannels is out of bounds
6 ZYR.CriRestartRadioImpl: numberOfChannels=2
)x");
}

TEST_F(CriRestartRadioTest, SecondInitialiseIsRefusedBehindTheRange)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.CriRestartRadioImpl: CriRestartRadioImpl already initialized
1 ZYR.CriRestartRadioImpl: numberOfChannels is out of bounds
)x");
}

TEST_F(CriRestartRadioTest, InitialiseTellsTheMissingInterfacesInOrderAndCanBeRepeated)
{
    for (const char* name :
         {"ISystemPowerController_2", "IRadio_2", "ISystemPowerController_1", "IRadio_1"}) {
        withdraw(name);
        EXPECT_EQ(impl.initialize(2), 0x8000) << name;
    }
    EXPECT_EQ(outcome(impl.execute(command(1, Action::GetStatus))),
              "result 0xA100 2 \"command.channelId > m_numberOfChannels\"");
    publish(node.channel1.radio);
    publish(node.channel2.radio);
    publish(node.channel1.systemPowerController);
    publish(node.channel2.systemPowerController);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.CriRestartRadioImpl:  Failed to get System Power Controller interface ISystemPowerController_2
1 ZYR.CriRestartRadioImpl: Could not find the RauHandler interface IRadio_2
1 ZYR.CriRestartRadioImpl:  Failed to get System Power Controller interface ISystemPowerController_1
1 ZYR.CriRestartRadioImpl: Could not find the RauHandler interface IRadio_1
3 ZYR.CriRestartRadioImpl: RadioChannelID: 1, Action: GetStatus\n
)x");
}

} // namespace
} // namespace zyr_top_api
