#include "IOutputPowerController.h"
#include "IRadio.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <chrono>

namespace
{

using namespace std::chrono_literals;
using zyr_top_api::ETxPowerActualStatus;
using zyr_top_api::ETxPowerOverrideState;
using zyr_top_api::ForceLoopMode;
using zyr_top_api::RadioRestartStatus;
using zyr_top_api::TxRequestedStatus;

class TransmitterTest : public SimulationFixture
{
  protected:
    TransmitterTest() { configure(1); }

    static ETxPowerActualStatus status(unsigned channel = 1)
    {
        return require<IOutputPowerController>("IOutputPowerController", channel).getTxStatus();
    }
    static IRadio& radio(unsigned channel = 1) { return require<IRadio>("IRadio", channel); }
};

TEST_F(TransmitterTest, goesOnAWhileAfterTheRequest)
{
    EXPECT_EQ(status(), ETxPowerActualStatus::Off);
    EXPECT_EQ(power(1).configurePowerSettings(TxRequestedStatus::On, -400, 0, 100, 0, 1), 0U);
    EXPECT_EQ(status(), ETxPowerActualStatus::Off);
    time().advance(299ms);
    EXPECT_EQ(status(), ETxPowerActualStatus::Off);
    time().advance(1ms);
    EXPECT_EQ(status(), ETxPowerActualStatus::On);
    EXPECT_EQ(status(2), ETxPowerActualStatus::Off);
}

TEST_F(TransmitterTest, goesOffAWhileAfterItIsForcedAndRaisesTheAlarm)
{
    transmit(1, 0, 100);
    EXPECT_EQ(power(1).overrideTxPowerState(ETxPowerOverrideState::ForcedOff), 0U);
    time().advance(299ms);
    EXPECT_EQ(status(), ETxPowerActualStatus::On);
    EXPECT_EQ(alarms(), "");
    time().advance(1ms);
    EXPECT_EQ(status(), ETxPowerActualStatus::Off);
    EXPECT_EQ(alarms(), "TxOff 1 active 1\n");
    EXPECT_EQ(power(1).overrideTxPowerState(ETxPowerOverrideState::AsRequested), 0U);
    time().advance(300ms);
    EXPECT_EQ(status(), ETxPowerActualStatus::On);
    EXPECT_EQ(alarms(), "TxOff 1 inactive 1\n");
}

TEST_F(TransmitterTest, forcingOffAndBackWithinTheWhileLeavesItOn)
{
    transmit(1, 0, 100);
    EXPECT_EQ(power(1).overrideTxPowerState(ETxPowerOverrideState::ForcedOff), 0U);
    time().advance(100ms);
    EXPECT_EQ(power(1).overrideTxPowerState(ETxPowerOverrideState::AsRequested), 0U);
    time().advance(10s);
    EXPECT_EQ(status(), ETxPowerActualStatus::On);
    EXPECT_EQ(alarms(), "");
}

TEST_F(TransmitterTest, forcedOffHoldsAgainstARequest)
{
    EXPECT_EQ(power(1).overrideTxPowerState(ETxPowerOverrideState::ForcedOff), 0U);
    transmit(1, 0, 100);
    EXPECT_EQ(status(), ETxPowerActualStatus::Off);
    EXPECT_EQ(power(1).overrideTxPowerState(ETxPowerOverrideState::AsRequested), 0U);
    time().advance(300ms);
    EXPECT_EQ(status(), ETxPowerActualStatus::On);
}

TEST_F(TransmitterTest, adminRequestAloneSwitches)
{
    transmit(1, 0, 100);
    EXPECT_EQ(power(1).setAdminRequestedTxPowerState(TxRequestedStatus::Off, 0), 0U);
    time().advance(300ms);
    EXPECT_EQ(status(), ETxPowerActualStatus::Off);
}

TEST_F(TransmitterTest, goesOffWithItsRadioUnit)
{
    transmit(1, 0, 100);
    EXPECT_TRUE(radio().isAvailable());
    node().setRadioAvailable(1, false);
    EXPECT_FALSE(radio().isAvailable());
    EXPECT_TRUE(radio(2).isAvailable());
    time().advance(300ms);
    EXPECT_EQ(status(), ETxPowerActualStatus::Off);
    node().setRadioAvailable(1, true);
    time().advance(300ms);
    EXPECT_EQ(status(), ETxPowerActualStatus::On);
}

TEST_F(TransmitterTest, powerIsReportedWhileOnOnly)
{
    EXPECT_EQ(power(1).getReportedOutputPower(), -990);
    transmit(1, 50, 120);
    EXPECT_EQ(power(1).getReportedOutputPower(), 120);
}

TEST_F(TransmitterTest, windowTheWrongWayRoundIsRefused)
{
    EXPECT_EQ(power(1).configurePowerSettings(TxRequestedStatus::On, 0, 101, 100, 0, 1), 0x8000U);
    EXPECT_EQ(power(1).getTxRequestedStatus(), TxRequestedStatus::Off);
    EXPECT_EQ(power(1).overridePowerSettings(true, TxRequestedStatus::On, true, 0, true, 2, 1, true,
                                             ForceLoopMode::OpenLoop),
              0x8000U);
    EXPECT_FALSE(power(1).getTxBarOn());
}

TEST_F(TransmitterTest, barredSettingsKeepTheirValues)
{
    EXPECT_EQ(power(1).overridePowerSettings(true, TxRequestedStatus::On, true, -350, true, 10, 20, true,
                                             ForceLoopMode::ClosedLoop),
              0U);
    EXPECT_EQ(power(1).configurePowerSettings(TxRequestedStatus::Off, -100, 30, 40, 0, 1), 0U);
    EXPECT_EQ(power(1).setAdminRequestedTxPowerState(TxRequestedStatus::Off, 0), 0U);
    EXPECT_EQ(power(1).getTxRequestedStatus(), TxRequestedStatus::On);
    EXPECT_EQ(power(1).getMinOutputPower(), 10);
    EXPECT_EQ(power(1).getMaxOutputPower(), 20);
    EXPECT_EQ(node().channel(1).transmitter.farEndTarget, -350);
    EXPECT_TRUE(power(1).getTxBarOn());
    EXPECT_TRUE(power(1).getTargetInputPowerBarOn());
    EXPECT_TRUE(power(1).getOutputPowerBarOn());
    EXPECT_TRUE(power(1).getIgnorePowerLimits());
    EXPECT_EQ(power(1).getForceLoopMode(), ForceLoopMode::ClosedLoop);
}

TEST_F(TransmitterTest, restartOfARadioThatIsNotThereFails)
{
    node().setRadioAvailable(1, false);
    EXPECT_EQ(radio().triggerRestart(0), 0U);
    time().advance(3s);
    EXPECT_EQ(radio().getRestartStatus(), RadioRestartStatus::RestartFailed);
}

TEST_F(TransmitterTest, gainsAreKeptByLoopAndKind)
{
    auto& controller = require<IOutputPowerController>("IOutputPowerController", 1);
    controller.setGain(1, 5, 250.0);
    EXPECT_EQ(controller.getGain(1, 5), 250.0);
    EXPECT_EQ(controller.getGain(0, 5), 0.0);
    EXPECT_EQ(controller.getGain(1, 6), 0.0);
}

} // namespace
