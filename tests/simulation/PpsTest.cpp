#include "IPpsController.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <string>

namespace
{

using namespace std::chrono_literals;
using zyr_top_api::PpsCalibReasonOfFailure;
using zyr_top_api::PpsCalibStatus;
using zyr_top_api::PpsOutputMode;
using zyr_top_api::PpsRtcCalibrationMode;
using zyr_top_api::PpsSource;

constexpr auto kMode = static_cast<PpsRtcCalibrationMode>(4);

/// A node whose hop doesn't fade, with the link of channel 1 up.
class PpsTest : public SimulationFixture
{
  protected:
    PpsTest()
    {
        startNode({.fading_dBTenths = 0});
        configure(1);
    }

    static zyr_top_api::ETIResult start(PpsRtcCalibrationMode mode, std::uint16_t period_ms = 1000)
    {
        return dspChannel(1).ppsRtcCalibrationStart(mode, period_ms);
    }

    void calibrate()
    {
        EXPECT_EQ(start(PpsRtcCalibrationMode::CoarseAndFine), 0U);
        time().advance(3s);
        EXPECT_EQ(status(), "Successful NotRelevant");
    }

    /// Status and reason as they are read.
    static std::string status(unsigned channel = 1)
    {
        auto status = PpsCalibStatus::Undefined;
        auto reason = PpsCalibReasonOfFailure::Undefined;
        EXPECT_EQ(dspChannel(channel).ppsStatusGet(status, reason), 0U);
        return std::string(zyr_top_api::ppsCalibStatusToString(status)) + " " +
               std::string(zyr_top_api::ppsCalibReasonOfFailureToString(reason));
    }

    /// What a calibration gives that is disturbed in the middle of its first step, and told no sooner than at
    /// the step's end.
    template <class Disturbance>
    std::string disturbed(PpsRtcCalibrationMode mode, Disturbance disturbance)
    {
        EXPECT_EQ(start(mode), 0U);
        const std::string running = status();
        const auto half = mode == PpsRtcCalibrationMode::CoarseAndFine ? 1000ms : 500ms;
        time().advance(half);
        disturbance();
        time().advance(half - 1ms);
        EXPECT_EQ(status(), running);
        time().advance(1ms);
        return status();
    }
};

TEST_F(PpsTest, roleIsKept)
{
    auto& pps = require<nord::zyr::pps::IPpsController>("IPpsController2");
    EXPECT_EQ(pps.configureRole(true, PpsOutputMode::Auto), 0U);
    EXPECT_TRUE(node().channel(2).pps.isSlave);
    EXPECT_EQ(node().channel(2).pps.outputMode, PpsOutputMode::Auto);
    EXPECT_FALSE(node().channel(1).pps.isConfigured);
}

TEST_F(PpsTest, sourceOffsetAndOutputAreKeptAlsoWhenTheyAreNone)
{
    EXPECT_EQ(dspChannel(1).ppsConfigure(PpsSource::PeerSC, 4'294'967'295), 0U);
    EXPECT_EQ(dspChannel(1).ppsOutputModeSet(PpsOutputMode::On), 0U);
    EXPECT_EQ(node().channel(1).pps.source, PpsSource::PeerSC);
    EXPECT_EQ(node().channel(1).pps.offset_ns, 4'294'967'295);
    EXPECT_EQ(node().channel(1).pps.outputMode, PpsOutputMode::On);
    EXPECT_EQ(node().channel(2).pps.source, PpsSource::Internal);
    EXPECT_EQ(dspChannel(1).ppsConfigure(static_cast<PpsSource>(7), 0), 0U);
    EXPECT_EQ(dspChannel(1).ppsOutputModeSet(static_cast<PpsOutputMode>(3)), 0U);
    EXPECT_EQ(node().channel(1).pps.source, static_cast<PpsSource>(7));
    EXPECT_EQ(node().channel(1).pps.outputMode, static_cast<PpsOutputMode>(3));
}

TEST_F(PpsTest, coarseCalibrationIsFollowedByAFineOne)
{
    EXPECT_EQ(status(), "NotCalibrated NotRelevant");
    EXPECT_EQ(start(PpsRtcCalibrationMode::CoarseAndFine), 0U);
    EXPECT_EQ(status(), "CoarseInProgress NotRelevant");
    time().advance(1999ms);
    EXPECT_EQ(status(), "CoarseInProgress NotRelevant");
    time().advance(1ms);
    EXPECT_EQ(status(), "FineInProgress NotRelevant");
    time().advance(999ms);
    EXPECT_EQ(status(), "FineInProgress NotRelevant");
    time().advance(1ms);
    EXPECT_EQ(status(), "Successful NotRelevant");
    time().advance(60s);
    EXPECT_EQ(status(), "Successful NotRelevant");
    EXPECT_EQ(status(2), "NotCalibrated NotRelevant");
}

TEST_F(PpsTest, fineCalibrationNeedsACoarseOneThatHasSucceeded)
{
    EXPECT_EQ(start(PpsRtcCalibrationMode::Fine), 0U);
    EXPECT_EQ(status(), "FineInProgress NotRelevant");
    time().advance(1s);
    EXPECT_EQ(status(), "Failed CoarseNeeded");

    EXPECT_EQ(disturbed(PpsRtcCalibrationMode::CoarseAndFine, [&] { node().setFarEndTransmits(false); }),
              "Failed NoResponseFromMaster");
    node().setFarEndTransmits(true);
    EXPECT_EQ(disturbed(PpsRtcCalibrationMode::Fine, [] {}), "Failed CoarseNeeded");

    calibrate();
    EXPECT_EQ(disturbed(PpsRtcCalibrationMode::Fine, [] {}), "Successful NotRelevant");
}

TEST_F(PpsTest, coarseStepCountsAlsoWhenTheFineOneBehindItFails)
{
    EXPECT_EQ(start(PpsRtcCalibrationMode::CoarseAndFine), 0U);
    time().advance(2500ms);
    node().setFarEndTransmits(false);
    time().advance(500ms);
    EXPECT_EQ(status(), "Failed NoResponseFromMaster");
    node().setFarEndTransmits(true);
    EXPECT_EQ(disturbed(PpsRtcCalibrationMode::Fine, [] {}), "Successful NotRelevant");
}

TEST_F(PpsTest, linkThatWasDownFailsTheStepAlsoIfItCameBack)
{
    calibrate();
    for (const auto mode : {PpsRtcCalibrationMode::CoarseAndFine, PpsRtcCalibrationMode::Fine}) {
        EXPECT_EQ(disturbed(mode,
                            [&] {
                                node().setFarEndTransmits(false);
                                time().advance(0ms);
                                node().setFarEndTransmits(true);
                            }),
                  "Failed NoResponseFromMaster");
    }
    node().setFarEndTransmits(false);
    EXPECT_EQ(disturbed(PpsRtcCalibrationMode::Fine, [] {}), "Failed NoResponseFromMaster");
    EXPECT_EQ(disturbed(PpsRtcCalibrationMode::Fine, [&] { node().setFarEndTransmits(true); }),
              "Failed NoResponseFromMaster");
}

TEST_F(PpsTest, otherModulationOfEitherDirectionFailsTheStep)
{
    calibrate();
    const auto before = node().channel(1).receiver;
    EXPECT_EQ(disturbed(PpsRtcCalibrationMode::CoarseAndFine, [&] { node().setPathLoss_dBTenths(1050); }),
              "Failed SlaveAcmSwitch");
    EXPECT_NE(node().channel(1).receiver.rxModulation, before.rxModulation);
    EXPECT_TRUE(node().channel(1).receiver.isLinkUp);
    EXPECT_EQ(disturbed(PpsRtcCalibrationMode::Fine, [&] { node().setPathLoss_dBTenths(1049); }),
              "Successful NotRelevant");

    EXPECT_EQ(disturbed(PpsRtcCalibrationMode::Fine,
                        [&] {
                            EXPECT_EQ(power(1).configurePowerSettings(zyr_top_api::TxRequestedStatus::On, 500,
                                                                      100, 100, 0, 1),
                                      0U);
                        }),
              "Failed SlaveAcmSwitch");
    EXPECT_NE(node().channel(1).receiver.txModulation, before.txModulation);
}

TEST_F(PpsTest, externalSourcesNeedTheirSignal)
{
    calibrate();
    for (const auto source : {PpsSource::External, PpsSource::External2}) {
        node().setPpsSignalPresent(1, true);
        EXPECT_EQ(dspChannel(1).ppsConfigure(source, 0), 0U);
        EXPECT_EQ(disturbed(PpsRtcCalibrationMode::Fine, [] {}), "Successful NotRelevant");
        EXPECT_EQ(disturbed(PpsRtcCalibrationMode::Fine, [&] { node().setPpsSignalPresent(1, false); }),
                  "Failed SlaveLOL");
    }
    for (const auto source : {PpsSource::Internal, PpsSource::PeerSC}) {
        EXPECT_EQ(dspChannel(1).ppsConfigure(source, 0), 0U);
        EXPECT_EQ(disturbed(PpsRtcCalibrationMode::Fine, [] {}), "Successful NotRelevant");
    }
    EXPECT_TRUE(node().channel(2).pps.isSignalPresent);
}

TEST_F(PpsTest, firstDisturbanceIsTold)
{
    const auto loseTheLink = [&] { node().setFarEndTransmits(false); };
    EXPECT_EQ(disturbed(PpsRtcCalibrationMode::Fine, loseTheLink), "Failed CoarseNeeded");
    EXPECT_EQ(dspChannel(1).ppsConfigure(PpsSource::External, 0), 0U);
    node().setPpsSignalPresent(1, false);
    EXPECT_EQ(disturbed(PpsRtcCalibrationMode::CoarseAndFine, [] {}), "Failed SlaveLOL")
        << "the link is down as well";
    node().setPpsSignalPresent(1, true);
    EXPECT_EQ(disturbed(PpsRtcCalibrationMode::CoarseAndFine, [&] { node().setPpsSignalPresent(1, false); }),
              "Failed NoResponseFromMaster");
}

TEST_F(PpsTest, automaticCalibrationRepeatsAfterItsPeriodWhateverItsEnd)
{
    calibrate();
    EXPECT_EQ(start(PpsRtcCalibrationMode::Auto, 1500), 0U);
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(status(), "AutoFineInProgress NotRelevant");
        time().advance(999ms);
        EXPECT_EQ(status(), "AutoFineInProgress NotRelevant");
        time().advance(1ms);
        EXPECT_EQ(status(), round == 1 ? "Failed NoResponseFromMaster" : "Successful NotRelevant");
        node().setFarEndTransmits(round != 0);
        time().advance(1499ms);
        EXPECT_EQ(status(), round == 1 ? "Failed NoResponseFromMaster" : "Successful NotRelevant");
        time().advance(1ms);
    }
    EXPECT_TRUE(node().channel(1).pps.repeats);
    EXPECT_EQ(node().channel(1).pps.period_ms, 1500);
}

TEST_F(PpsTest, automaticCalibrationWithoutAPauseAlwaysRuns)
{
    calibrate();
    EXPECT_EQ(start(PpsRtcCalibrationMode::Auto, 0), 0U);
    for (int look = 0; look < 50; ++look) {
        time().advance(100ms);
        EXPECT_EQ(status(), "AutoFineInProgress NotRelevant");
    }
}

TEST_F(PpsTest, autoOffEndsTheAutomaticCalibrationAndLeavesTheLastResult)
{
    calibrate();
    EXPECT_EQ(start(PpsRtcCalibrationMode::Auto, 500), 0U);
    node().setFarEndTransmits(false);
    time().advance(1200ms);
    EXPECT_EQ(status(), "Failed NoResponseFromMaster");
    node().setFarEndTransmits(true);
    time().advance(300ms);
    EXPECT_EQ(status(), "AutoFineInProgress NotRelevant");
    EXPECT_EQ(start(PpsRtcCalibrationMode::AutoOff), 0U);
    EXPECT_EQ(status(), "Failed NoResponseFromMaster");
    time().advance(60s);
    EXPECT_EQ(status(), "Failed NoResponseFromMaster");
    EXPECT_FALSE(node().channel(1).pps.repeats);
}

TEST_F(PpsTest, autoOffLeavesAnotherCalibrationAlone)
{
    EXPECT_EQ(start(PpsRtcCalibrationMode::AutoOff), 0U);
    EXPECT_EQ(status(), "NotCalibrated NotRelevant");
    EXPECT_EQ(start(PpsRtcCalibrationMode::CoarseAndFine), 0U);
    EXPECT_EQ(start(PpsRtcCalibrationMode::AutoOff), 0U);
    time().advance(3s);
    EXPECT_EQ(status(), "Successful NotRelevant");
}

TEST_F(PpsTest, calibrationThatIsOrderedEndsTheAutomaticOne)
{
    calibrate();
    EXPECT_EQ(start(PpsRtcCalibrationMode::Auto, 100), 0U);
    calibrate();
    time().advance(60s);
    EXPECT_EQ(status(), "Successful NotRelevant");
}

TEST_F(PpsTest, modeThatIsNoneIsRefusedAndChangesNothing)
{
    EXPECT_EQ(start(PpsRtcCalibrationMode::CoarseAndFine), 0U);
    EXPECT_EQ(start(kMode), 0xA100U);
    time().advance(3s);
    EXPECT_EQ(status(), "Successful NotRelevant");
}

TEST_F(PpsTest, hopLengthTimeIsThatOfTheHopAndOfTheRadioUnits)
{
    const auto measured = [&](unsigned radioType, std::uint32_t metres) {
        const unsigned tx[]{14'560'000, 22'100'000, 5'930'000};
        const unsigned rx[]{14'980'000, 23'108'000, 6'182'000};
        startNode({.radioType = radioType, .hopLength_m = metres});
        configure(1, 103, ModulationAndCoding::QAM_4_STRONG, ModulationAndCoding::QAM_4096_LIGHT,
                  tx[radioType - 1], rx[radioType - 1]);
        std::uint32_t time = 0;
        EXPECT_EQ(dspChannel(1).ppsHopLengthTimeGet(time), 0U);
        EXPECT_EQ(node().snapshot().hopLatency_ns, time);
        return time;
    };
    EXPECT_EQ(measured(1, 0), 10'000U);
    EXPECT_EQ(measured(1, 5000), 26'678U);
    EXPECT_EQ(measured(1, 29'979), 109'999U);
    EXPECT_EQ(measured(2, 5000), 24'678U);
    EXPECT_EQ(measured(3, 5000), 30'678U);
}

} // namespace
