#include "SimulatedNode.h"

#include "IAcmHandler.h"
#include "IAlarmHandlerTopApi.h"
#include "InterfaceBroker.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <map>

namespace
{

using namespace zyr_simulation;
using enum zyr_top_api::ModulationAndCoding;
using zyr_top_api::Modulation;

class SimulatedNodeTest : public SimulationFixture
{};

TEST_F(SimulatedNodeTest, publishesItsCollaboratorsWhileItLives)
{
    EXPECT_NE(find<IAcmHandler>("IAcmHandler_1"), nullptr);
    EXPECT_NE(find<IAcmHandler>("IAcmHandler_2"), nullptr);
    EXPECT_EQ(find<IAcmHandler>("IAcmHandler_3"), nullptr);
    EXPECT_NE(find<IAlarmHandlerTopApi>("IAlarmHandlerTopApi"), nullptr);
    endNode();
    EXPECT_TRUE(InterfaceBroker::getInstance().interfaces().empty());
}

TEST_F(SimulatedNodeTest, nodeWithOneChannelPublishesNothingForTheSecond)
{
    startNode({.channels = 1});
    EXPECT_NE(find<IAcmHandler>("IAcmHandler_1"), nullptr);
    EXPECT_EQ(find<IAcmHandler>("IAcmHandler_2"), nullptr);
    EXPECT_EQ(node().snapshot().channels.size(), 1U);
}

TEST_F(SimulatedNodeTest, refusesOtherCountsOfChannels)
{
    endNode();
    EXPECT_THROW(startNode({.channels = 0}), std::invalid_argument);
    EXPECT_THROW(startNode({.channels = 3}), std::invalid_argument);
}

TEST_F(SimulatedNodeTest, secondNodeIsRefusedAndLeavesTheFirstPublished)
{
    const auto published = InterfaceBroker::getInstance().interfaces();
    EXPECT_THROW(SimulatedNode({}, time()), std::runtime_error);
    EXPECT_EQ(InterfaceBroker::getInstance().interfaces(), published);
}

TEST_F(SimulatedNodeTest, nodeThatMeetsATakenNameWithdrawsWhatItHasPublished)
{
    endNode();
    IInterface taken;
    InterfaceBroker::getInstance().registerInterface("IAcmHandler_2", &taken);
    EXPECT_THROW(startNode(), std::runtime_error);
    EXPECT_EQ(InterfaceBroker::getInstance().interfaces(),
              (std::map<std::string, IInterface*>{{"IAcmHandler_2", &taken}}));
    InterfaceBroker::getInstance().unregisterInterface("IAcmHandler_2");
}

TEST_F(SimulatedNodeTest, stateOfAChannelThatIsNotThereIsRefused)
{
    EXPECT_THROW(node().channel(0), std::out_of_range);
    EXPECT_THROW(node().channel(3), std::out_of_range);
}

class SimulatedAcmHandlerTest : public SimulationFixture
{
  protected:
    IAcmHandler& acm(unsigned channel) { return require<IAcmHandler>("IAcmHandler", channel); }
};

TEST_F(SimulatedAcmHandlerTest, enablesEachChannelForItself)
{
    EXPECT_EQ(acm(2).enableAcm(true), 0U);
    EXPECT_FALSE(node().channel(1).acmEnabled);
    EXPECT_TRUE(node().channel(2).acmEnabled);
    EXPECT_EQ(acm(2).enableAcm(false), 0U);
    EXPECT_FALSE(node().channel(2).acmEnabled);
}

TEST_F(SimulatedAcmHandlerTest, mutingEndsWithRestoreAndWithEnable)
{
    EXPECT_EQ(acm(1).muteAcm(), 0U);
    EXPECT_TRUE(node().channel(1).acmMuted);
    EXPECT_EQ(acm(1).restoreAcm(), 0U);
    EXPECT_FALSE(node().channel(1).acmMuted);
    EXPECT_EQ(acm(1).muteAcm(), 0U);
    EXPECT_EQ(acm(1).enableAcm(false), 0U);
    EXPECT_TRUE(node().channel(1).acmMuted);
    EXPECT_EQ(acm(1).enableAcm(true), 0U);
    EXPECT_FALSE(node().channel(1).acmMuted);
}

TEST_F(SimulatedAcmHandlerTest, keepsARangeThatAscendsAndRefusesOthers)
{
    EXPECT_EQ(acm(1).setMinMaxModulationAndCode(QAM_4_STRONG, QAM_1024), 0U);
    EXPECT_EQ(node().channel(1).minModulation, QAM_4_STRONG);
    EXPECT_EQ(node().channel(1).maxModulation, QAM_1024);
    EXPECT_EQ(acm(1).setMinMaxModulationAndCode(QAM_64, QAM_16), 0x8000U);
    EXPECT_EQ(acm(1).setMinMaxModulationAndCode(QAM_4, UNDEFINED), 0x8000U);
    EXPECT_EQ(node().channel(1).maxModulation, QAM_1024);
    // The ultra strong code has the greater number, but is the more robust one.
    EXPECT_EQ(acm(1).setMinMaxModulationAndCode(QAM_16_ULTRA_STRONG, QAM_16_STRONG), 0U);
    EXPECT_EQ(acm(1).setMinMaxModulationAndCode(QAM_16_STRONG, QAM_16_ULTRA_STRONG), 0x8000U);
}

TEST_F(SimulatedAcmHandlerTest, phyModeGrowsWithTheModulation)
{
    const auto phyMode = [&](zyr_top_api::ModulationAndCoding modulation) {
        unsigned value = 12345;
        EXPECT_EQ(acm(1).getPhyMode(modulation, value), 0U);
        return value;
    };
    EXPECT_EQ(phyMode(HALF_BPSK_STRONG), 0U);
    EXPECT_EQ(phyMode(HALF_BPSK), 1U);
    EXPECT_EQ(phyMode(BPSK_STRONG), 3U);
    EXPECT_EQ(phyMode(QAM_4_ULTRA_STRONG), 6U);
    EXPECT_EQ(phyMode(QAM_4_STRONG), 7U);
    EXPECT_EQ(phyMode(QAM_65536_LIGHT), 52U);
    unsigned untouched = 12345;
    EXPECT_EQ(acm(1).getPhyMode(UNDEFINED, untouched), 0x8000U);
    EXPECT_EQ(untouched, 12345U);
}

TEST_F(SimulatedAcmHandlerTest, farEndCapabilityDiffersUntilItIsSet)
{
    const std::map<Modulation, int> capability{{Modulation::QAM_4, 250}};
    EXPECT_EQ(acm(1).isFarEndPmaxCapabilityDifferent(capability), 3U);
    EXPECT_EQ(acm(1).setFarEndPmaxCapability(capability), 0x800CU) << "the channel isn't configured";
    EXPECT_EQ(acm(1).isFarEndPmaxCapabilityDifferent(capability), 0U);
    EXPECT_TRUE(node().channel(1).farEndPmaxCached);
}

} // namespace
