// "CRI.SetRadioChannelNearEnd" and the transmitter: forced off, waited for, given back.

#include "CriSetRadioChannelNearEndFixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

namespace zyr_top_api
{
namespace
{

using std::chrono::milliseconds;
using std::chrono::nanoseconds;
using zyr_test::failedWith;
using zyr_test::kSuccess;

constexpr const char* kTimeoutText = "TX OFF didn't happen during timeout:15000 ms";

class NearEndTransmitterTest : public zyr_test::NearEndTest
{
  protected:
    NearEndTransmitterTest() { setTraceLevel(kChannel, 4); }

    // The transmitter's own lines: its questions, its calls, its sleeps and its trace.
    std::string transmitterLines() const
    {
        return linesWith({"isCarrierAggregationActive", "isAvailable", "overrideTxPowerState", "getTxStatus",
                          "sleep", "ransmitter", "Tx OFF", "TX off"});
    }

    // Lets the status of channel 1 read off from the given poll on, counted from 1.
    void turnOffAtPoll(unsigned poll)
    {
        std::vector<zyr_test::Answer<ETxPowerActualStatus>::Reply> replies(poll - 1,
                                                                           ETxPowerActualStatus::On);
        replies.emplace_back(ETxPowerActualStatus::Off);
        node.channel1.outputPowerController.onGetTxStatus.inTurn(replies);
    }

    // Lets the first poll itself take so long; from the second on the status reads off.
    void letFirstPollTake(nanoseconds duration)
    {
        node.channel1.outputPowerController.onGetTxStatus.doInstead([this, duration] {
            if (++polls > 1) {
                return ETxPowerActualStatus::Off;
            }
            time.advance(duration);
            return ETxPowerActualStatus::On;
        });
    }

    unsigned polls = 0;
};

// --- the usual way

TEST_F(NearEndTransmitterTest, IsForcedOffAndGivenBackWithoutASleepWhenTheStatusReadsOffAtOnce)
{
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(transmitterLines(), R"(
IRadio_1.isAvailable()
IDspControlApi_1.isCarrierAggregationActive()
IRadio_1.isAvailable()
4 ZYR.TI.CriSetRadioChannelNearEnd: Initiating Tx OFF
ISystemPowerController_1.overrideTxPowerState(0)
4 ZYR.TI.CriSetRadioChannelNearEnd: Start waiting for TX off
IOutputPowerController_1.getTxStatus()
4 ZYR.TI.CriSetRadioChannelNearEnd: Done waiting for TX off
IRadio_1.isAvailable()
IDspControlApi_1.isCarrierAggregationActive()
IRadio_1.isAvailable()
4 ZYR.TI.CriSetRadioChannelNearEnd: Return transmitter of CH1 to requested state
ISystemPowerController_1.overrideTxPowerState(1)
)");
    EXPECT_TRUE(time.sleeps().empty());
}

TEST_F(NearEndTransmitterTest, StandbyIsntOff)
{
    node.channel1.outputPowerController.onGetTxStatus.inTurn(
        {ETxPowerActualStatus::Standby, ETxPowerActualStatus::On, ETxPowerActualStatus::Off});
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"getTxStatus", "sleep", "waiting"}), R"(
4 ZYR.TI.CriSetRadioChannelNearEnd: Start waiting for TX off
IOutputPowerController_1.getTxStatus()
sleep 100
IOutputPowerController_1.getTxStatus()
sleep 100
IOutputPowerController_1.getTxStatus()
4 ZYR.TI.CriSetRadioChannelNearEnd: Done waiting for TX off
)");
}

TEST_F(NearEndTransmitterTest, NobodyWaitsForItOnTheWayBack)
{
    node.channel1.outputPowerController.onGetTxStatus.inTurn(
        {ETxPowerActualStatus::Off, ETxPowerActualStatus::On});
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(count("getTxStatus"), 1U);
}

// --- the timeout

TEST_F(NearEndTransmitterTest, StatusThatNeverReadsOffEndsTheCommandBehindTheTimeout)
{
    node.channel1.outputPowerController.onGetTxStatus = ETxPowerActualStatus::On;
    EXPECT_EQ(run(command()), failedWith(kTimeoutText));
    // Polled at 0, 100, ... 15000 ms, which isn't a timeout yet, and at 15100 ms.
    EXPECT_EQ(count("getTxStatus"), 152U);
    EXPECT_EQ(time.sleeps(), std::vector<milliseconds>(151, milliseconds(100)));
    EXPECT_EQ(time.now(), milliseconds(15100));
    EXPECT_EQ(count("Done waiting"), 0U);
    EXPECT_EQ(count("muteAcm"), 0U);
    EXPECT_EQ(count("overrideTxPowerState"), 1U);
}

TEST_F(NearEndTransmitterTest, TimeoutAsksForNoRetry)
{
    node.channel1.outputPowerController.onGetTxStatus = ETxPowerActualStatus::On;
    run(command());
    EXPECT_EQ(count("for channel 1"), 1U);
    EXPECT_EQ(linesWith({"1 ZYR"}), R"(
1 ZYR.TI.CriSetRadioChannelNearEnd: TX OFF didn't happen during timeout:15000 ms
1 ZYR.TI.CriSetRadioChannelNearEnd: Recovery cannot solve this failure, return
)");
}

TEST_F(NearEndTransmitterTest, StatusThatReadsOffExactlyAtTheTimeoutIsInTime)
{
    turnOffAtPoll(151);
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(time.now(), milliseconds(15000));
    EXPECT_EQ(count("getTxStatus"), 151U);
}

TEST_F(NearEndTransmitterTest, StatusIsLookedAtBeforeTheTime)
{
    turnOffAtPoll(152);
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(time.now(), milliseconds(15100));
}

TEST_F(NearEndTransmitterTest, PollBehindThoseIsTooLate)
{
    turnOffAtPoll(153);
    EXPECT_EQ(run(command()), failedWith(kTimeoutText));
    EXPECT_EQ(count("getTxStatus"), 152U);
}

TEST_F(NearEndTransmitterTest, ExactlyTheTimeoutPassedIsNoTimeout)
{
    letFirstPollTake(milliseconds(15000));
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(count("getTxStatus"), 2U);
    EXPECT_EQ(time.sleeps(), std::vector<milliseconds>{milliseconds(100)});
}

TEST_F(NearEndTransmitterTest, OneNanosecondMoreIsATimeoutAndNobodySleepsAnyMore)
{
    letFirstPollTake(milliseconds(15000) + nanoseconds(1));
    EXPECT_EQ(run(command()), failedWith(kTimeoutText));
    EXPECT_EQ(count("getTxStatus"), 1U);
    EXPECT_TRUE(time.sleeps().empty());
}

TEST_F(NearEndTransmitterTest, TimeBeforeTheWaitDoesntCount)
{
    time.advance(std::chrono::hours(100));
    turnOffAtPoll(151);
    EXPECT_EQ(run(command()), kSuccess);
}

TEST_F(NearEndTransmitterTest, EachPassWaitsAnew)
{
    node.channel1.acmHandler.onMuteAcm = 0x8000;
    node.channel1.outputPowerController.onGetTxStatus.doInstead(
        [this] { return ++polls % 151 == 0 ? ETxPowerActualStatus::Off : ETxPowerActualStatus::On; });
    EXPECT_EQ(run(command()), failedWith("IAcmHandler->muteAcm() failed (EACMHResult = 32768)"));
    EXPECT_EQ(time.now(), milliseconds(45000));
    EXPECT_EQ(count("overrideTxPowerState(0)"), 3U);
    EXPECT_EQ(count("overrideTxPowerState(1)"), 0U);
}

// --- refusals of the power controller

TEST_F(NearEndTransmitterTest, RefusalToForceOffFailsBeforeTheWait)
{
    node.channel1.systemPowerController.onOverrideTxPowerState = 0x8000;
    EXPECT_EQ(run(command()),
              failedWith("SystemPowerController overrideTxPowerState off failed(ESPCResult = 32768)"));
    EXPECT_EQ(transmitterLines(), R"(
IRadio_1.isAvailable()
IDspControlApi_1.isCarrierAggregationActive()
IRadio_1.isAvailable()
4 ZYR.TI.CriSetRadioChannelNearEnd: Initiating Tx OFF
ISystemPowerController_1.overrideTxPowerState(0)
1 ZYR.TI.CriSetRadioChannelNearEnd: SystemPowerController overrideTxPowerState off failed(ESPCResult = 32768)
)");
}

TEST_F(NearEndTransmitterTest, RefusalToGiveBackFailsBeforeAcmIsEnabledWithoutRetry)
{
    node.channel1.systemPowerController.onOverrideTxPowerState.inTurn({eSPC_S_OK, 4294967295U});
    EXPECT_EQ(run(command()),
              failedWith("ISystemPowerController->overrideTxPowerState failed(ESPCResult = 4294967295)"));
    EXPECT_EQ(linesWith({"overrideTxPowerState", "enableAcm", "Recovery cannot"}), R"(
ISystemPowerController_1.overrideTxPowerState(0)
ISystemPowerController_1.overrideTxPowerState(1)
1 ZYR.TI.CriSetRadioChannelNearEnd: ISystemPowerController->overrideTxPowerState failed(ESPCResult = 4294967295)
1 ZYR.TI.CriSetRadioChannelNearEnd: Recovery cannot solve this failure, return
)");
}

TEST_F(NearEndTransmitterTest, FailedConfigurationLeavesItForcedOffAndTheNextCommandForcesItOffAgain)
{
    node.channel1.rssiHandler.onSetRssiThreshold.inTurn({0x8000, eRSSI_S_OK});
    run(command());
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"overrideTxPowerState"}), R"(
ISystemPowerController_1.overrideTxPowerState(0)
ISystemPowerController_1.overrideTxPowerState(0)
ISystemPowerController_1.overrideTxPowerState(1)
)");
}

// --- a warm restart

TEST_F(NearEndTransmitterTest, WarmRestartLeavesItAloneOnBothWaysAndAsksForNoCarrierAggregation)
{
    const zyr_platform::StartUpState warm(Zyr::ZyrInitState::WarmRestart);
    EXPECT_EQ(run(command()), kSuccess);
    // The radio unit is asked by the test of the input and by the frequencies alone.
    EXPECT_EQ(transmitterLines(), R"(
IRadio_1.isAvailable()
4 ZYR.TI.CriSetRadioChannelNearEnd: Set Transmitter Off skipped due to warm restart
IRadio_1.isAvailable()
4 ZYR.TI.CriSetRadioChannelNearEnd: Return transmitter of channel 1:  to configured TxPowerState skipped due to warm restart
)");
    EXPECT_EQ(count("enableAcm(true)"), 1U);
}

TEST_F(NearEndTransmitterTest, WarmRestartNamesTheChannelOfTheCommandEvenUnderCarrierAggregation)
{
    const zyr_platform::StartUpState warm(Zyr::ZyrInitState::WarmRestart);
    node.channel2.dspApi.controlApi.onIsCarrierAggregationActive = true;
    EXPECT_EQ(run(command(2)), kSuccess);
    EXPECT_EQ(linesWith({"warm restart"}), R"(
4 ZYR.TI.CriSetRadioChannelNearEnd: Set Transmitter Off skipped due to warm restart
4 ZYR.TI.CriSetRadioChannelNearEnd: Return transmitter of channel 2:  to configured TxPowerState skipped due to warm restart
)");
}

TEST_F(NearEndTransmitterTest, ColdRestartHandlesIt)
{
    const zyr_platform::StartUpState cold(Zyr::ZyrInitState::ColdRestart);
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(count("overrideTxPowerState"), 2U);
}

TEST_F(NearEndTransmitterTest, WarmRestartThatEndsMeanwhileGivesBackWhatNobodyForcedOff)
{
    const zyr_platform::StartUpState warm(Zyr::ZyrInitState::WarmRestart);
    node.channel1.rauHandler.onSetTxIfSwitch2T2R.doInstead([] {
        Zyr::setInitState(Zyr::ZyrInitState::NormalOperation);
        return eRAUH_S_OK;
    });
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"overrideTxPowerState"}), R"(
ISystemPowerController_1.overrideTxPowerState(1)
)");
}

// --- a radio unit that isn't there

TEST_F(NearEndTransmitterTest, RadioUnitThatIsAwaySkipsTheTransmitterAndTheFrequencies)
{
    node.channel1.radio.onIsAvailable = false;
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(transmitterLines(), R"(
IRadio_1.isAvailable()
IDspControlApi_1.isCarrierAggregationActive()
IRadio_1.isAvailable()
4 ZYR.TI.CriSetRadioChannelNearEnd: Set Transmitter Off skipped due to RAU not available
IRadio_1.isAvailable()
IDspControlApi_1.isCarrierAggregationActive()
IRadio_1.isAvailable()
4 ZYR.TI.CriSetRadioChannelNearEnd: Skip return transmitter of channel 1:  since RAU is not available
)");
    EXPECT_EQ(linesWith({"requency(", "FrequencyChanged", "enableAcm", "Skip updating"}), R"(
4 ZYR.TI.CriSetRadioChannelNearEnd: Skip updating frequencies since RAU is not available
IAcmHandler_1.enableAcm(true)
)");
}

TEST_F(NearEndTransmitterTest, ChannelWithoutARadioInterfaceCountsAsAvailable)
{
    withdraw("IRadio_1");
    ASSERT_EQ(impl.initialize(2), 0);
    transcript.clear();
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"isAvailable", "overrideTxPowerState", "getTxStatus", "setTxFrequency"}), R"(
ISystemPowerController_1.overrideTxPowerState(0)
IOutputPowerController_1.getTxStatus()
IFrequencyController_1.setTxFrequency(18000000, 1)
ISystemPowerController_1.overrideTxPowerState(1)
)");
}

TEST_F(NearEndTransmitterTest, RadioUnitThatComesUpMeanwhileIsGivenBackThoughItWasNotForcedOff)
{
    node.channel1.radio.onIsAvailable.inTurn({false, false, true});
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(linesWith({"overrideTxPowerState", "setTxFrequency"}), R"(
IFrequencyController_1.setTxFrequency(18000000, 1)
ISystemPowerController_1.overrideTxPowerState(1)
)");
}

// --- carrier aggregation

TEST_F(NearEndTransmitterTest, CarrierAggregationMovesBothStepsOfChannel2ToChannel1)
{
    node.channel2.dspApi.controlApi.onIsCarrierAggregationActive = true;
    turnOffAtPoll(2);
    EXPECT_EQ(run(command(2)), kSuccess);
    // First and third question: the test of the input and the frequencies, which stay on channel 2.
    EXPECT_EQ(transmitterLines(), R"(
IRadio_2.isAvailable()
IDspControlApi_2.isCarrierAggregationActive()
IRadio_1.isAvailable()
4 ZYR.TI.CriSetRadioChannelNearEnd: Initiating Tx OFF in CA
ISystemPowerController_1.overrideTxPowerState(0)
4 ZYR.TI.CriSetRadioChannelNearEnd: Start waiting for TX off
IOutputPowerController_1.getTxStatus()
sleep 100
IOutputPowerController_1.getTxStatus()
4 ZYR.TI.CriSetRadioChannelNearEnd: Done waiting for TX off
IRadio_2.isAvailable()
IDspControlApi_2.isCarrierAggregationActive()
IRadio_1.isAvailable()
4 ZYR.TI.CriSetRadioChannelNearEnd: Return transmitter of CH1 in CA to requested state
ISystemPowerController_1.overrideTxPowerState(1)
)");
    EXPECT_EQ(linesWith({"muteAcm", "setTxFrequency", "enableAcm"}), R"(
IAcmHandler_2.muteAcm()
IFrequencyController_2.setTxFrequency(18000000, 1)
IAcmHandler_2.enableAcm(true)
)");
}

TEST_F(NearEndTransmitterTest, CarrierAggregationOfTheOtherChannelIsntAskedFor)
{
    node.channel1.dspApi.controlApi.onIsCarrierAggregationActive = true;
    EXPECT_EQ(run(command(2)), kSuccess);
    EXPECT_EQ(linesWith({"isCarrierAggregationActive", "overrideTxPowerState", "Return"}), R"(
IDspControlApi_2.isCarrierAggregationActive()
ISystemPowerController_2.overrideTxPowerState(0)
IDspControlApi_2.isCarrierAggregationActive()
4 ZYR.TI.CriSetRadioChannelNearEnd: Return transmitter of CH2 to requested state
ISystemPowerController_2.overrideTxPowerState(1)
)");
}

TEST_F(NearEndTransmitterTest, CarrierAggregationOnChannel1IsTold)
{
    node.channel1.dspApi.controlApi.onIsCarrierAggregationActive = true;
    EXPECT_EQ(run(command(1)), kSuccess);
    EXPECT_EQ(linesWith({"in CA"}), R"(
4 ZYR.TI.CriSetRadioChannelNearEnd: Initiating Tx OFF in CA
4 ZYR.TI.CriSetRadioChannelNearEnd: Return transmitter of CH1 in CA to requested state
)");
}

TEST_F(NearEndTransmitterTest, UnderCarrierAggregationTheRadioUnitOfChannel1Counts)
{
    node.channel2.dspApi.controlApi.onIsCarrierAggregationActive = true;
    node.channel1.radio.onIsAvailable = false;
    EXPECT_EQ(run(command(2)), kSuccess);
    EXPECT_EQ(linesWith({"overrideTxPowerState", "RAU", "requency("}), R"(
4 ZYR.TI.CriSetRadioChannelNearEnd: Set Transmitter Off skipped due to RAU not available
IFrequencyController_2.setTxFrequency(18000000, 1)
IFrequencyController_2.setRxFrequency(19010000, 1)
4 ZYR.TI.CriSetRadioChannelNearEnd: Skip return transmitter of channel 1:  since RAU is not available
)");
}

TEST_F(NearEndTransmitterTest, CarrierAggregationThatEndsMeanwhileGivesBackTheChannelItself)
{
    node.channel2.dspApi.controlApi.onIsCarrierAggregationActive.inTurn({true, false});
    EXPECT_EQ(run(command(2)), kSuccess);
    EXPECT_EQ(linesWith({"overrideTxPowerState"}), R"(
ISystemPowerController_1.overrideTxPowerState(0)
ISystemPowerController_2.overrideTxPowerState(1)
)");
}

// --- the cases that never come so far

TEST_F(NearEndTransmitterTest, BypassAndResetTouchNoTransmitter)
{
    Command reset;
    reset.xpicParameterPresent = true;
    reset.mimoParameterPresent = true;
    EXPECT_EQ(run(reset), kSuccess);
    node.channel1.systemPowerController.onIsConfigurationBypassed = true;
    EXPECT_EQ(run(command()), kSuccess);
    EXPECT_EQ(transmitterLines(), "\n");
}

} // namespace
} // namespace zyr_top_api
