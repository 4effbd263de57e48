#include "CiManageLoopsImpl.h"
#include "CommandsOnNode.h"
#include "CriDisableModulationImpl.h"
#include "CriSetFarEndPmaxCapabilityImpl.h"
#include "CriSetRfPowerImpl.h"
#include "DirectCall.h"
#include "TiGetDspTxModeImpl.h"
#include "TiGetIfLoopImpl.h"
#include "TiGetNarrowWideFiltersImpl.h"
#include "TiGetRxXcStatusLevelImpl.h"
#include "TiGetTXRFDetectedOutputPowerImpl.h"
#include "TiManageDspImpl.h"
#include "TiManagePmImpl.h"
#include "TiManageRfPowerImpl.h"
#include "TiManageSpcImpl.h"
#include "TiManageTXIFOutputPowerImpl.h"
#include "TiManageTapsImpl.h"
#include "TiSetDspTxModeImpl.h"
#include "TiSetIfFrequencyImpl.h"
#include "TiSetIfLoopImpl.h"
#include "TiSetNarrowWideFiltersImpl.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace
{

using namespace std::chrono_literals;
using namespace zyr_top_api;

// What one test command does, seen by another command.
class TestAccessByCommandsTest : public zyr_test::CommandsOnNode
{
  protected:
    TestAccessByCommandsTest() : CommandsOnNode({.pathLoss_dBTenths = 600, .fading_dBTenths = 0})
    {
        enrol<CiManageLoopsImpl, CriDisableModulationImpl, CriSetFarEndPmaxCapabilityImpl,
              CriSetRfPowerImpl>();
    }

    static std::string configureAs(const char* frameType)
    {
        auto command = nearEnd();
        command.ffConfigTypePresent = true;
        command.FFConfigType = frameType;
        return configure(command);
    }

    void setPower(std::int32_t least, std::int32_t most, std::int32_t farEndTarget = 0)
    {
        auto command = power(least, most);
        command.targetRfInputPowerFarEnd = farEndTarget;
        EXPECT_EQ(criSetRfPower(command).faultString, "");
        time.advance(5s);
    }

    /// The orders to fail that aren't used up, one in a line.
    std::string orders() const
    {
        std::string text;
        for (const auto& fault : node.faultsLeft()) {
            text += fault.collaborator + " " + std::to_string(fault.channel) + " " +
                    std::to_string(fault.code) + " x" + std::to_string(fault.count) + "\n";
        }
        return text;
    }

    static TiManageSpc::Command sweep(TiManageSpc::Action action)
    {
        TiManageSpc::Command command;
        command.Action = action;
        command.Min = -700;
        command.Max = -500;
        command.Rate = 100; // 60 in a second
        return command;
    }
};

TEST_F(TestAccessByCommandsTest, SweepMovesTheInputPowerThatTheStatusShowsUntilItIsStopped)
{
    ASSERT_EQ(configure(), "");
    EXPECT_EQ(status().ActualRFInputPower, -400);
    direct<TiManageSpcImpl>(sweep(TiManageSpc::Action::StartSweepDown));
    time.advance(1s);
    EXPECT_EQ(status().ActualRFInputPower, -400) << "nothing was handed over";
    direct<TiManageSpcImpl>(sweep(TiManageSpc::Action::StartSweepUp));
    EXPECT_EQ(status().ActualRFInputPower, -700);
    time.advance(2s);
    EXPECT_EQ(status().ActualRFInputPower, -580);
    time.advance(1min);
    EXPECT_EQ(status().ActualRFInputPower, -500) << "the end of the sweep";
    direct<TiManageSpcImpl>(sweep(TiManageSpc::Action::StartSweepDown));
    time.advance(1s);
    EXPECT_EQ(status().ActualRFInputPower, -560);
    direct<TiManageSpcImpl>(sweep(TiManageSpc::Action::StopSweep));
    EXPECT_EQ(status().ActualRFInputPower, -400);
}

TEST_F(TestAccessByCommandsTest, GainsAreKeptPerLoopAndKind)
{
    TiManageSpc::Command command;
    command.Action = TiManageSpc::Action::OpcGainOpenLoop;
    command.OpcTxRampingGain = 5;
    command.OpcTxOnGain = 6;
    EXPECT_EQ(direct<TiManageSpcImpl>(command).printResponse(),
              "OpcTxOnGainOpenLoop: 6, OpcTxRampingGainOpenLoop: 5");
    command.Action = TiManageSpc::Action::OpcGainClosedLoop;
    EXPECT_EQ(direct<TiManageSpcImpl>(command).printResponse(),
              "OpcTxOnGainClosedLoop: 0, OpcTxRampingGainClosedLoop: 6");
}

TEST_F(TestAccessByCommandsTest, PowerThatIsCommandedUnderABarComesIntoForceWhenTheBarGoes)
{
    ASSERT_EQ(configure(), "");
    TiManageRfPower::Command bar;
    bar.TXRequestedStatusBarOn = true;
    bar.TXRequestedStatus = TxRequestedStatus::On;
    bar.RFOutputPowerBarOn = true;
    bar.MinRFOutputPower = 50;
    bar.MaxRFOutputPower = 50;
    direct<TiManageRfPowerImpl>(bar);
    setPower(120, 120);
    EXPECT_EQ(status().ReportedRFOutputPower, 50);
    TiManageRfPower::Command noBar;
    noBar.TXRequestedStatusBarOn = false;
    noBar.RFOutputPowerBarOn = false;
    const auto freed = direct<TiManageRfPowerImpl>(noBar);
    EXPECT_EQ(freed.MinRFOutputPower, 120);
    EXPECT_EQ(freed.MaxRFOutputPower, 120);
    EXPECT_EQ(status().ReportedRFOutputPower, 120);
}

TEST_F(TestAccessByCommandsTest, BarThatGoesWithoutACommandLeavesTheValuesInForce)
{
    TiManageRfPower::Command bar;
    bar.RFOutputPowerBarOn = true;
    bar.MinRFOutputPower = 30;
    bar.MaxRFOutputPower = 40;
    direct<TiManageRfPowerImpl>(bar);
    TiManageRfPower::Command noBar;
    noBar.RFOutputPowerBarOn = false;
    EXPECT_EQ(direct<TiManageRfPowerImpl>(noBar).MaxRFOutputPower, 40);
}

TEST_F(TestAccessByCommandsTest, TransmitterThatATestHoldsOffGoesOnWhenTheBarGoes)
{
    ASSERT_EQ(configure(), "");
    setPower(100, 100);
    EXPECT_EQ(status().TXActualStatus, "On");
    TiManageRfPower::Command bar;
    bar.TXRequestedStatusBarOn = true;
    bar.TXRequestedStatus = TxRequestedStatus::Off;
    direct<TiManageRfPowerImpl>(bar);
    time.advance(1s);
    EXPECT_EQ(status().TXActualStatus, "Off");
    setPower(100, 100);
    EXPECT_EQ(status().TXActualStatus, "Off");
    TiManageRfPower::Command noBar;
    noBar.TXRequestedStatusBarOn = false;
    EXPECT_EQ(direct<TiManageRfPowerImpl>(noBar).TXRequestedStatus, TxRequestedStatus::On);
    time.advance(1s);
    EXPECT_EQ(status().TXActualStatus, "On");
}

TEST_F(TestAccessByCommandsTest, TargetThatATestHoldsLeadsThePowerUntilTheBarGoes)
{
    ASSERT_EQ(configure(), "");
    TiManageRfPower::Command bar;
    bar.TargetRFInputPowerBarOn = true;
    bar.TargetRFInputPower = -480;
    direct<TiManageRfPowerImpl>(bar);
    setPower(0, 150, -500);
    EXPECT_EQ(status().ReportedRFOutputPower, 120);
    TiManageRfPower::Command noBar;
    noBar.TargetRFInputPowerBarOn = false;
    EXPECT_EQ(direct<TiManageRfPowerImpl>(noBar).TargetRFInputPower, -500);
    EXPECT_EQ(status().ReportedRFOutputPower, 100);
}

TEST_F(TestAccessByCommandsTest, SmallChangeOfThePathIsFollowedAtOnceWithoutHysteresisOnly)
{
    ASSERT_EQ(configure(), "");
    setPower(0, 150, -500);
    EXPECT_EQ(status().ReportedRFOutputPower, 100);
    node.setPathLoss_dBTenths(610);
    EXPECT_EQ(status().ReportedRFOutputPower, 100);
    TiManageRfPower::Command mode;
    mode.ForceLoopMode = ForceLoopMode::NormalOperationNoHysteresis;
    direct<TiManageRfPowerImpl>(mode);
    EXPECT_EQ(status().ReportedRFOutputPower, 110);
    node.setPathLoss_dBTenths(611);
    EXPECT_EQ(status().ReportedRFOutputPower, 111);
    mode.ForceLoopMode = ForceLoopMode::NormalOperation;
    direct<TiManageRfPowerImpl>(mode);
    node.setPathLoss_dBTenths(601);
    EXPECT_EQ(status().ReportedRFOutputPower, 111);
    node.setPathLoss_dBTenths(600);
    EXPECT_EQ(status().ReportedRFOutputPower, 100);
}

TEST_F(TestAccessByCommandsTest, TapsLowersThePowerThatTheStatusShows)
{
    ASSERT_EQ(configure(), "");
    setPower(0, 150, 500);
    EXPECT_EQ(status().ReportedRFOutputPower, 150);
    TiManageTaps::Command command;
    command.TapsEnable = true;
    command.IdleRateOffset = -1000; // nothing is needed
    direct<TiManageTapsImpl>(command);
    EXPECT_EQ(status().ReportedRFOutputPower, 0);
    command.TapsEnable = false;
    direct<TiManageTapsImpl>(command);
    EXPECT_EQ(status().ReportedRFOutputPower, 150);
}

TEST_F(TestAccessByCommandsTest, OpenLoopHoldsTheUpperEndAndClosedLoopFollowsTheTarget)
{
    ASSERT_EQ(configure(), "");
    setPower(0, 150);
    TiManageRfPower::Command mode;
    mode.TargetRFInputPower = -500;
    mode.ForceLoopMode = ForceLoopMode::ClosedLoop;
    direct<TiManageRfPowerImpl>(mode);
    EXPECT_EQ(status().ReportedRFOutputPower, 100);
    mode.ForceLoopMode = ForceLoopMode::OpenLoop;
    direct<TiManageRfPowerImpl>(mode);
    EXPECT_EQ(status().ReportedRFOutputPower, 150);
}

TEST_F(TestAccessByCommandsTest, InjectedBlocksAppearAtTheirPercentageForTheCycles)
{
    ASSERT_EQ(configure(), "");
    time.advance(10s);
    status(true);
    TiManagePm::Command command;
    command.injectEb = true;
    command.ebCycles = 4;
    command.ebPercentage = 25;
    EXPECT_EQ(direct<TiManagePmImpl>(command).cyclesLeft, 4);
    time.advance(1s);
    const auto half = direct<TiManagePmImpl>({});
    EXPECT_TRUE(half.injectingEb);
    EXPECT_EQ(half.cyclesLeft, 3);
    time.advance(3s);
    const auto during = status(true);
    EXPECT_GT(during.BackgroundBlocks, 0);
    EXPECT_EQ(during.ErroredBlocks, during.BackgroundBlocks / 4);
    time.advance(4s);
    EXPECT_EQ(status().ErroredBlocks, 0);
    EXPECT_FALSE(direct<TiManagePmImpl>({}).injectingEb);
}

TEST_F(TestAccessByCommandsTest, InjectedDspErrorsStrikeWhereToldAndAreListedUntilUsedUp)
{
    direct<TiManageDspImpl>({1, TiManageDsp::InjectError::I2CErrorDuringDspConfiguration, 2, 0});
    direct<TiManageDspImpl>({2, TiManageDsp::InjectError::ComNotInitialized, 3, 0});
    auto left = node.faultsLeft();
    ASSERT_EQ(left.size(), 2U);
    EXPECT_EQ(left[0].collaborator, "IDspChannelApi");
    EXPECT_EQ(left[0].channel, 1U);
    EXPECT_EQ(left[0].count, 2U);
    EXPECT_EQ(left[1].collaborator, "IDspStatusApi");
    EXPECT_EQ(left[1].code, 32780U);
    EXPECT_EQ(configure(), "") << "the recovery mends it";
    left = node.faultsLeft();
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0].collaborator, "IDspStatusApi");
    TiGetRxXcStatusLevelImpl levels;
    EXPECT_EQ(levels.initialize(2), eTI_S_OK);
    EXPECT_EQ(levels.execute({2}).faultString, "Failed to get RX XC status level");
    EXPECT_EQ(node.faultsLeft()[0].count, 2U);
}

TEST_F(TestAccessByCommandsTest, InjectedComFailuresStrikeTheControlInterface)
{
    direct<TiManageDspImpl>({1, TiManageDsp::InjectError::ComFailure, 2, 0});
    EXPECT_EQ(orders(), "IDspControlApi 1 32778 x2\n");
    constexpr const char* failure =
        "CRI.SetRadioChannelNearEnd failed to check which kind of DSP Recovery is needed";
    EXPECT_EQ(configureAs("Standard"), failure);
    EXPECT_EQ(orders(), "IDspControlApi 1 32778 x1\n");
    EXPECT_EQ(configureAs("Standard"), failure);
    EXPECT_EQ(orders(), "");
    EXPECT_EQ(configureAs("Standard"), "");
}

TEST_F(TestAccessByCommandsTest, InjectedFailureOfAcmIsMendedByTheRecovery)
{
    direct<TiManageDspImpl>({1, TiManageDsp::InjectError::AcmEngineEnableFailure, 1, 0});
    EXPECT_EQ(orders(), "IDspAcmApi 1 32768 x1\n");
    EXPECT_EQ(configure(), "");
    EXPECT_EQ(orders(), "");
    EXPECT_EQ(node.snapshot().dsp.recoveries, 1U);
}

TEST_F(TestAccessByCommandsTest, InjectedFailuresOfTheThresholdsComeAsOftenAsAsked)
{
    direct<TiManageDspImpl>({1, TiManageDsp::InjectError::UpdateThresholdFailure, 2, 0});
    CriSetFarEndPmaxCapability::Command command;
    command.RadioChannelID = RadioChannel(1);
    command.maxRfOutputPowerFarEnd = {{ModulationAndCoding::QAM_4, 200}};
    EXPECT_EQ(orders(), "IDspAcmApi 1 32768 x2\n");
    EXPECT_EQ(criSetFarEndPmaxCapability(command).faultString, "CRI.SetFarEndPmaxCapability failed");
    EXPECT_EQ(criSetFarEndPmaxCapability(command).faultString, "CRI.SetFarEndPmaxCapability failed");
    EXPECT_EQ(orders(), "");
    EXPECT_EQ(criSetFarEndPmaxCapability(command).faultString, "");
}

TEST_F(TestAccessByCommandsTest, I2cErrorsBeyondTheRetriesFailTheConfiguration)
{
    direct<TiManageDspImpl>({1, TiManageDsp::InjectError::I2CErrorDuringDspConfiguration, 100, 0});
    EXPECT_EQ(configure(), "IHardwareConfigurationHandler->setRadioFrameId failed (EHCHResult = 32768)");
}

TEST_F(TestAccessByCommandsTest, DisabledModulationAndTheTestSignalAreTwoViewsOfOneMode)
{
    CriDisableModulation::Command disable;
    disable.DisableModulation = true;
    EXPECT_TRUE(criDisableModulation(disable).DisableModulation);
    EXPECT_EQ(direct<TiGetDspTxModeImpl>({1}).OutputSignal, "OneTone");
    direct<TiSetDspTxModeImpl>({1, "TwoTone", 3, 4});
    EXPECT_FALSE(criDisableModulation({}).DisableModulation);
    EXPECT_EQ(direct<TiGetDspTxModeImpl>({1}).ToneFrequency, 4);
    EXPECT_EQ(direct<TiGetDspTxModeImpl>({2}).OutputSignal, "NormalOperation");
    direct<TiSetDspTxModeImpl>({1, "OneTone", 0, 0});
    EXPECT_TRUE(criDisableModulation({}).DisableModulation);
}

TEST_F(TestAccessByCommandsTest, IfLoopIsTheOneOfTheLoopsAndCutsTheFarEndOff)
{
    ASSERT_EQ(configure(), "");
    direct<TiSetIfLoopImpl>({1, 7});
    EXPECT_EQ(direct<TiGetIfLoopImpl>({1}).ifLoop, 1U);
    EXPECT_EQ(direct<TiGetIfLoopImpl>({2}).ifLoop, 0U);
    const auto loops = ciManageLoops({}).loops;
    ASSERT_EQ(loops.size(), 4U);
    EXPECT_EQ(loops[0].loopName, "IfLoop1");
    EXPECT_TRUE(loops[0].closed);
    EXPECT_EQ(status().RadioChannelStatus, "Down");
}

TEST_F(TestAccessByCommandsTest, FrequencyAndFiltersReachTheDspThatTheyAreMeantFor)
{
    direct<TiSetIfFrequencyImpl>({2, 0, 350'000});
    direct<TiSetIfFrequencyImpl>({2, 1, 140'000});
    EXPECT_EQ(node.channel(2).dsp.txIfFrequency, 350'000);
    EXPECT_EQ(node.channel(2).dsp.rxIfFrequency, 140'000);
    direct<TiSetNarrowWideFiltersImpl>({2, 5});
    EXPECT_EQ(direct<TiGetNarrowWideFiltersImpl>({2}).filter, 5);
    EXPECT_EQ(node.channel(1).dsp.filters, 5);
}

TEST_F(TestAccessByCommandsTest, DetectorInUseFollowsThePowerWithAHysteresis)
{
    ASSERT_EQ(configure(), "");
    const auto usesHigh = [&](std::int32_t power) {
        setPower(power, power);
        return direct<TiGetTXRFDetectedOutputPowerImpl>({1}).usingHighDetector;
    };
    EXPECT_FALSE(usesHigh(99));
    EXPECT_TRUE(usesHigh(100));
    EXPECT_TRUE(usesHigh(80));
    EXPECT_FALSE(usesHigh(79));
    EXPECT_FALSE(usesHigh(99));
}

TEST_F(TestAccessByCommandsTest, ConverterFollowsTheIfPower)
{
    TiManageTXIFOutputPower::Command command;
    command.txIfOutputPower = -100;
    const auto low = direct<TiManageTXIFOutputPowerImpl>(command);
    command.txIfOutputPower = 100;
    const auto high = direct<TiManageTXIFOutputPowerImpl>(command);
    EXPECT_EQ(high.txIfOutputPower, 100);
    EXPECT_EQ(high.dacValue, low.dacValue + 200);
}

TEST_F(TestAccessByCommandsTest, TapsLogTakesSamplesOfTheChannelsPowerWithItsPeriod)
{
    ASSERT_EQ(configure(), "");
    setPower(100, 150);
    TiManageTaps::Command command;
    command.LogRequestOption = TiManageTaps::LogRequestOption::SetLogPeriod;
    command.Time = 5U;
    EXPECT_EQ(direct<TiManageTapsImpl>(command).LogPeriodSec, 5U);
    command.LogRequestOption = TiManageTaps::LogRequestOption::StartLog;
    EXPECT_TRUE(direct<TiManageTapsImpl>(command).TapsLogActive);
    time.advance(11s);
    command.LogRequestOption = TiManageTaps::LogRequestOption::ReadSample;
    const auto sample = direct<TiManageTapsImpl>(command).TapsLogData.value();
    EXPECT_EQ(sample.samplesRemaining, 2);
    EXPECT_EQ(sample.minPowerOut, 100);
    EXPECT_EQ(sample.maxPowerOut, 150);
    EXPECT_TRUE(sample.atpcEnabled);
}

} // namespace
