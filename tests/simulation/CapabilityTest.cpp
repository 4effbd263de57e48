#include "CStorageManager.h"
#include "ICapabilityHandler.h"
#include "IOutputPowerCalculator.h"
#include "IRadioCapability.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <vector>

namespace
{

using zyr_top_api::Modulation;
using zyr_top_api::ReferenceSec;
using enum zyr_top_api::ModulationAndCoding;

class CapabilityTest : public SimulationFixture
{
  protected:
    static IRadioCapability& radio() { return require<IRadioCapability>("IRadioCapability", 1); }
    static ICapabilityHandler& capability() { return require<ICapabilityHandler>("ICapabilityHandler", 1); }
    static IOutputPowerCalculator& calculator()
    {
        return require<IOutputPowerCalculator>("IOutputPowerCalculator", 1);
    }

    static ModulationAndCoding limitOf(unsigned radioFrameId)
    {
        std::vector<std::int16_t> profile;
        EXPECT_EQ(hardware().getPerformanceProfileArray(1, radioFrameId, profile), 0U);
        return capability().getMaxAcmLimitedByHw(profile);
    }

    struct Powers
    {
        std::uint32_t result;
        int least;
        std::map<ModulationAndCoding, int> greatest;
    };

    static Powers powers(int radioFrameId, ModulationAndCoding min, ModulationAndCoding max)
    {
        Powers powers{0, 12345, {}};
        powers.result = calculator().getMaxOutputPower(radioFrameId, min, max, ReferenceSec::Sec2,
                                                       powers.least, powers.greatest);
        return powers;
    }

    /// The content of a storage variable.
    static std::int32_t stored(const char* name)
    {
        void* address = nullptr;
        EXPECT_LT(CStorageManager_GetVariableContentAddressByName(name, &address), 0x8000U) << name;
        return address == nullptr ? 0 : *static_cast<std::int32_t*>(address);
    }
};

TEST_F(CapabilityTest, radioTypesDifferInTheirBands)
{
    const auto first = radio().getFrequencyCapability();
    EXPECT_EQ(first.FrequencyBand, 15U);
    EXPECT_EQ(first.MinTXFrequency, 14'500'000U);
    EXPECT_EQ(first.MaxTXFrequency, 14'620'000U);
    EXPECT_EQ(first.MinRXFrequency, 14'920'000U);
    EXPECT_EQ(first.MaxRXFrequency, 15'040'000U);
    EXPECT_EQ(first.FrequencyStepSize, 250U);
    EXPECT_EQ(first.MaxTXFrequencyStep, 480U);
    startNode({.radioType = 2});
    EXPECT_EQ(radio().getFrequencyCapability().FrequencyBand, 23U);
    EXPECT_EQ(frequencies(1).setTxFrequency(22'300'000, 1), 0U);
    startNode({.radioType = 3});
    EXPECT_EQ(radio().getFrequencyCapability().FrequencyBand, 6U);
}

TEST_F(CapabilityTest, unknownRadioTypeIsRefused)
{
    endNode();
    EXPECT_THROW(startNode({.radioType = 0}), std::invalid_argument);
    EXPECT_THROW(startNode({.radioType = 4}), std::invalid_argument);
}

TEST_F(CapabilityTest, duplexTypeIsASetting)
{
    EXPECT_EQ(radio().getFrequencyCapability().DuplexType, 0U);
    node().setDuplexType(1);
    EXPECT_EQ(radio().getFrequencyCapability().DuplexType, 1U);
    node().setDuplexType(2);
    EXPECT_EQ(radio().getFrequencyCapability().DuplexType, 2U);
}

TEST_F(CapabilityTest, featuresFollowTheRadioTypeAndTheSettings)
{
    EXPECT_TRUE(radio().getFeatureCapability().RfLoopAvailable);
    EXPECT_FALSE(radio().getFeatureCapability().CarrierAggregationCapable);
    EXPECT_FALSE(radio().getFeatureCapability().Is2T2R);
    node().setTwoTransmitters(true);
    EXPECT_TRUE(radio().getFeatureCapability().Is2T2R);
    startNode({.radioType = 2});
    EXPECT_TRUE(radio().getFeatureCapability().CarrierAggregationCapable);
    startNode({.radioType = 3});
    EXPECT_TRUE(radio().getFeatureCapability().SpaceDiversityCombinerCapable);
    EXPECT_TRUE(radio().getFeatureCapability().LongHaulBoosterCapable);
    EXPECT_FALSE(radio().getFeatureCapability().RfLoopAvailable);
}

TEST_F(CapabilityTest, carrierAggregationIsRefusedByARadioThatCannot)
{
    EXPECT_EQ(hardware().setRauCarrierAggregation(true), 0x8000U);
    EXPECT_EQ(hardware().setRauCarrierAggregation(false), 0U);
    startNode({.radioType = 2});
    EXPECT_EQ(hardware().setRauCarrierAggregation(true), 0U);
    EXPECT_TRUE(dspControl(1).isCarrierAggregationActive());
}

TEST_F(CapabilityTest, longHaulIsASetting)
{
    EXPECT_FALSE(capability().isLonghaul());
    node().setLongHaul(true);
    EXPECT_TRUE(capability().isLonghaul());
    EXPECT_TRUE(capability().isTapsCapable());
}

TEST_F(CapabilityTest, hardwareLimitsTheModulationOfWideFrames)
{
    EXPECT_TRUE(capability().isMaxAcmLimitedByHw());
    EXPECT_EQ(limitOf(103), QAM_4096_LIGHT) << "56 MHz";
    EXPECT_EQ(limitOf(104), QAM_1024_LIGHT) << "112 MHz";
    EXPECT_EQ(limitOf(105), HALF_BPSK_STRONG) << "224 MHz can't be used at all";
    startNode({.radioType = 2});
    EXPECT_FALSE(capability().isMaxAcmLimitedByHw());
    EXPECT_EQ(limitOf(105), QAM_4096_LIGHT);
}

TEST_F(CapabilityTest, profileOfAnUnknownFrameIsRefused)
{
    std::vector<std::int16_t> profile;
    EXPECT_EQ(hardware().getPerformanceProfileArray(1, 999, profile), 0xA100U);
    EXPECT_TRUE(profile.empty());
    EXPECT_EQ(capability().getMaxAcmLimitedByHw({}), HALF_BPSK_STRONG);
    EXPECT_EQ(capability().getMaxAcmLimitedByHw({-1, 500}), HALF_BPSK_STRONG);
}

TEST_F(CapabilityTest, denserModulationsHaveLessPower)
{
    const auto all = powers(103, QAM_4_STRONG, QAM_16);
    EXPECT_EQ(all.result, 0U);
    EXPECT_EQ(all.least, -50);
    EXPECT_EQ(
        all.greatest,
        (std::map<ModulationAndCoding, int>{
            {QAM_4_STRONG, 250}, {QAM_4, 250}, {QAM_4_LIGHT, 250}, {QAM_16_STRONG, 240}, {QAM_16, 240}}));
}

TEST_F(CapabilityTest, temporaryCutbackReplacesTheOtherWhileItIsSet)
{
    EXPECT_EQ(calculator().setPowerCutBack(10), 0U);
    EXPECT_EQ(powers(103, QAM_4, QAM_4).greatest.at(QAM_4), 240);
    EXPECT_EQ(calculator().setTemporaryMaxPowerCutback(true, 55), 0U);
    EXPECT_EQ(powers(103, QAM_4, QAM_4).greatest.at(QAM_4), 195);
    EXPECT_EQ(calculator().setTemporaryMaxPowerCutback(false, 0), 0U);
    EXPECT_EQ(powers(103, QAM_4, QAM_4).greatest.at(QAM_4), 240);
}

TEST_F(CapabilityTest, powersOfAnUnknownFrameOrRangeAreRefused)
{
    EXPECT_EQ(powers(999, QAM_4, QAM_16).result, 0x800AU);
    EXPECT_EQ(powers(-1, QAM_4, QAM_16).result, 0x800AU);
    EXPECT_EQ(powers(103, QAM_16, QAM_4).result, 0xA100U);
    EXPECT_EQ(powers(103, QAM_4, UNDEFINED).result, 0xA100U);
    EXPECT_EQ(powers(103, QAM_16, QAM_4).least, 12345);
}

TEST_F(CapabilityTest, boosterAddsItsGainWhereTheRadioTakesOne)
{
    EXPECT_EQ(calculator().setBooster(1, 60, 200, Modulation::QAM_256), 0x8000U);
    EXPECT_EQ(calculator().setBooster(0, 0, 0, Modulation::UNDEFINED), 0U);
    startNode({.radioType = 3});
    EXPECT_EQ(powers(103, QAM_4, QAM_4).greatest.at(QAM_4), 300);
    EXPECT_EQ(calculator().setBooster(1, 60, 310, Modulation::QAM_256), 0U);
    EXPECT_EQ(powers(103, QAM_4, QAM_4).greatest.at(QAM_4), 360);
}

TEST_F(CapabilityTest, hardwareVariablesAreThereAsLongAsTheNode)
{
    EXPECT_EQ(stored("common.minTemp"), -33);
    EXPECT_EQ(stored("common.maxTemp"), 55);
    EXPECT_EQ(stored("common.xpicCapable"), 1);
    endNode();
    void* address = nullptr;
    EXPECT_GE(CStorageManager_GetVariableContentAddressByName("common.minTemp", &address), 0x8000U);
}

TEST_F(CapabilityTest, refusedSecondNodeLeavesTheVariablesOfTheFirst)
{
    EXPECT_THROW(zyr_simulation::SimulatedNode({}, time()), std::runtime_error);
    EXPECT_EQ(stored("common.maxTemp"), 55);
}

} // namespace
