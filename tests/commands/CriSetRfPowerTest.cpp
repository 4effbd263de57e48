#include "CommandTest.h"
#include "CriSetRfPowerImpl.h"
#include "NodeDoubles.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class CriSetRfPowerTest : public zyr_test::CommandTest
{
  protected:
    CriSetRfPowerTest()
    {
        publishNode(node);
        transcript.clear();
    }

    /// Hides the summary of the request, which the tests of the request hold.
    static void showFailuresOnly() { setTraceLevel("ZYR.TI.CriSetRfPowerImpl", 2); }

    static CriSetRfPower::Command command(std::uint32_t channel)
    {
        CriSetRfPower::Command request;
        request.RadioChannelID = channel;
        request.txRequestedStatus = TxRequestedStatus::On;
        request.targetRfInputPower = -45;
        request.targetRfInputPowerFarEnd = -47;
        request.minRfOutputPower = 3;
        request.maxRfOutputPower = 20;
        request.availableMaxPowerCutback = 5;
        return request;
    }

    static CriSetRfPower::Command commandWithAllOptions(std::uint32_t channel)
    {
        CriSetRfPower::Command request = command(channel);
        request.tapsEnable = true;
        request.hrlbEnabled = true;
        request.atpcFallbackEnable = true;
        request.atpcFallbackOutputPower = -7;
        request.atpcFallbackTimer = 15U;
        return request;
    }

    static CriSetRfPower::Command extremeCommand()
    {
        CriSetRfPower::Command request;
        request.RadioChannelID = 2;
        request.txRequestedStatus = static_cast<TxRequestedStatus>(4294967295U);
        request.targetRfInputPower = std::numeric_limits<std::int32_t>::min();
        request.targetRfInputPowerFarEnd = std::numeric_limits<std::int32_t>::max();
        request.minRfOutputPower = std::numeric_limits<std::int32_t>::min();
        request.maxRfOutputPower = std::numeric_limits<std::int32_t>::max();
        request.availableMaxPowerCutback = 4294967295U;
        request.tapsEnable = false;
        request.hrlbEnabled = false;
        request.atpcFallbackEnable = false;
        request.atpcFallbackOutputPower = std::numeric_limits<std::int32_t>::min();
        request.atpcFallbackTimer = 4294967295U;
        return request;
    }

    zyr_test::NodeDoubles node{transcript};
    CriSetRfPowerImpl impl;
};

TEST_F(CriSetRfPowerTest, AllOptionsReachTheCollaboratorsOfTheChannelInOrder)
{
    enrol<CriSetRfPowerImpl>();
    tell(criSetRfPower(commandWithAllOptions(1)));
    EXPECT_EQ(transcript.text(), R"text(
3 ZYR.TI.CriSetRfPowerImpl: RadioChannelID: 1, txRequestedStatus: On, targetRfInputPower: -45, targetRfInputPowerFarEnd: -47, minRfOutputPower: 3, maxRfOutputPower: 20, availableMaxPowerCutback: 5, tapsEnable: 1, hrlbEnabled: 1, atpcFallbackEnable: 1, atpcFallbackOutputPower: -7, atpcFallbackTimer: 15\n
IDspChannelApi_1.isConfigured()
IOutputPowerCalculator_1.setPowerCutBack(5)
IAcmHandler_1.muteAcm()
ISystemPowerController_1.notifyRequestedPowerSettings(true, -7, 15)
ISystemPowerController_1.configurePowerSettings(1, -47, 3, 20, 0, 1)
ISystemPowerController_1.setAdminRequestedTxPowerState(1, 0)
IAcmHandler_1.restoreAcm()
ITapsController_1.setTapsEnable(true)
ITapsController_1.setHrlbEnabled(true)
result 0x0 0 ""
prints StandardResponse Sent\n
)text");
}

TEST_F(CriSetRfPowerTest, WithoutOptionsOnlyThePowerOfTheChannelChanges)
{
    enrol<CriSetRfPowerImpl>();
    tell(criSetRfPower(command(2)));
    EXPECT_EQ(transcript.text(), R"text(
3 ZYR.TI.CriSetRfPowerImpl: RadioChannelID: 2, txRequestedStatus: On, targetRfInputPower: -45, targetRfInputPowerFarEnd: -47, minRfOutputPower: 3, maxRfOutputPower: 20, availableMaxPowerCutback: 5\n
IDspChannelApi_2.isConfigured()
IOutputPowerCalculator_2.setPowerCutBack(5)
IAcmHandler_2.muteAcm()
ISystemPowerController_2.configurePowerSettings(1, -47, 3, 20, 0, 1)
ISystemPowerController_2.setAdminRequestedTxPowerState(1, 0)
IAcmHandler_2.restoreAcm()
result 0x0 0 ""
prints StandardResponse Sent\n
)text");
}

TEST_F(CriSetRfPowerTest, ExtremeValuesArePassedOnUnchanged)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute(extremeCommand()));
    EXPECT_EQ(transcript.text(), R"text(
3 ZYR.TI.CriSetRfPowerImpl: RadioChannelID: 2, txRequestedStatus: Undefined, targetRfInputPower: -2147483648, targetRfInputPowerFarEnd: 2147483647, minRfOutputPower: -2147483648, maxRfOutputPower: 2147483647, availableMaxPowerCutback: 4294967295, tapsEnable: 0, hrlbEnabled: 0, atpcFallbackEnable: 0, atpcFallbackOutputPower: -2147483648, atpcFallbackTimer: 4294967295\n
IDspChannelApi_2.isConfigured()
IOutputPowerCalculator_2.setPowerCutBack(4294967295)
IAcmHandler_2.muteAcm()
ISystemPowerController_2.notifyRequestedPowerSettings(false, -2147483648, 4294967295)
ISystemPowerController_2.configurePowerSettings(4294967295, 2147483647, -2147483648, 2147483647, 0, 1)
ISystemPowerController_2.setAdminRequestedTxPowerState(4294967295, 0)
IAcmHandler_2.restoreAcm()
ITapsController_2.setTapsEnable(false)
ITapsController_2.setHrlbEnabled(false)
result 0x0 0 ""
prints StandardResponse Sent\n
)text");
}

TEST_F(CriSetRfPowerTest, CommandPrintsItsOptionsOnlyIfTheyHoldValues)
{
    CriSetRfPower::Command request;
    EXPECT_EQ(request.toString(), "RadioChannelID: 1, txRequestedStatus: Off, targetRfInputPower: 0, "
                                  "targetRfInputPowerFarEnd: 0, minRfOutputPower: 0, maxRfOutputPower: 0, "
                                  "availableMaxPowerCutback: 0\n");
    request.hrlbEnabled = true;
    request.atpcFallbackTimer = 9U;
    EXPECT_EQ(request.toString(), "RadioChannelID: 1, txRequestedStatus: Off, targetRfInputPower: 0, "
                                  "targetRfInputPowerFarEnd: 0, minRfOutputPower: 0, maxRfOutputPower: 0, "
                                  "availableMaxPowerCutback: 0, hrlbEnabled: 1, atpcFallbackTimer: 9\n");
    EXPECT_EQ(extremeCommand().toString(),
              "RadioChannelID: 2, txRequestedStatus: Undefined, targetRfInputPower: -2147483648, "
              "targetRfInputPowerFarEnd: 2147483647, minRfOutputPower: -2147483648, maxRfOutputPower: "
              "2147483647, availableMaxPowerCutback: 4294967295, tapsEnable: 0, hrlbEnabled: 0, "
              "atpcFallbackEnable: 0, atpcFallbackOutputPower: -2147483648, atpcFallbackTimer: "
              "4294967295\n");
}

TEST_F(CriSetRfPowerTest, FrameShowsRequestAndResponseAtLevel5AndTheEntryStandsAtLevel6)
{
    enrol<CriSetRfPowerImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriSetRfPowerImpl", 6);
    node.channel1.dspApi.channelApi.onIsConfigured = false;
    CriSetRfPower::Command request = commandWithAllOptions(1);
    request.txRequestedStatus = TxRequestedStatus::Off;
    criSetRfPower(request);
    EXPECT_EQ(transcript.text(), R"text(
5 ZYR.COMM: CRI.SetRFPower Request: RadioChannelID: 1, txRequestedStatus: Off, targetRfInputPower: -45, targetRfInputPowerFarEnd: -47, minRfOutputPower: 3, maxRfOutputPower: 20, availableMaxPowerCutback: 5, tapsEnable: 1, hrlbEnabled: 1, atpcFallbackEnable: 1, atpcFallbackOutputPower: -7, atpcFallbackTimer: 15\n
6 ZYR.TI.CriSetRfPowerImpl: command.channelId=1, command.txRequestedStatus=Off, command.targetRfInputPower=-45, command.targetRfInputPowerFarEnd=-47, command.minRfOutputPower=3, command.maxRfOutputPower=20, command.availableMaxPowerCutback=5
3 ZYR.TI.CriSetRfPowerImpl: RadioChannelID: 1, txRequestedStatus: Off, targetRfInputPower: -45, targetRfInputPowerFarEnd: -47, minRfOutputPower: 3, maxRfOutputPower: 20, availableMaxPowerCutback: 5, tapsEnable: 1, hrlbEnabled: 1, atpcFallbackEnable: 1, atpcFallbackOutputPower: -7, atpcFallbackTimer: 15\n
IDspChannelApi_1.isConfigured()
3 ZYR.TI.CriSetRfPowerImpl: channel 1: SetRfPower with txRequestedStatus Off is ignored, due to that DSP is not configured
5 ZYR.COMM: CRI.SetRFPower Response: StandardResponse Sent\n\n----------------------------------------------------\n
)text");
}

TEST_F(CriSetRfPowerTest, FrameRunsAndReturnsUnderTheClassName)
{
    enrol<CriSetRfPowerImpl>();
    setTraceLevel("*", 6);
    setTraceLevel("ZYR.COMM", 3);
    setTraceLevel("ZYR.TI.CriSetRfPowerImpl", 0);
    criSetRfPower(command(3));
    const std::string text = transcript.text();
    EXPECT_NE(text.find(": Running CriSetRfPower::Command\n"), std::string::npos) << text;
    EXPECT_NE(text.find(": Return StandardResponse\n"), std::string::npos) << text;
}

TEST_F(CriSetRfPowerTest, ChannelAboveTheNumberOfChannelsFailsAndIsNotLogged)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    tell(impl.execute(command(3)));
    tell(impl.execute(command(4294967295U)));
    EXPECT_EQ(transcript.text(), R"text(
result 0x8000 4 "command.channelId > m_numberOfChannels"
prints StandardResponse Sent\n
result 0x8000 4 "command.channelId > m_numberOfChannels"
prints StandardResponse Sent\n
)text");
}

TEST_F(CriSetRfPowerTest, SecondChannelOfANodeWithOneFails)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    showFailuresOnly();
    tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"text(
result 0x8000 4 "command.channelId > m_numberOfChannels"
prints StandardResponse Sent\n
)text");
}

TEST_F(CriSetRfPowerTest, ObjectThatWasNotInitialisedRefusesEveryChannel)
{
    showFailuresOnly();
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"text(
result 0x8000 4 "command.channelId > m_numberOfChannels"
prints StandardResponse Sent\n
)text");
}

TEST_F(CriSetRfPowerTest, Channel0PassesTheBoundCheckAndReachesNoCollaborator)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    EXPECT_EQ(missingIn([&] { impl.execute(command(0)); }), "IDspApi of radio channel 0");
    EXPECT_EQ(transcript.text(), "\n");
}

// A DSP that isn't configured.

TEST_F(CriSetRfPowerTest, OffOnAnUnconfiguredDspSucceedsAndChangesNothing)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel2.dspApi.channelApi.onIsConfigured = false;
    CriSetRfPower::Command request = command(2);
    request.txRequestedStatus = TxRequestedStatus::Off;
    tell(impl.execute(request));
    EXPECT_EQ(transcript.text(), R"text(
3 ZYR.TI.CriSetRfPowerImpl: RadioChannelID: 2, txRequestedStatus: Off, targetRfInputPower: -45, targetRfInputPowerFarEnd: -47, minRfOutputPower: 3, maxRfOutputPower: 20, availableMaxPowerCutback: 5\n
IDspChannelApi_2.isConfigured()
3 ZYR.TI.CriSetRfPowerImpl: channel 2: SetRfPower with txRequestedStatus Off is ignored, due to that DSP is not configured
result 0x0 0 ""
prints StandardResponse Sent\n
)text");
}

TEST_F(CriSetRfPowerTest, OnOnAnUnconfiguredDspIsNotAllowedAndTheStateOfTheDspIsLogged)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetRfPowerImpl", 4);
    node.channel1.dspApi.channelApi.onIsConfigured = false;
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"text(
3 ZYR.TI.CriSetRfPowerImpl: RadioChannelID: 1, txRequestedStatus: On, targetRfInputPower: -45, targetRfInputPowerFarEnd: -47, minRfOutputPower: 3, maxRfOutputPower: 20, availableMaxPowerCutback: 5\n
IDspChannelApi_1.isConfigured()
1 ZYR.TI.CriSetRfPowerImpl: channel 1: DSP needs to be configured before SetRfPower
IDspControlApi_1.isAccessible()
4 ZYR.TI.CriSetRfPowerImpl: DSP is accessible
IDspChannelApi_1.getChannelState()
4 ZYR.TI.CriSetRfPowerImpl: DSP channel state: blocked
result 0x8003 4 "DSP needs to be configured before SetRfPower"
prints StandardResponse Sent\n
)text");
}

TEST_F(CriSetRfPowerTest, InaccessibleDspIsToldWithTwoBlanksAndEachStateByItsText)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.dspApi.channelApi.onIsConfigured = false;
    node.channel1.dspApi.controlApi.onIsAccessible = false;
    setTraceLevel("ZYR.TI.CriSetRfPowerImpl", 4);
    std::string states;
    for (const unsigned state : {0U, 1U, 2U, 3U, 4U, 4294967295U}) {
        node.channel1.dspApi.channelApi.onGetChannelState = state;
        transcript.clear();
        impl.execute(command(1));
        const std::vector<std::string> lines = transcript.lines();
        ASSERT_EQ(lines.size(), 7U) << transcript.text();
        EXPECT_EQ(lines[4], "4 ZYR.TI.CriSetRfPowerImpl: DSP is  not accessible");
        states += lines[6] + "\n";
    }
    EXPECT_EQ(states, R"text(4 ZYR.TI.CriSetRfPowerImpl: DSP channel state: blocked
4 ZYR.TI.CriSetRfPowerImpl: DSP channel state: configured
4 ZYR.TI.CriSetRfPowerImpl: DSP channel state: acm configured
4 ZYR.TI.CriSetRfPowerImpl: DSP channel state: incomplete configuration
4 ZYR.TI.CriSetRfPowerImpl: DSP channel state: invalid
4 ZYR.TI.CriSetRfPowerImpl: DSP channel state: invalid
)text");
}

TEST_F(CriSetRfPowerTest, UnknownStatusOnAnUnconfiguredDspIsTreatedAsOnWhateverTheTraceShows)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    node.channel2.dspApi.channelApi.onIsConfigured = false;
    CriSetRfPower::Command request = command(2);
    request.txRequestedStatus = static_cast<TxRequestedStatus>(2);
    tell(impl.execute(request));
    EXPECT_EQ(transcript.text(), R"text(
IDspChannelApi_2.isConfigured()
1 ZYR.TI.CriSetRfPowerImpl: channel 2: DSP needs to be configured before SetRfPower
IDspControlApi_2.isAccessible()
IDspChannelApi_2.getChannelState()
result 0x8003 4 "DSP needs to be configured before SetRfPower"
prints StandardResponse Sent\n
)text");
}

// Steps that fail.

TEST_F(CriSetRfPowerTest, FailedCutbackEndsTheCommandBeforeAcmIsMuted)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    node.channel1.outputPowerCalculator.onSetPowerCutBack = 0x8000;
    tell(impl.execute(commandWithAllOptions(1)));
    EXPECT_EQ(transcript.text(), R"text(
IDspChannelApi_1.isConfigured()
IOutputPowerCalculator_1.setPowerCutBack(5)
1 ZYR.TI.CriSetRfPowerImpl: Failed to set max power cutback
result 0x8000 4 "SetPowerCutBack failed(ESPCResult = 32768)"
prints StandardResponse Sent\n
)text");
}

TEST_F(CriSetRfPowerTest, FailedMuteLeavesTheCutbackSet)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    node.channel1.acmHandler.onMuteAcm = 0x8002;
    tell(impl.execute(commandWithAllOptions(1)));
    EXPECT_EQ(transcript.text(), R"text(
IDspChannelApi_1.isConfigured()
IOutputPowerCalculator_1.setPowerCutBack(5)
IAcmHandler_1.muteAcm()
1 ZYR.TI.CriSetRfPowerImpl: IAcmHandler->muteAcm() failed (EACMHResult = 32770)
result 0x8000 4 "IAcmHandler->muteAcm() failed (EACMHResult = 32770)"
prints StandardResponse Sent\n
)text");
}

TEST_F(CriSetRfPowerTest, AcmHandlerWithoutABodyOfItsOwnFailsToMute)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    node.channel1.acmHandler.defaultsInForce = true;
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"text(
IDspChannelApi_1.isConfigured()
IOutputPowerCalculator_1.setPowerCutBack(5)
IAcmHandler_1.muteAcm()
1 ZYR.TI.CriSetRfPowerImpl: IAcmHandler->muteAcm() failed (EACMHResult = 32769)
result 0x8000 4 "IAcmHandler->muteAcm() failed (EACMHResult = 32769)"
prints StandardResponse Sent\n
)text");
}

TEST_F(CriSetRfPowerTest, FailedFallbackLeavesAcmMuted)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    node.channel1.systemPowerController.onNotifyRequestedPowerSettings = 0xFFFFFFFFU;
    tell(impl.execute(commandWithAllOptions(1)));
    EXPECT_EQ(transcript.text(), R"text(
IDspChannelApi_1.isConfigured()
IOutputPowerCalculator_1.setPowerCutBack(5)
IAcmHandler_1.muteAcm()
ISystemPowerController_1.notifyRequestedPowerSettings(true, -7, 15)
1 ZYR.TI.CriSetRfPowerImpl: Failed to notify SPC about changes in ATPC fallback settings
result 0x8000 4 "notifyRequestedPowerSettings failed(ESPCResult = 4294967295)"
prints StandardResponse Sent\n
)text");
}

TEST_F(CriSetRfPowerTest, FailedPowerSettingsLeaveAcmMuted)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    node.channel2.systemPowerController.onConfigurePowerSettings = 0x8003;
    tell(impl.execute(commandWithAllOptions(2)));
    EXPECT_EQ(transcript.text(), R"text(
IDspChannelApi_2.isConfigured()
IOutputPowerCalculator_2.setPowerCutBack(5)
IAcmHandler_2.muteAcm()
ISystemPowerController_2.notifyRequestedPowerSettings(true, -7, 15)
ISystemPowerController_2.configurePowerSettings(1, -47, 3, 20, 0, 1)
1 ZYR.TI.CriSetRfPowerImpl: Failed to notify SPC about changes in power settings
result 0x8000 4 "configurePowerSettings failed(ESPCResult = 32771)"
prints StandardResponse Sent\n
)text");
}

TEST_F(CriSetRfPowerTest, FailedTransmitterStateLeavesAcmMuted)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    node.channel1.systemPowerController.onSetAdminRequestedTxPowerState = 0x8004;
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"text(
IDspChannelApi_1.isConfigured()
IOutputPowerCalculator_1.setPowerCutBack(5)
IAcmHandler_1.muteAcm()
ISystemPowerController_1.configurePowerSettings(1, -47, 3, 20, 0, 1)
ISystemPowerController_1.setAdminRequestedTxPowerState(1, 0)
1 ZYR.TI.CriSetRfPowerImpl: Failed to set Tx Admin Power State
result 0x8000 4 "setAdminRequestedTxPowerState failed(ESPCResult = 32772)"
prints StandardResponse Sent\n
)text");
}

TEST_F(CriSetRfPowerTest, FailedRestoreEndsTheCommandBeforeTaps)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    node.channel1.acmHandler.onRestoreAcm = 0x800C;
    tell(impl.execute(commandWithAllOptions(1)));
    EXPECT_EQ(transcript.text(), R"text(
IDspChannelApi_1.isConfigured()
IOutputPowerCalculator_1.setPowerCutBack(5)
IAcmHandler_1.muteAcm()
ISystemPowerController_1.notifyRequestedPowerSettings(true, -7, 15)
ISystemPowerController_1.configurePowerSettings(1, -47, 3, 20, 0, 1)
ISystemPowerController_1.setAdminRequestedTxPowerState(1, 0)
IAcmHandler_1.restoreAcm()
1 ZYR.TI.CriSetRfPowerImpl: IAcmHandler->restoreAcm() failed (EACMHResult = 32780)
result 0x8000 4 "IAcmHandler->restoreAcm() failed (EACMHResult = 32780)"
prints StandardResponse Sent\n
)text");
}

TEST_F(CriSetRfPowerTest, FailedTapsAnswersTheEarlierResultOfTheTransmitterStateAndSkipsHrlb)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    node.channel2.systemPowerController.onSetAdminRequestedTxPowerState = 1;
    node.channel2.tapsController.onSetTapsEnable = 0x8000;
    tell(impl.execute(commandWithAllOptions(2)));
    EXPECT_EQ(transcript.text(), R"text(
IDspChannelApi_2.isConfigured()
IOutputPowerCalculator_2.setPowerCutBack(5)
IAcmHandler_2.muteAcm()
ISystemPowerController_2.notifyRequestedPowerSettings(true, -7, 15)
ISystemPowerController_2.configurePowerSettings(1, -47, 3, 20, 0, 1)
ISystemPowerController_2.setAdminRequestedTxPowerState(1, 0)
IAcmHandler_2.restoreAcm()
ITapsController_2.setTapsEnable(true)
1 ZYR.TI.CriSetRfPowerImpl: Failed to set TAPS enable for channel 2 (ESPCResult = 1)
result 0x8000 4 "Failed to set TAPS enable for channel 2 (ESPCResult = 1)"
prints StandardResponse Sent\n
)text");
}

TEST_F(CriSetRfPowerTest, FailedTapsAfterAPlainSuccessAnswersZero)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.tapsController.onSetTapsEnable = 0x8005;
    EXPECT_EQ(outcome(impl.execute(commandWithAllOptions(1))),
              "result 0x8000 4 \"Failed to set TAPS enable for channel 1 (ESPCResult = 0)\"");
}

TEST_F(CriSetRfPowerTest, FailedHrlbIsIgnored)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.tapsController.onSetHrlbEnabled = 0x8000;
    EXPECT_EQ(outcome(impl.execute(commandWithAllOptions(1))), "result 0x0 0 \"\"");
    EXPECT_EQ(transcript.lines().back(), "ITapsController_1.setHrlbEnabled(true)");
}

TEST_F(CriSetRfPowerTest, GreatestSuccessOfEveryStepComesOutAsPlainSuccess)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.outputPowerCalculator.onSetPowerCutBack = 0x7FFF;
    node.channel1.acmHandler.onMuteAcm = 0x7FFF;
    node.channel1.systemPowerController.onNotifyRequestedPowerSettings = 0x7FFF;
    node.channel1.systemPowerController.onConfigurePowerSettings = 0x7FFF;
    node.channel1.systemPowerController.onSetAdminRequestedTxPowerState = 0x7FFF;
    node.channel1.acmHandler.onRestoreAcm = 0x7FFF;
    node.channel1.tapsController.onSetTapsEnable = 0x7FFF;
    EXPECT_EQ(outcome(impl.execute(commandWithAllOptions(1))), "result 0x0 0 \"\"");
    EXPECT_EQ(transcript.lines().back(), "ITapsController_1.setHrlbEnabled(true)");
}

// Options.

TEST_F(CriSetRfPowerTest, WindowWithoutWidthSwitchesTheFallbackOff)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    CriSetRfPower::Command request = commandWithAllOptions(1);
    request.minRfOutputPower = 20;
    impl.execute(request);
    EXPECT_EQ(transcript.lines().at(3),
              "ISystemPowerController_1.notifyRequestedPowerSettings(false, -7, 15)");
    EXPECT_EQ(transcript.lines().at(4),
              "ISystemPowerController_1.configurePowerSettings(1, -47, 20, 20, 0, 1)");
}

TEST_F(CriSetRfPowerTest, FallbackThatIsRequestedOffStaysOffInAnyWindow)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    CriSetRfPower::Command request = commandWithAllOptions(1);
    request.atpcFallbackEnable = false;
    for (const int min : {3, 20, 21}) {
        request.minRfOutputPower = min;
        transcript.clear();
        impl.execute(request);
        EXPECT_EQ(transcript.lines().at(3),
                  "ISystemPowerController_1.notifyRequestedPowerSettings(false, -7, 15)");
    }
}

TEST_F(CriSetRfPowerTest, WindowUpsideDownLeavesTheFallbackOn)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    CriSetRfPower::Command request = commandWithAllOptions(1);
    request.minRfOutputPower = 21;
    impl.execute(request);
    EXPECT_EQ(transcript.lines().at(3),
              "ISystemPowerController_1.notifyRequestedPowerSettings(true, -7, 15)");
}

TEST_F(CriSetRfPowerTest, FallbackWithAnyOfItsOptionsMissingIsLeftOutWithoutAComplaint)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    CriSetRfPower::Command requests[] = {commandWithAllOptions(1), commandWithAllOptions(1),
                                         commandWithAllOptions(1)};
    requests[0].atpcFallbackEnable.reset();
    requests[1].atpcFallbackOutputPower.reset();
    requests[2].atpcFallbackTimer.reset();
    for (const CriSetRfPower::Command& request : requests) {
        transcript.clear();
        tell(impl.execute(request));
        EXPECT_EQ(transcript.text(), R"text(
IDspChannelApi_1.isConfigured()
IOutputPowerCalculator_1.setPowerCutBack(5)
IAcmHandler_1.muteAcm()
ISystemPowerController_1.configurePowerSettings(1, -47, 3, 20, 0, 1)
ISystemPowerController_1.setAdminRequestedTxPowerState(1, 0)
IAcmHandler_1.restoreAcm()
ITapsController_1.setTapsEnable(true)
ITapsController_1.setHrlbEnabled(true)
result 0x0 0 ""
prints StandardResponse Sent\n
)text");
    }
}

TEST_F(CriSetRfPowerTest, TapsAndHrlbAreSetIndependently)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    CriSetRfPower::Command tapsAlone = command(1);
    tapsAlone.tapsEnable = false;
    CriSetRfPower::Command hrlbAlone = command(1);
    hrlbAlone.hrlbEnabled = false;
    impl.execute(tapsAlone);
    impl.execute(hrlbAlone);
    EXPECT_EQ(transcript.text(), R"text(
IDspChannelApi_1.isConfigured()
IOutputPowerCalculator_1.setPowerCutBack(5)
IAcmHandler_1.muteAcm()
ISystemPowerController_1.configurePowerSettings(1, -47, 3, 20, 0, 1)
ISystemPowerController_1.setAdminRequestedTxPowerState(1, 0)
IAcmHandler_1.restoreAcm()
ITapsController_1.setTapsEnable(false)
IDspChannelApi_1.isConfigured()
IOutputPowerCalculator_1.setPowerCutBack(5)
IAcmHandler_1.muteAcm()
ISystemPowerController_1.configurePowerSettings(1, -47, 3, 20, 0, 1)
ISystemPowerController_1.setAdminRequestedTxPowerState(1, 0)
IAcmHandler_1.restoreAcm()
ITapsController_1.setHrlbEnabled(false)
)text");
}

TEST_F(CriSetRfPowerTest, NothingIsKeptBetweenCalls)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    node.channel1.systemPowerController.onConfigurePowerSettings.inTurn({0x8000, eSPC_S_OK});
    EXPECT_EQ(impl.execute(command(1)).tiResult, 0x8000);
    EXPECT_EQ(impl.execute(command(1)).tiResult, 0);
}

// initialize

TEST_F(CriSetRfPowerTest, InitialiseTellsTheCountAtLevel6)
{
    setTraceLevel("ZYR.TI.CriSetRfPowerImpl", 7);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"text(
6 ZYR.TI.CriSetRfPowerImpl: numberOfChannels=2
)text");
}

TEST_F(CriSetRfPowerTest, InitialiseRefusesAnyOtherCountAndStoresNothing)
{
    EXPECT_EQ(impl.initialize(0), 0x8000);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(impl.initialize(4294967295U), 0x8000);
    EXPECT_EQ(transcript.text(), R"text(
1 ZYR.TI.CriSetRfPowerImpl: numberOfChannels is out of bounds
1 ZYR.TI.CriSetRfPowerImpl: numberOfChannels is out of bounds
1 ZYR.TI.CriSetRfPowerImpl: numberOfChannels is out of bounds
)text");
    EXPECT_EQ(impl.initialize(2), 0);
}

TEST_F(CriSetRfPowerTest, SecondInitialiseIsRefusedAndTheRangeIsTestedFirst)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    showFailuresOnly();
    tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"text(
1 ZYR.TI.CriSetRfPowerImpl: CriSetRfPowerImpl already initialized
1 ZYR.TI.CriSetRfPowerImpl: numberOfChannels is out of bounds
result 0x8000 4 "command.channelId > m_numberOfChannels"
prints StandardResponse Sent\n
)text");
}

// Explicit instantiation may name a private member; no way through `initialize` leaves this one empty.
template <auto Member>
struct Access
{
    friend auto& tapsControllerOf(CriSetRfPowerImpl& impl) { return impl.*Member; }
};
template struct Access<&CriSetRfPowerImpl::m_tapsController>;
auto& tapsControllerOf(CriSetRfPowerImpl& impl);

TEST_F(CriSetRfPowerTest, ChannelWithoutTapsSucceedsThoughBothOptionsAreAskedFor)
{
    ASSERT_EQ(impl.initialize(2), 0);
    tapsControllerOf(impl) = {};
    transcript.clear();
    setTraceLevel("*", 7);
    CriSetRfPower::Command request = command(1);
    request.tapsEnable = true;
    request.hrlbEnabled = true;
    EXPECT_EQ(outcome(impl.execute(request)), "result 0x0 0 \"\"");
    EXPECT_EQ(transcript.text().find("Taps"), std::string::npos) << transcript.text();
    EXPECT_EQ(transcript.lines().back(), "IAcmHandler_1.restoreAcm()");
}

TEST_F(CriSetRfPowerTest, ChannelWithoutTapsSucceedsThoughHrlbAloneIsAskedFor)
{
    ASSERT_EQ(impl.initialize(2), 0);
    tapsControllerOf(impl) = {};
    showFailuresOnly();
    CriSetRfPower::Command request = command(1);
    request.hrlbEnabled = true;
    EXPECT_EQ(outcome(impl.execute(request)), "result 0x0 0 \"\"");
    EXPECT_EQ(transcript.text(), R"text(
IDspChannelApi_1.isConfigured()
IOutputPowerCalculator_1.setPowerCutBack(5)
IAcmHandler_1.muteAcm()
ISystemPowerController_1.configurePowerSettings(1, -47, 3, 20, 0, 1)
ISystemPowerController_1.setAdminRequestedTxPowerState(1, 0)
IAcmHandler_1.restoreAcm()
)text");
}

TEST_F(CriSetRfPowerTest, InitialiseTellsTheFirstMissingInterfaceOfAChannelAndCanBeRepeated)
{
    for (const char* name : {"IAcmHandler_1", "ITapsController_1", "IDspApi_1", "IOutputPowerCalculator_1",
                             "ISystemPowerController_1"}) {
        withdraw(name);
        EXPECT_EQ(impl.initialize(1), 0x8000) << name;
    }
    EXPECT_EQ(transcript.text(), R"text(
1 ZYR.TI.CriSetRfPowerImpl:  Error getting interface to IAcmHandler_1
1 ZYR.TI.CriSetRfPowerImpl:  Error getting interface to ITapsController_1
1 ZYR.TI.CriSetRfPowerImpl: Could not find the DSP API interface
1 ZYR.TI.CriSetRfPowerImpl: Could not find the Output Power Calculator interface
1 ZYR.TI.CriSetRfPowerImpl: Could not find the System Power Controller interface
)text");
}

TEST_F(CriSetRfPowerTest, InitialiseTakesAllInterfacesOfAChannelBeforeTheNextChannel)
{
    withdraw("ISystemPowerController_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    withdraw("IAcmHandler_1");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"text(
1 ZYR.TI.CriSetRfPowerImpl: Could not find the System Power Controller interface
1 ZYR.TI.CriSetRfPowerImpl:  Error getting interface to IAcmHandler_1
)text");
}

TEST_F(CriSetRfPowerTest, InitialiseNamesTheMissingInterfaceOfChannel2)
{
    for (const char* name : {"IAcmHandler_2", "ITapsController_2", "IDspApi_2", "IOutputPowerCalculator_2",
                             "ISystemPowerController_2"}) {
        withdraw(name);
        EXPECT_EQ(impl.initialize(2), 0x8000) << name;
    }
    EXPECT_EQ(transcript.text(), R"text(
1 ZYR.TI.CriSetRfPowerImpl:  Error getting interface to IAcmHandler_2
1 ZYR.TI.CriSetRfPowerImpl:  Error getting interface to ITapsController_2
1 ZYR.TI.CriSetRfPowerImpl: Could not find the DSP API interface
1 ZYR.TI.CriSetRfPowerImpl: Could not find the Output Power Calculator interface
1 ZYR.TI.CriSetRfPowerImpl: Could not find the System Power Controller interface
)text");
}

TEST_F(CriSetRfPowerTest, InterfaceOfAnotherTypeUnderTheNameIsMissing)
{
    withdraw("IDspApi_1");
    publish("IDspApi_1", node.channel1.rssiHandler);
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(transcript.text(), R"text(
1 ZYR.TI.CriSetRfPowerImpl: Could not find the DSP API interface
)text");
}

TEST_F(CriSetRfPowerTest, FailedInitialiseRefusesCommandsAndCanRunAgain)
{
    withdraw("IAcmHandler_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(outcome(impl.execute(command(1))),
              "result 0x8000 4 \"command.channelId > m_numberOfChannels\"");
    publish(node.channel2.acmHandler);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(outcome(impl.execute(command(2))), "result 0x0 0 \"\"");
}

TEST_F(CriSetRfPowerTest, InitialiseOfOneChannelNeedsNothingOfTheSecond)
{
    for (const char* name : {"IAcmHandler_2", "ITapsController_2", "IDspApi_2", "IOutputPowerCalculator_2",
                             "ISystemPowerController_2"}) {
        withdraw(name);
    }
    EXPECT_EQ(impl.initialize(1), 0);
    EXPECT_EQ(transcript.text(), "\n");
}

} // namespace
} // namespace zyr_top_api
