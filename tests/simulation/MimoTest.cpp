#include "IMimoController.h"
#include "ITapsControllerLog.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <string>

namespace
{

using namespace std::chrono_literals;
using zyr_top_api::DspErrorBlocks;
using zyr_top_api::LinkType;
using zyr_top_api::MimoCalibrationStatus;
using zyr_top_api::MimoLockStatus;
using zyr_top_api::MimoStatusStruct;
using zyr_top_api::TapsLogData;

/// A hop without fading, on which no block comes errored by itself.
class MimoTest : public SimulationFixture
{
  protected:
    MimoTest() { startNode({.fading_dBTenths = 0}); }

    static IMimoController& mimo(unsigned channel = 1)
    {
        return require<IMimoController>("IMimoController", channel);
    }

    void startMimo()
    {
        configure(1, 302);
        EXPECT_EQ(mimo().setLinkType(LinkType::Enable_A), 0U);
    }

    static int mimoMode()
    {
        int mode = -1;
        EXPECT_EQ(dspControl(1).getMimoMode(mode), 0U);
        return mode;
    }

    static MimoStatusStruct measured()
    {
        MimoStatusStruct status;
        EXPECT_EQ(dspStatus(1).mimoStatusGet(status), 0U);
        return status;
    }

    /// What the slave's sweep, the spatial slave's and the muting show: "<slave> <spatial slave> <muted>".
    static std::string flags()
    {
        const auto status = measured();
        return std::to_string(status.slaveSweepInProgress) + " " +
               std::to_string(status.spatialSlaveSweepStatus) + " " + std::to_string(status.diversityMute);
    }

    /// The blocks of a second.
    std::int32_t blocks()
    {
        DspErrorBlocks read;
        EXPECT_EQ(dspStatus(1).getErrorBlocks(read, true), 0U);
        time().advance(1s);
        EXPECT_EQ(dspStatus(1).getErrorBlocks(read, true), 0U);
        return read.backgroundBlocks;
    }

    static void startCalibration() { EXPECT_EQ(dspChannel(1).mimoCrossConnectDelayCalibrationStart(), 0U); }

    static MimoCalibrationStatus calibration()
    {
        auto value = MimoCalibrationStatus{77};
        EXPECT_EQ(dspChannel(1).mimoCrossConnectDelayCalibrationStatusGet(value), 0U);
        return value;
    }
};

TEST_F(MimoTest, bothChannelsAreFourByFour)
{
    configure(1, 302);
    EXPECT_EQ(mimoMode(), 0);
    EXPECT_EQ(mimo(1).setLinkType(LinkType::Enable_A), 0U);
    EXPECT_EQ(mimoMode(), 4);
    EXPECT_FALSE(mimo(1).getXpicStatus().hasValue());
    EXPECT_EQ(mimo(2).setLinkType(LinkType::Enable_B), 0U);
    EXPECT_EQ(mimoMode(), 9);
    EXPECT_EQ(mimo(1).getXpicStatus().value(), MimoLockStatus::Unlocked) << "its slave sweeps";
    time().advance(500ms);
    EXPECT_EQ(mimo(1).getXpicStatus().value(), MimoLockStatus::Locked);
    EXPECT_EQ(mimo(1).getStatus(), MimoLockStatus::Unlocked) << "the spatial path takes longer";
    EXPECT_FALSE(mimo(1).getEta().hasValue());
    EXPECT_FALSE(mimo(1).getXpi().hasValue());
    time().advance(500ms);
    EXPECT_EQ(mimo(1).getStatus(), MimoLockStatus::Locked);
    EXPECT_NEAR(mimo(1).getEta().value(), 9000, 200);
    EXPECT_NEAR(mimo(1).getXpi().value(), 200, 5);
    EXPECT_EQ(mimo(2).getStatus(), MimoLockStatus::Unlocked) << "channel 2 isn't configured";
    EXPECT_EQ(mimo(1).stop(), 0U);
    EXPECT_FALSE(mimo(1).isStarted());
    EXPECT_EQ(mimo(1).getStatus(), MimoLockStatus::Unlocked);
    EXPECT_EQ(mimoMode(), 0);
}

TEST_F(MimoTest, nothingIsMeasuredWithoutMimoOrWithoutALink)
{
    configure(1, 302);
    time().advance(5s);
    const auto isNothing = [](const MimoStatusStruct& status) {
        return status.gainDifferenceDbTenths == 0 && status.etaTenThousands == 0 && status.xpdDbTenths == 0 &&
               status.spatialXpdDbTenths == 0 && status.spatialCarrierOffsetHz == 0 &&
               status.slaveCarrierOffsetHz == 0 && status.spatialSlaveCarrierOffsetHz == 0;
    };
    EXPECT_TRUE(isNothing(measured()));
    EXPECT_EQ(flags(), "0 0 0");
    EXPECT_EQ(mimo().setLinkType(LinkType::Enable_A), 0U);
    time().advance(5s);
    EXPECT_FALSE(isNothing(measured()));
    EXPECT_EQ(flags(), "0 0 0");
    node().setFarEndTransmits(false);
    EXPECT_TRUE(isNothing(measured()));
    EXPECT_EQ(flags(), "1 1 0") << "the receivers sweep in vain";
}

TEST_F(MimoTest, readingsSettleBehindTheStart)
{
    startMimo();
    EXPECT_EQ(flags(), "1 1 0");
    const auto first = measured();
    EXPECT_NEAR(first.gainDifferenceDbTenths, 75, 3);
    EXPECT_EQ(first.etaTenThousands, 0U);
    EXPECT_NEAR(first.spatialCarrierOffsetHz, 12'000, 400);
    EXPECT_NEAR(first.spatialSlaveCarrierOffsetHz, -12'000, 400);
    EXPECT_NEAR(first.slaveCarrierOffsetHz, 12'000, 400);

    time().advance(499ms);
    EXPECT_EQ(flags(), "1 1 0");
    time().advance(1ms);
    EXPECT_EQ(flags(), "0 1 0");
    const auto half = measured();
    EXPECT_NEAR(half.gainDifferenceDbTenths, 20, 3);
    EXPECT_NEAR(half.etaTenThousands, 8'260U, 200U);
    EXPECT_NEAR(half.spatialCarrierOffsetHz, 985, 400);
    EXPECT_NEAR(half.spatialSlaveCarrierOffsetHz, -985, 400);
    EXPECT_NEAR(half.slaveCarrierOffsetHz, 81, 400);

    time().advance(499ms);
    EXPECT_EQ(flags(), "0 1 0");
    time().advance(1ms);
    EXPECT_EQ(flags(), "0 0 0");
    const auto settled = measured();
    EXPECT_NEAR(settled.gainDifferenceDbTenths, 15, 4);
    EXPECT_NEAR(settled.etaTenThousands, 8'940U, 200U);
    EXPECT_NEAR(settled.spatialCarrierOffsetHz, 81, 400);
    EXPECT_NEAR(settled.spatialSlaveCarrierOffsetHz, -81, 400);
    EXPECT_NEAR(settled.xpdDbTenths, 200, 5);
    EXPECT_NEAR(settled.spatialXpdDbTenths, 200, 5);
}

TEST_F(MimoTest, configurationLetsEverythingSettleAnew)
{
    startMimo();
    time().advance(10s);
    EXPECT_EQ(mimo().getStatus(), MimoLockStatus::Locked);
    EXPECT_EQ(dspChannel(1).mimoConfigurationSet(), 0U);
    EXPECT_EQ(flags(), "1 1 0");
    EXPECT_EQ(mimo().getStatus(), MimoLockStatus::Unlocked);
    EXPECT_NEAR(measured().spatialCarrierOffsetHz, 12'000, 400);
    EXPECT_NEAR(measured().slaveCarrierOffsetHz, 12'000, 400);
    time().advance(1s);
    EXPECT_EQ(flags(), "0 0 0");
    EXPECT_EQ(mimo().getStatus(), MimoLockStatus::Locked);
}

TEST_F(MimoTest, linkThatComesBackSettlesAnew)
{
    startMimo();
    time().advance(1s);
    node().setFarEndTransmits(false);
    EXPECT_EQ(mimo().getStatus(), MimoLockStatus::Unlocked);
    time().advance(1s);
    node().setFarEndTransmits(true);
    time().advance(999ms);
    EXPECT_EQ(mimo().getStatus(), MimoLockStatus::Unlocked);
    time().advance(1ms);
    EXPECT_EQ(mimo().getStatus(), MimoLockStatus::Locked);
}

TEST_F(MimoTest, mutedSpatialPathTakesHalfOfTheCapacity)
{
    startMimo();
    time().advance(1s);
    EXPECT_EQ(blocks(), 1000);
    EXPECT_EQ(mimo().mimoSpatialMute(true), 0U);
    EXPECT_EQ(mimo().getStatus(), MimoLockStatus::Mute);
    EXPECT_FALSE(mimo().getEta().hasValue());
    EXPECT_EQ(flags(), "0 0 1");
    EXPECT_EQ(measured().etaTenThousands, 0U);
    EXPECT_NEAR(measured().xpdDbTenths, 200, 5) << "the other polarisation isn't muted";
    EXPECT_EQ(blocks(), 500);
    EXPECT_TRUE(dspStatus(1).isLinkUp());
    EXPECT_EQ(mimo().mimoSpatialMute(false), 0U);
    EXPECT_EQ(blocks(), 500) << "it sweeps";
    EXPECT_EQ(mimo().getStatus(), MimoLockStatus::Locked);
    EXPECT_EQ(blocks(), 1000);
}

TEST_F(MimoTest, mutingThroughTheDspIsTheSame)
{
    startMimo();
    EXPECT_EQ(dspChannel(1).mimoDiversityMute(true), 0U);
    EXPECT_EQ(mimo().getStatus(), MimoLockStatus::Mute);
    EXPECT_EQ(flags(), "1 0 1");
    EXPECT_EQ(mimo().mimoSpatialMute(false), 0U);
    EXPECT_EQ(flags(), "1 1 0");
}

TEST_F(MimoTest, mutingMeansNothingToAChannelWithOneStream)
{
    configure(1, 103);
    EXPECT_EQ(mimo().mimoSpatialMute(true), 0U);
    EXPECT_EQ(blocks(), 1000);
}

TEST_F(MimoTest, samplesOfTapsShowWhatIsLeftOfTheCapacity)
{
    startMimo();
    transmit(1, 100, 200);
    auto& log = require<ITapsControllerLog>("ITapsControllerLog", 1);
    time().advance(1s);
    EXPECT_EQ(log.startLog(), 0U);
    TapsLogData whole;
    EXPECT_EQ(log.readSample(whole), 0U);
    EXPECT_EQ(whole.dspMaxRateMbit, 571);
    EXPECT_EQ(whole.dspMinRateMbit, 95);
    EXPECT_EQ(mimo().mimoSpatialMute(true), 0U);
    EXPECT_EQ(log.startLog(), 0U);
    TapsLogData half;
    EXPECT_EQ(log.readSample(half), 0U);
    EXPECT_EQ(half.dspMaxRateMbit, 285);
    EXPECT_EQ(half.dspMinRateMbit, 47);
    EXPECT_EQ(half.dspRateMbit, whole.dspRateMbit / 2);
}

TEST_F(MimoTest, calibrationWaitsRunsAndEnds)
{
    using enum MimoCalibrationStatus;
    EXPECT_EQ(calibration(), Disabled);
    startMimo();
    startCalibration();
    EXPECT_EQ(calibration(), WaitingToStart);
    time().advance(999ms);
    EXPECT_EQ(calibration(), WaitingToStart);
    time().advance(1ms);
    EXPECT_EQ(calibration(), InProgress);
    time().advance(1999ms);
    EXPECT_EQ(calibration(), InProgress);
    time().advance(1ms);
    EXPECT_EQ(calibration(), Success);
    startCalibration();
    EXPECT_EQ(calibration(), WaitingToStart) << "it can be repeated";
}

TEST_F(MimoTest, calibrationWithoutALinkTimesOut)
{
    using enum MimoCalibrationStatus;
    startCalibration();
    time().advance(999ms);
    EXPECT_EQ(calibration(), WaitingToStart);
    time().advance(1ms);
    EXPECT_EQ(calibration(), TimeoutFailure);
}

TEST_F(MimoTest, calibrationWhoseLinkGoesDownTimesOut)
{
    using enum MimoCalibrationStatus;
    startMimo();
    node().faults().inject({"MimoCalibration", "correlate", 1, 0x8000, 1});
    startCalibration();
    time().advance(1s);
    EXPECT_EQ(calibration(), InProgress);
    node().setFarEndTransmits(false);
    time().advance(2s);
    EXPECT_EQ(calibration(), TimeoutFailure);
    EXPECT_EQ(node().faults().list().size(), 1U) << "it came to no correlating";
}

TEST_F(MimoTest, calibrationFindsNoCorrelationIfThatWasOrdered)
{
    using enum MimoCalibrationStatus;
    startMimo();
    node().faults().inject({"MimoCalibration", "correlate", 1, 0x8000, 1});
    startCalibration();
    time().advance(2999ms);
    EXPECT_EQ(calibration(), InProgress);
    time().advance(1ms);
    EXPECT_EQ(calibration(), NoCorrelationFailure);
    startCalibration();
    time().advance(3s);
    EXPECT_EQ(calibration(), Success) << "the order was for one";
}

TEST_F(MimoTest, calibrationThatIsStartedAnewBeginsAtTheStart)
{
    using enum MimoCalibrationStatus;
    startMimo();
    startCalibration();
    time().advance(2s);
    EXPECT_EQ(calibration(), InProgress);
    startCalibration();
    time().advance(999ms);
    EXPECT_EQ(calibration(), WaitingToStart);
    time().advance(2s);
    EXPECT_EQ(calibration(), InProgress);
    time().advance(1ms);
    EXPECT_EQ(calibration(), Success);
}

} // namespace
