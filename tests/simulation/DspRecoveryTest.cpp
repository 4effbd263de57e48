#include "RecoveryController.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <chrono>

namespace
{

using namespace std::chrono_literals;
using nord::zyr::services::recovery::RecoveryController;
using zyr_top_api::EDspChannelState;
using zyr_top_api::FFConfigType;
using zyr_top_api::Recover;

class DspRecoveryTest : public SimulationFixture
{
  protected:
    static RecoveryController& controller() { return require<RecoveryController>("RecoveryController"); }

    /// Brings a frame format type into force.
    void changeTo(FFConfigType type)
    {
        bool needed = false;
        EXPECT_EQ(dspControl(1).checkDspReconfiguration(type, needed), 0U);
        EXPECT_EQ(controller().startDspRecovery(Recover::Dsp), 0U);
        time().advance(5s);
    }
};

TEST_F(DspRecoveryTest, recoveryFollowsFromTheTypesBeforeAndAfter)
{
    using enum FFConfigType;
    struct Row
    {
        FFConfigType from;
        FFConfigType to;
        Recover needed;
        bool dueToCarrierAggregation;
    };
    for (const auto& row :
         {Row{Std, Std, Recover::None, false}, Row{LHStd, Std, Recover::None, false},
          Row{LHXpic2, Xpic2, Recover::None, false}, Row{LHXpic, Xpic, Recover::None, false},
          Row{Std, Mimo2, Recover::Dsp, false}, Row{LHXpic2, Std, Recover::Dsp, false},
          Row{Std, Xpic, Recover::DspWithoutConfig, false}, Row{Mimo, Mrc, Recover::DspWithoutConfig, false},
          Row{Std, Xpic2, Recover::Dsp, false}, Row{Mrc2, Std, Recover::Dsp, false},
          Row{Std, Mrcx, Recover::Dsp, false}, Row{Std, SisoCA, Recover::Dsp, true},
          Row{XpicCA, Std, Recover::Dsp, true}, Row{SisoCA, XpicCA, Recover::Dsp, false},
          Row{XpicCA, XpicCA, Recover::None, false}}) {
        changeTo(row.from);
        auto needed = Recover::None;
        bool dueToCarrierAggregation = !row.dueToCarrierAggregation;
        EXPECT_EQ(dspControl(1).getRequiredRecovery(row.to, needed, dueToCarrierAggregation), 0U);
        EXPECT_EQ(needed, row.needed) << static_cast<int>(row.from) << " to " << static_cast<int>(row.to);
        EXPECT_EQ(dueToCarrierAggregation, row.dueToCarrierAggregation);
    }
}

TEST_F(DspRecoveryTest, anotherTypeNeedsReconfigurationUntilARecoveryBringsItIn)
{
    bool needed = true;
    EXPECT_EQ(dspControl(1).checkDspReconfiguration(FFConfigType::Std, needed), 0U);
    EXPECT_FALSE(needed);
    EXPECT_EQ(dspControl(1).checkDspReconfiguration(FFConfigType::LHStd, needed), 0U);
    EXPECT_TRUE(needed);
    EXPECT_EQ(node().snapshot().dsp.pendingType, FFConfigType::LHStd);
    EXPECT_EQ(node().snapshot().dsp.type, FFConfigType::Std);
    EXPECT_EQ(controller().startDspRecovery(Recover::DspWithoutConfig), 0U);
    EXPECT_EQ(dspControl(2).checkDspReconfiguration(FFConfigType::LHStd, needed), 0U);
    EXPECT_FALSE(needed);
}

TEST_F(DspRecoveryTest, typeThatDoesNotFitTheFrameIsRefused)
{
    bool needed = false;
    EXPECT_EQ(dspControl(1).checkDspReconfiguration(FFConfigType::Unknown, needed), 0xA100U);
    EXPECT_EQ(dspControl(1).checkDspReconfiguration(FFConfigType::Other, needed), 0xA100U);
    EXPECT_FALSE(needed);
}

TEST_F(DspRecoveryTest, recoveryTakesItsTimeUnderAnAlarm)
{
    configure(1);
    EXPECT_TRUE(dspStatus(1).isLinkUp());
    EXPECT_EQ(controller().startDspRecovery(Recover::DspWithoutConfig), 0U);
    EXPECT_FALSE(dspControl(1).isAccessible());
    EXPECT_FALSE(dspStatus(1).isLinkUp());
    EXPECT_EQ(dspChannel(1).getChannelState(), EDspChannelState::Blocked);
    EXPECT_TRUE(dspChannel(1).isConfigured());
    EXPECT_EQ(alarms(), "DspRecovery 0 active 1\nLinkDown 1 active 1\n");
    time().advance(1999ms);
    EXPECT_FALSE(dspControl(1).isAccessible());
    time().advance(1ms);
    EXPECT_TRUE(dspControl(1).isAccessible());
    EXPECT_TRUE(dspStatus(1).isLinkUp());
    EXPECT_EQ(alarms(), "DspRecovery 0 inactive 1\nLinkDown 1 inactive 1\n");
}

TEST_F(DspRecoveryTest, fullRecoveryTakesLongerAndBeginsTheCountsAnew)
{
    configure(1);
    time().advance(10s);
    EXPECT_EQ(controller().startDspRecovery(Recover::Dsp), 0U);
    EXPECT_EQ(node().channel(1).receiver.received.blocks, 0.0);
    time().advance(4999ms);
    EXPECT_TRUE(node().snapshot().dsp.isRecovering);
    time().advance(1ms);
    EXPECT_FALSE(node().snapshot().dsp.isRecovering);
    EXPECT_EQ(node().snapshot().dsp.lastRecovery, Recover::Dsp);
}

TEST_F(DspRecoveryTest, recoveryDuringAnotherIsRefusedAndTheFirstGoesOn)
{
    EXPECT_EQ(controller().startDspRecovery(Recover::DspWithoutConfig), 0U);
    time().advance(1500ms);
    EXPECT_EQ(controller().startDspRecovery(Recover::Dsp), 0x8003U);
    time().advance(499ms);
    EXPECT_EQ(controller().startDspRecovery(Recover::DspWithoutConfig), 0x8003U);
    EXPECT_TRUE(node().snapshot().dsp.isRecovering);
    time().advance(1ms);
    EXPECT_FALSE(node().snapshot().dsp.isRecovering);
    EXPECT_EQ(node().snapshot().dsp.recoveries, 1U);
    EXPECT_EQ(controller().startDspRecovery(Recover::Dsp), 0U);
}

TEST_F(DspRecoveryTest, recoveryThatAConfigurationNeedsBeginsTheRunningOneAgain)
{
    const auto recoverInTheMidst = [&] {
        EXPECT_EQ(controller().startDspRecovery(Recover::DspWithoutConfig), 0U);
        time().advance(1500ms);
        EXPECT_EQ(controller().startDspRecovery(Recover::DspWithoutConfig), 0U);
        time().advance(1999ms);
        EXPECT_TRUE(node().snapshot().dsp.isRecovering);
        time().advance(1ms);
        EXPECT_FALSE(node().snapshot().dsp.isRecovering);
    };
    EXPECT_EQ(power(2).overrideTxPowerState(zyr_top_api::ETxPowerOverrideState::ForcedOff), 0U);
    recoverInTheMidst();
    EXPECT_EQ(power(2).overrideTxPowerState(zyr_top_api::ETxPowerOverrideState::AsRequested), 0U);
    EXPECT_EQ(acm(1).muteAcm(), 0U);
    recoverInTheMidst();
    EXPECT_EQ(node().snapshot().dsp.recoveries, 4U);
}

TEST_F(DspRecoveryTest, allChannelsCarryTheirTrafficAgainAsConfigured)
{
    startNode({.fading_dBTenths = 0});
    configure(1);
    configure(2, 102, ModulationAndCoding::QAM_4_STRONG, ModulationAndCoding::QAM_64);
    transmit(1, 0, 100);
    transmit(2, 0, 100);
    time().advance(10s);
    const auto before = node().snapshot();
    EXPECT_EQ(controller().startDspRecovery(Recover::Dsp), 0U);
    time().advance(1s);
    EXPECT_EQ(alarms(), "DspRecovery 0 active 1\nLinkDown 1 active 1\nLinkDown 2 active 1\n");
    EXPECT_EQ(acm(1).getCurrentTxModulationAndCode(), ModulationAndCoding::UNDEFINED);
    time().advance(4s);
    EXPECT_EQ(alarms(), "DspRecovery 0 inactive 1\nLinkDown 1 inactive 1\nLinkDown 2 inactive 1\n");
    const auto after = node().snapshot();
    for (const unsigned index : {0U, 1U}) {
        const auto& was = before.channels[index];
        const auto& is = after.channels[index];
        EXPECT_EQ(is.configuration(), EDspChannelState::Configured);
        EXPECT_EQ(is.radioFrameId, was.radioFrameId);
        EXPECT_EQ(is.txFrequency_kHz, was.txFrequency_kHz);
        EXPECT_EQ(is.receiver.rxModulation, was.receiver.rxModulation);
        EXPECT_EQ(is.receiver.txModulation, was.receiver.txModulation);
        EXPECT_EQ(is.transmitter.power, was.transmitter.power);
    }
    EXPECT_EQ(after.channels[1].receiver.rxModulation, ModulationAndCoding::QAM_64);
}

TEST_F(DspRecoveryTest, whatIsNoRecoveryIsRefused)
{
    EXPECT_EQ(controller().startDspRecovery(Recover::None), 0xA100U);
    EXPECT_EQ(controller().startDspRecovery(static_cast<Recover>(3)), 0xA100U);
    EXPECT_EQ(node().snapshot().dsp.recoveries, 0U);
}

TEST_F(DspRecoveryTest, injectedFailuresHitTheNextAccesses)
{
    dspControl(1).injectComError(0x800A, 2);
    bool needed = false;
    EXPECT_EQ(dspControl(1).checkDspReconfiguration(FFConfigType::Std, needed), 0x800AU);
    int mode = 0;
    EXPECT_EQ(dspControl(1).getMimoMode(mode), 0x800AU);
    EXPECT_EQ(dspControl(1).getMimoMode(mode), 0U);
    EXPECT_EQ(dspControl(2).getMimoMode(mode), 0U);
}

} // namespace
