#include "IFrequencyController.h"
#include "IRadioCapability.h"
#include "IRauHandler.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace
{

using namespace std::chrono_literals;
using zyr_top_api::ETxPowerActualStatus;
using zyr_top_api::RadioRestartStatus;

class RadioUnitTest : public SimulationFixture
{
  protected:
    RadioUnitTest()
    {
        startNode({.fading_dBTenths = 0});
        configure(1);
        configure(2);
        transmit(1, 0, 100);
    }

    static IRauHandler& rau(unsigned channel = 1) { return require<IRauHandler>("IRauHandler", channel); }

    /// The restart, the unit, the transmitter and the link of channel 1.
    std::string state()
    {
        const auto channel = node().channel(1);
        const bool isTransmitting = channel.transmitter.status == ETxPowerActualStatus::On;
        return std::string(radioRestartStatusToString(rau().getRestartStatus())) +
               (rau().isAvailable() ? ", up" : ", down") + (isTransmitting ? ", on" : ", off") +
               (channel.receiver.isLinkUp ? ", link" : ", no link");
    }

    static std::string frequencyLimits()
    {
        const auto range = require<IRadioCapability>("IRadioCapability", 1).getFrequencyCapability();
        return std::to_string(range.FrequencySubBand) + ": " + std::to_string(range.MinTXFrequency) + "-" +
               std::to_string(range.MaxTXFrequency) + " " + std::to_string(range.MinRXFrequency) + "-" +
               std::to_string(range.MaxRXFrequency) + ", steps " + std::to_string(range.MinTXFrequencyStep) +
               "-" + std::to_string(range.MaxTXFrequencyStep) + " " +
               std::to_string(range.MinRXFrequencyStep) + "-" + std::to_string(range.MaxRXFrequencyStep) +
               " from " + std::to_string(range.TXBaseFrequency) + " " + std::to_string(range.RXBaseFrequency);
    }

    static void setPowerMode(int transceiver, int mode)
    {
        EXPECT_EQ(
            rau().setPowerMode({static_cast<std::uint8_t>(transceiver), static_cast<std::uint8_t>(mode)}),
            0U);
    }
};

TEST_F(RadioUnitTest, restartTakesTheUnitAwayForItsTimeAndTheChannelComesBackByItself)
{
    EXPECT_EQ(state(), "Idle, up, on, link");
    EXPECT_EQ(rau().triggerRestart(0), 0U);
    EXPECT_EQ(state(), "Restarting, down, off, no link");
    EXPECT_EQ(alarms(), "LinkDown 1 active 1\nRadioDown 1 active 1\nTxOff 1 active 1\n");
    EXPECT_EQ(node().channel(1).transmitter.power, -990);
    time().advance(2999ms);
    EXPECT_EQ(state(), "Restarting, down, off, no link");
    time().advance(1ms);
    EXPECT_EQ(state(), "RestartSuccessful, up, off, link");
    time().advance(300ms);
    EXPECT_EQ(state(), "RestartSuccessful, up, on, link");
    EXPECT_EQ(alarms(), "LinkDown 1 inactive 1\nRadioDown 1 inactive 1\nTxOff 1 inactive 1\n");
    EXPECT_EQ(rau().endRestart(), 0U);
    EXPECT_EQ(state(), "Idle, up, on, link");
    EXPECT_EQ(node().channel(1).txFrequency_kHz, 14'560'000U);
    EXPECT_EQ(node().channel(1).radioFrameId, 103U);
}

TEST_F(RadioUnitTest, restartLeavesTheOtherUnitAlone)
{
    EXPECT_EQ(rau(1).triggerRestart(0), 0U);
    EXPECT_TRUE(rau(2).isAvailable());
    EXPECT_EQ(rau(2).getRestartStatus(), RadioRestartStatus::Idle);
    EXPECT_TRUE(dspStatus(2).isLinkUp());
}

TEST_F(RadioUnitTest, triggerDuringARestartIsRefusedAndTheRestartGoesOn)
{
    EXPECT_EQ(rau().triggerRestart(0), 0U);
    time().advance(2s);
    EXPECT_EQ(rau().triggerRestart(0), 0x800DU);
    time().advance(999ms);
    EXPECT_EQ(state(), "Restarting, down, off, no link");
    time().advance(1ms);
    EXPECT_EQ(state(), "RestartSuccessful, up, off, link");
}

TEST_F(RadioUnitTest, endDuringARestartIsRefusedAndTheRestartGoesOn)
{
    EXPECT_EQ(rau().triggerRestart(0), 0U);
    time().advance(1s);
    EXPECT_EQ(rau().endRestart(), 0x800DU);
    EXPECT_EQ(state(), "Restarting, down, off, no link");
    time().advance(2s);
    EXPECT_EQ(state(), "RestartSuccessful, up, off, link");
}

TEST_F(RadioUnitTest, triggerBehindAFinishedRestartBeginsAnother)
{
    EXPECT_EQ(rau().triggerRestart(0), 0U);
    time().advance(3s);
    EXPECT_EQ(rau().triggerRestart(0), 0U);
    EXPECT_EQ(rau().getRestartStatus(), RadioRestartStatus::Restarting);
}

TEST_F(RadioUnitTest, faultMakesTheRestartFailAndLeavesTheUnitAsItWas)
{
    node().faults().inject({"IRauHandler", "triggerRestart", 1, 0x8003, 1});
    EXPECT_EQ(rau().triggerRestart(0), 0x8003U);
    EXPECT_EQ(state(), "RestartFailed, up, on, link");
    EXPECT_EQ(alarms(), "");
    EXPECT_EQ(rau().endRestart(), 0U);
    EXPECT_EQ(state(), "Idle, up, on, link");
}

TEST_F(RadioUnitTest, faultDuringARestartDoesNotTouchIt)
{
    EXPECT_EQ(rau().triggerRestart(0), 0U);
    node().faults().inject({"IRauHandler", "triggerRestart", 1, 0x8003, 1});
    EXPECT_EQ(rau().triggerRestart(0), 0x8003U);
    EXPECT_EQ(rau().getRestartStatus(), RadioRestartStatus::Restarting);
}

TEST_F(RadioUnitTest, restartWithoutPowerAtItsEndFails)
{
    EXPECT_EQ(rau().triggerRestart(0), 0U);
    EXPECT_EQ(rau().setPowerSupplied(0), 0U);
    time().advance(3s);
    EXPECT_EQ(state(), "RestartFailed, down, off, no link");
}

TEST_F(RadioUnitTest, unitWithoutPowerIsGoneUntilItHasStartedAgain)
{
    EXPECT_EQ(rau().setPowerSupplied(0), 0U);
    EXPECT_EQ(state(), "Idle, down, off, no link");
    time().advance(10s);
    EXPECT_EQ(state(), "Idle, down, off, no link");
    EXPECT_EQ(alarms(), "LinkDown 1 active 1\nRadioDown 1 active 1\nTxOff 1 active 1\n");
    EXPECT_EQ(rau().setPowerSupplied(7), 0U);
    EXPECT_TRUE(rau().isPowerSupplied());
    time().advance(1999ms);
    EXPECT_EQ(state(), "Idle, down, off, no link");
    time().advance(1ms);
    EXPECT_EQ(state(), "Idle, up, off, link");
    time().advance(300ms);
    EXPECT_EQ(state(), "Idle, up, on, link");
    EXPECT_EQ(alarms(), "LinkDown 1 inactive 1\nRadioDown 1 inactive 1\nTxOff 1 inactive 1\n");
}

TEST_F(RadioUnitTest, powerGivenTwiceDoesNotStartTheUnitAgain)
{
    EXPECT_EQ(rau().setPowerSupplied(1), 0U);
    EXPECT_EQ(state(), "Idle, up, on, link");
    EXPECT_EQ(rau().setPowerSupplied(0), 0U);
    EXPECT_EQ(rau().setPowerSupplied(1), 0U);
    time().advance(1s);
    EXPECT_EQ(rau().setPowerSupplied(1), 0U);
    EXPECT_FALSE(rau().isAvailable());
    time().advance(1s);
    EXPECT_TRUE(rau().isAvailable());
}

TEST_F(RadioUnitTest, powerTakenDuringTheStartBeginsItAnew)
{
    EXPECT_EQ(rau().setPowerSupplied(0), 0U);
    EXPECT_EQ(rau().setPowerSupplied(1), 0U);
    time().advance(1s);
    EXPECT_EQ(rau().setPowerSupplied(0), 0U);
    time().advance(5s);
    EXPECT_FALSE(rau().isAvailable());
    EXPECT_EQ(rau().setPowerSupplied(1), 0U);
    time().advance(1999ms);
    EXPECT_FALSE(rau().isAvailable());
    time().advance(1ms);
    EXPECT_TRUE(rau().isAvailable());
}

TEST_F(RadioUnitTest, subBandIsAQuarterOfTheBand)
{
    EXPECT_EQ(frequencyLimits(), "1: 14500000-14620000 14920000-15040000, steps 0-480 0-480 "
                                 "from 14500000 14920000");
    EXPECT_EQ(rau().setActiveSubBand(1), 0U);
    EXPECT_EQ(frequencyLimits(), "1: 14500000-14530000 14920000-14950000, steps 0-120 0-120 "
                                 "from 14500000 14920000");
    EXPECT_EQ(rau().setActiveSubBand(4), 0U);
    EXPECT_EQ(frequencyLimits(), "4: 14590000-14620000 15010000-15040000, steps 360-480 360-480 "
                                 "from 14500000 14920000");
    EXPECT_EQ(rau().setActiveSubBand(5), 0xA100U);
    EXPECT_EQ(node().channel(1).radio.subBand, 4U);
    EXPECT_EQ(rau().setActiveSubBand(0), 0U);
    EXPECT_EQ(frequencyLimits(), "1: 14500000-14620000 14920000-15040000, steps 0-480 0-480 "
                                 "from 14500000 14920000");
}

TEST_F(RadioUnitTest, frequencyOutsideTheSubBandIsRefused)
{
    EXPECT_EQ(rau().setActiveSubBand(2), 0U);
    EXPECT_EQ(node().channel(1).txFrequency_kHz, 14'560'000U) << "what is set stays";
    EXPECT_EQ(frequencies(1).setTxFrequency(14'529'750, 1), 0x8000U);
    EXPECT_EQ(frequencies(1).setTxFrequency(14'530'000, 1), 0U);
    EXPECT_EQ(frequencies(1).setTxFrequency(14'560'250, 1), 0x8000U);
    EXPECT_EQ(frequencies(1).setRxFrequency(14'949'750, 1), 0x8000U);
    EXPECT_EQ(frequencies(1).setRxFrequency(14'980'000, 1), 0U);
    EXPECT_EQ(frequencies(1).setRxFrequency(14'980'250, 1), 0x8000U);
    EXPECT_EQ(frequencies(2).setTxFrequency(14'600'000, 1), 0U) << "the other unit has the whole band";
}

TEST_F(RadioUnitTest, transceiverThatIsOffTakesHalfTheSignalAway)
{
    node().setTwoTransmitters(true);
    const auto level = node().channel(1).receiver.level;
    EXPECT_EQ(node().channel(1).transmitter.power, 100);
    for (const int off : {0b0001, 0b0010, 0b0011}) {
        setPowerMode(1, off);
        EXPECT_EQ(node().channel(1).transmitter.power, 70);
        EXPECT_EQ(node().channel(1).receiver.level, level - 30);
        setPowerMode(1, 0);
    }
    for (const int off : {0b0100, 0b1000, 0b1100}) {
        setPowerMode(2, off);
        EXPECT_EQ(node().channel(1).transmitter.power, 70);
        setPowerMode(2, 0);
    }
    EXPECT_EQ(node().channel(1).transmitter.power, 100);
    EXPECT_EQ(node().channel(1).receiver.level, level);
}

TEST_F(RadioUnitTest, bothTransceiversOffLeaveNoSignal)
{
    node().setTwoTransmitters(true);
    setPowerMode(255, 0b0101);
    time().advance(300ms);
    EXPECT_EQ(state(), "Idle, up, off, no link");
    EXPECT_EQ(node().channel(1).receiver.level, -990);
    EXPECT_EQ(alarms(), "LinkDown 1 active 1\nTxOff 1 active 1\n");
    setPowerMode(1, 0);
    time().advance(300ms);
    EXPECT_EQ(state(), "Idle, up, on, link");
    EXPECT_EQ(alarms(), "LinkDown 1 inactive 1\nTxOff 1 inactive 1\n");
}

TEST_F(RadioUnitTest, powerModeChangesNothingOnAUnitWithOneTransmitter)
{
    setPowerMode(255, 0b1111);
    time().advance(300ms);
    EXPECT_EQ(state(), "Idle, up, on, link");
    EXPECT_EQ(node().channel(1).transmitter.power, 100);
}

} // namespace
