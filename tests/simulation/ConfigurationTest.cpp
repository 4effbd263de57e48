#include "SimulationFixture.h"

#include <gtest/gtest.h>

namespace
{

using zyr_top_api::EDspChannelState;
using zyr_top_api::FFConfigType;
using zyr_top_api::RadioChannel;

class ConfigurationTest : public SimulationFixture
{};

TEST_F(ConfigurationTest, channelIsConfiguredWhenAllStepsHaveBeenTaken)
{
    const auto state = [] { return dspChannel(1).getChannelState(); };
    EXPECT_EQ(state(), EDspChannelState::Blocked);
    EXPECT_EQ(hardware().setRadioFrameId(RadioChannel(1), 101, 1), 0U);
    EXPECT_EQ(state(), EDspChannelState::IncompleteConfiguration);
    EXPECT_EQ(frequencies(1).setTxFrequency(14'500'000, 1), 0U);
    EXPECT_EQ(frequencies(1).setRxFrequency(14'920'000, 1), 0U);
    EXPECT_EQ(state(), EDspChannelState::IncompleteConfiguration);
    EXPECT_EQ(acm(1).enableAcm(true), 0U);
    EXPECT_EQ(state(), EDspChannelState::AcmConfigured);
    EXPECT_FALSE(dspChannel(1).isConfigured());
    EXPECT_EQ(CModuleManager_RunGroup(5, 1), 0U);
    EXPECT_EQ(state(), EDspChannelState::Configured);
    EXPECT_TRUE(dspChannel(1).isConfigured());
    EXPECT_EQ(dspChannel(2).getChannelState(), EDspChannelState::Blocked);
}

TEST_F(ConfigurationTest, channelStaysConfiguredWhenAcmIsSwitchedOff)
{
    configure(1);
    EXPECT_EQ(acm(1).enableAcm(false), 0U);
    EXPECT_TRUE(dspChannel(1).isConfigured());
}

TEST_F(ConfigurationTest, closingPhasesFailOnRequest)
{
    node().faults().inject({"CModuleManager", "RunGroup", 2, 0x8042, 1});
    EXPECT_EQ(CModuleManager_RunGroup(5, 1), 0U);
    EXPECT_EQ(CModuleManager_RunGroup(5, 2), 0x8042U);
    EXPECT_FALSE(node().channel(2).closingPhasesRun);
    EXPECT_EQ(CModuleManager_RunGroup(5, 2), 0U);
    EXPECT_TRUE(node().channel(2).closingPhasesRun);
}

TEST_F(ConfigurationTest, closingPhasesOfAChannelThatIsNotThereFail)
{
    EXPECT_GE(CModuleManager_RunGroup(5, 3), 0x8000U);
}

TEST_F(ConfigurationTest, nodeThatIsGoneHasNoClosingPhase)
{
    endNode();
    EXPECT_EQ(CModuleManager_RunGroup(5, 7), 0U);
}

TEST_F(ConfigurationTest, channelIsInUseOnceItsConfigurationIsComplete)
{
    EXPECT_EQ(hardware().setRadioFrameId(RadioChannel(2), 401, 1), 0U);
    EXPECT_FALSE(hardware().isChannelInUse(RadioChannel(2)));
    configure(2);
    EXPECT_TRUE(hardware().isChannelInUse(RadioChannel(2)));
    EXPECT_FALSE(hardware().isChannelInUse(RadioChannel(1)));
    EXPECT_FALSE(hardware().isChannelInUse(RadioChannel(0)));
    EXPECT_FALSE(hardware().isChannelInUse(RadioChannel(3)));
}

TEST_F(ConfigurationTest, unknownFrameOrChannelIsRefused)
{
    EXPECT_EQ(hardware().setRadioFrameId(RadioChannel(1), 999, 1), 0x8000U);
    EXPECT_EQ(hardware().setRadioFrameId(RadioChannel(1), 0, 1), 0x8000U);
    EXPECT_EQ(hardware().setRadioFrameId(RadioChannel(3), 101, 1), 0x8000U);
    EXPECT_EQ(hardware().setRadioFrameId(RadioChannel(0), 101, 1), 0x8000U);
    EXPECT_EQ(node().channel(1).radioFrameId, 0U);
}

TEST_F(ConfigurationTest, frequenciesOutsideTheRadioAreRefused)
{
    for (const unsigned frequency : {14'499'750U, 14'620'250U, 14'500'100U, 0U}) {
        EXPECT_EQ(frequencies(1).setTxFrequency(frequency, 1), 0x8000U) << frequency;
    }
    EXPECT_EQ(frequencies(1).setRxFrequency(14'500'000, 1), 0x8000U);
    EXPECT_EQ(frequencies(1).setTxFrequency(14'620'000, 1), 0U);
    EXPECT_EQ(frequencies(1).setRxFrequency(15'040'000, 1), 0U);
    EXPECT_EQ(frequencies(1).getTxFrequency(), 14'620'000);
    EXPECT_EQ(frequencies(1).getRxFrequency(), 15'040'000);
    EXPECT_EQ(frequencies(2).getTxFrequency(), 0);
}

TEST_F(ConfigurationTest, frameTypesTellXpicAndMimo)
{
    struct Row
    {
        unsigned id;
        FFConfigType type;
        bool xpic;
        bool mimo;
    };
    for (const auto& row :
         {Row{101, FFConfigType::Std, false, false}, Row{202, FFConfigType::Xpic, true, false},
          Row{301, FFConfigType::Mimo, false, true}, Row{411, FFConfigType::Mrc, false, false},
          Row{501, FFConfigType::Mrcx, true, false}}) {
        auto type = FFConfigType::Unknown;
        bool xpic = !row.xpic;
        EXPECT_EQ(hardware().getConfigType(RadioChannel(1), row.id, type), 0U);
        EXPECT_EQ(hardware().isXpicCapable(row.id, xpic), 0U);
        EXPECT_EQ(type, row.type) << row.id;
        EXPECT_EQ(xpic, row.xpic) << row.id;
        EXPECT_EQ(hardware().isMimoCapable(row.id), row.mimo) << row.id;
    }
    auto type = FFConfigType::Mimo;
    bool xpic = true;
    EXPECT_EQ(hardware().getConfigType(RadioChannel(1), 999, type), 0x8000U);
    EXPECT_EQ(hardware().isXpicCapable(999, xpic), 0x8000U);
    EXPECT_EQ(type, FFConfigType::Mimo);
    EXPECT_TRUE(xpic);
    EXPECT_FALSE(hardware().isMimoCapable(999));
}

TEST_F(ConfigurationTest, frameUpdateModeIsKept)
{
    unsigned mode = 9;
    EXPECT_EQ(hardware().getFrameUpdateMode(mode), 0U);
    EXPECT_EQ(mode, 0U);
    EXPECT_EQ(hardware().setFrameUpdateMode(1), 0U);
    EXPECT_EQ(hardware().getFrameUpdateMode(mode), 0U);
    EXPECT_EQ(mode, 1U);
}

TEST_F(ConfigurationTest, releasedFramesAreThoseWithoutTheTwoNewOnes)
{
    const auto all = hardware().getRadioFrames(false);
    const auto released = hardware().getRadioFrames(true);
    EXPECT_EQ(all.size(), 20U);
    EXPECT_EQ(released.size(), 18U);
    for (const auto& frame : released) {
        EXPECT_NE(frame.radioFrameId, 105U);
        EXPECT_NE(frame.radioFrameId, 303U);
    }
}

TEST_F(ConfigurationTest, frameRecordHasItsModulationsWithCapacity)
{
    const auto frame = hardware().getRadioFrames(true).at(1);
    EXPECT_EQ(frame.radioFrameId, 102U);
    EXPECT_EQ(frame.channelSpacing, 28'000);
    EXPECT_EQ(frame.telecomStd, "ETSI");
    EXPECT_EQ(frame.airInterface, "28 MHz");
    ASSERT_EQ(frame.modulations.size(), 30U);
    EXPECT_EQ(frame.modulations.front().name, "4QAM_STRONG");
    EXPECT_EQ(frame.modulations.front().linkType, FFConfigType::Std);
    EXPECT_EQ(frame.modulations.front().capacity, 47'600U);
    EXPECT_EQ(frame.modulations.back().name, "4096QAM_LIGHT");
    EXPECT_EQ(frame.modulations.back().capacity, 285'600U);
}

TEST_F(ConfigurationTest, settingsReachTheCollaborators)
{
    EXPECT_FALSE(power(1).isConfigurationBypassed());
    node().setConfigurationBypassed(true);
    EXPECT_TRUE(power(1).isConfigurationBypassed());

    EXPECT_FALSE(dspControl(2).isCarrierAggregationActive());
    node().setCarrierAggregation(true);
    EXPECT_TRUE(dspControl(2).isCarrierAggregationActive());
    EXPECT_TRUE(node().snapshot().settings.carrierAggregation);
}

} // namespace
