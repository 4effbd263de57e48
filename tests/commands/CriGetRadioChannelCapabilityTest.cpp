#include "CommandTest.h"
#include "CriGetRadioChannelCapabilityImpl.h"
#include "ExtremeValues.h"
#include "NodeDoubles.h"
#include "Storage.h"

#include <gtest/gtest.h>

namespace zyr_top_api
{
namespace
{

class CriGetRadioChannelCapabilityTest : public zyr_test::CommandTest
{
  protected:
    using Response = CriGetRadioChannelCapability::Response;

    CriGetRadioChannelCapabilityTest()
    {
        storage.set("common.minTemp", -33);
        storage.set("common.maxTemp", 55);
        equip(node.channel1);
        equip(node.channel2);
        publishNode(node);
        transcript.clear();
    }
    ~CriGetRadioChannelCapabilityTest() override
    {
        storage.remove("common.minTemp");
        storage.remove("common.maxTemp");
    }

    static void equip(zyr_test::ChannelDoubles& channel)
    {
        channel.radioCapability.onGetFrequencyCapability = FrequencyCapability{.FrequencyBand = 15,
                                                                               .FrequencySubBand = 11,
                                                                               .MinTXFrequency = 14501000,
                                                                               .MaxTXFrequency = 14732000,
                                                                               .MinRXFrequency = 14921000,
                                                                               .MaxRXFrequency = 15152000,
                                                                               .FrequencyStepSize = 250,
                                                                               .TXBaseFrequency = 14400000,
                                                                               .RXBaseFrequency = 14800000,
                                                                               .MinTXFrequencyStep = 404,
                                                                               .MaxTXFrequencyStep = 1328,
                                                                               .MinRXFrequencyStep = 484,
                                                                               .MaxRXFrequencyStep = 1408,
                                                                               .DuplexType = 1};
        channel.radioCapability.onGetFeatureCapability =
            FeatureCapability{.RfLoopAvailable = true,
                              .CarrierAggregationCapable = false,
                              .SpaceDiversityCombinerCapable = true,
                              .LongHaulBoosterCapable = false,
                              .PathLatencyCapable = true,
                              .Is2T2R = false};
        channel.outputPowerCalculator.onGetMaxOutputPower = {
            eTI_S_OK, -10,
            std::map<ModulationAndCoding, int>{{ModulationAndCoding::QAM_16, 21},
                                               {ModulationAndCoding::QAM_4_STRONG, 24},
                                               {ModulationAndCoding::QAM_1024, -3}}};
        channel.capabilityHandler.onIsTapsCapable = true;
    }

    static CriGetRadioChannelCapability::Command command(std::uint32_t channel, bool isCutbackValid = false)
    {
        CriGetRadioChannelCapability::Command request;
        request.RadioChannelID = channel;
        request.radioFrameId = 77;
        request.minModulation = ModulationAndCoding::QAM_4_STRONG;
        request.maxModulation = ModulationAndCoding::QAM_1024;
        request.referenceSec = ReferenceSec::Sec6HB;
        request.availableMaxPowerCutback = 4;
        request.isMaxPowerCutbackValid = isCutbackValid;
        return request;
    }

    void initialise() { ASSERT_EQ(impl.initialize(2), eTI_S_OK) << transcript.text(); }

    /// The data of a response, printed as if it hadn't failed.
    static std::string dataOf(Response response)
    {
        setResult(response, eTI_S_OK, "");
        return response.printResponse();
    }

    zyr_platform::Storage& storage = zyr_platform::Storage::get();
    zyr_test::NodeDoubles node{transcript};
    zyr_test::ChannelDoubles& one = node.channel1;
    CriGetRadioChannelCapabilityImpl impl;
};

TEST_F(CriGetRadioChannelCapabilityTest, WithoutCutbackThePowerIsReadAlone)
{
    enrol<CriGetRadioChannelCapabilityImpl>();
    tell(criGetRadioChannelCapability(command(1)));
    EXPECT_EQ(transcript.text(), R"(
IRadioCapability_1.getFrequencyCapability()
IRadioCapability_1.getFeatureCapability()
IOutputPowerCalculator_1.getMaxOutputPower(77, 30, 101, 8)
ICapabilityHandler_1.isTapsCapable()
result 0x0 0 ""
prints NumberOfChannels: 2, MinTemp: -33, MaxTemp: 55, AvailableMinRFOutputPower: -10, AvailableMaxRFOutputPower: Modulation:4QAM_STRONG Pmax:24\x09Modulation:16QAM Pmax:21\x09Modulation:1024QAM Pmax:-3\x09, MinTXFrequency: 14501000, MaxTXFrequency: 14732000, MinRXFrequency: 14921000, MaxRXFrequency: 15152000, FrequencyStepSize: 250, MinTXFrequencyStep: 404, MaxTXFrequencyStep: 1328, MinRXFrequencyStep: 484, MaxRXFrequencyStep: 1408, TXBaseFrequency: 14400000, RXBaseFrequency: 14800000, FrequencyBand: 15, FrequencySubBand: 11, DuplexType: Fixed, AvailableRSECs: 2\x094L\x094H\x095B\x096B\x095LB\x095HB\x096LB\x096HB\x097B\x09\n, TapsCapable: 1, RfLoopAvailable: 1, CarrierAggregationCapable: 0, SpaceDiversityCombinerCapable: 1, LongHaulBoosterCapable: 0, PathLatencyCapable: 1, Is2T2R: 0
)");
}

TEST_F(CriGetRadioChannelCapabilityTest, ValidCutbackIsSetAroundTheReadOnce)
{
    initialise();
    const Response response = tell(impl.execute(command(2, true)));
    EXPECT_EQ(response.NumberOfChannels, 2U);
    const std::vector<std::string> lines = transcript.lines();
    ASSERT_EQ(lines.size(), 8U) << transcript.text();
    EXPECT_EQ(lines[0], "IRadioCapability_2.getFrequencyCapability()");
    EXPECT_EQ(lines[1], "IRadioCapability_2.getFeatureCapability()");
    EXPECT_EQ(lines[2], "IOutputPowerCalculator_2.setTemporaryMaxPowerCutback(true, 4)");
    EXPECT_EQ(lines[3], "IOutputPowerCalculator_2.getMaxOutputPower(77, 30, 101, 8)");
    EXPECT_EQ(lines[4], "IOutputPowerCalculator_2.setTemporaryMaxPowerCutback(false, 0)");
    EXPECT_EQ(lines[5], "ICapabilityHandler_2.isTapsCapable()");
    EXPECT_EQ(lines[6], "result 0x0 0 \"\"");
}

TEST_F(CriGetRadioChannelCapabilityTest, ExtremeArgumentsArePassedOnUnchanged)
{
    initialise();
    setTraceLevel("ZYR.TI.CriGetRadioChannelCapability", 5);
    CriGetRadioChannelCapability::Command request;
    request.RadioChannelID = 1;
    request.radioFrameId = kMin;
    request.minModulation = static_cast<ModulationAndCoding>(kUnsignedMax);
    request.maxModulation = static_cast<ModulationAndCoding>(0);
    request.referenceSec = static_cast<ReferenceSec>(kUnsignedMax);
    request.availableMaxPowerCutback = kMin;
    request.isMaxPowerCutbackValid = true;
    EXPECT_EQ(outcome(impl.execute(request)), "result 0x0 0 \"\"");
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.TI.CriGetRadioChannelCapability: RadioChannelID: 1, radioFrameId: -2147483648, minModulation: UNDEFINED, maxModulation: UNDEFINED, referenceSec: UNDEFINED, availableMaxPowerCutback: -2147483648, isMaxPowerCutbackValid: 1\n
IRadioCapability_1.getFrequencyCapability()
IRadioCapability_1.getFeatureCapability()
IOutputPowerCalculator_1.setTemporaryMaxPowerCutback(true, -2147483648)
IOutputPowerCalculator_1.getMaxOutputPower(-2147483648, 4294967295, 0, 4294967295)
IOutputPowerCalculator_1.setTemporaryMaxPowerCutback(false, 0)
ICapabilityHandler_1.isTapsCapable()
)");
}

TEST_F(CriGetRadioChannelCapabilityTest, FrameShowsRequestAndResponseAtLevel5)
{
    enrol<CriGetRadioChannelCapabilityImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriGetRadioChannelCapability", 7);
    criGetRadioChannelCapability(command(3, true));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CRI.GetRadioChannelCapability Request: RadioChannelID: 3, radioFrameId: 77, minModulation: 4QAM_STRONG, maxModulation: 1024QAM, referenceSec: 6HB, availableMaxPowerCutback: 4, isMaxPowerCutbackValid: 1\n
5 ZYR.TI.CriGetRadioChannelCapability: RadioChannelID: 3, radioFrameId: 77, minModulation: 4QAM_STRONG, maxModulation: 1024QAM, referenceSec: 6HB, availableMaxPowerCutback: 4, isMaxPowerCutbackValid: 1\n
5 ZYR.COMM: CRI.GetRadioChannelCapability Response: tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds\n----------------------------------------------------\n
)");
}

TEST_F(CriGetRadioChannelCapabilityTest, FrameRunsAndReturnsUnderTheClassName)
{
    enrol<CriGetRadioChannelCapabilityImpl>();
    setTraceLevel("*", 6);
    setTraceLevel("ZYR.COMM", 3);
    criGetRadioChannelCapability(command(3));
    const std::string text = transcript.text();
    EXPECT_NE(text.find(": Running CriGetRadioChannelCapability::Command\n"), std::string::npos) << text;
    EXPECT_NE(text.find(": Return CriGetRadioChannelCapability::Response\n"), std::string::npos) << text;
}

// Print forms.

TEST_F(CriGetRadioChannelCapabilityTest, CommandPrintsItsDefaultsAndEveryReferenceClass)
{
    CriGetRadioChannelCapability::Command request;
    EXPECT_EQ(request.toString(),
              "RadioChannelID: 1, radioFrameId: 0, minModulation: UNDEFINED, maxModulation: UNDEFINED, "
              "referenceSec: 2, availableMaxPowerCutback: 0, isMaxPowerCutbackValid: 0\n");
    const char* const texts[] = {"2", "4L", "4H", "5B", "6B", "5LB", "5HB", "6LB", "6HB", "7B", "UNDEFINED"};
    for (unsigned value = 0; value < 11; ++value) {
        request.referenceSec = static_cast<ReferenceSec>(value);
        EXPECT_NE(request.toString().find(std::string(", referenceSec: ") + texts[value] + ", avail"),
                  std::string::npos)
            << request.toString();
    }
}

TEST_F(CriGetRadioChannelCapabilityTest, ResponseWithoutDataPrintsItsDefaults)
{
    EXPECT_EQ(Response().printResponse(),
              "NumberOfChannels: 0, MinTemp: 0, MaxTemp: 0, AvailableMinRFOutputPower: 0, "
              "AvailableMaxRFOutputPower: , MinTXFrequency: 0, MaxTXFrequency: 0, MinRXFrequency: 0, "
              "MaxRXFrequency: 0, FrequencyStepSize: 0, MinTXFrequencyStep: 0, MaxTXFrequencyStep: 0, "
              "MinRXFrequencyStep: 0, MaxRXFrequencyStep: 0, TXBaseFrequency: 0, RXBaseFrequency: 0, "
              "FrequencyBand: 0, FrequencySubBand: 0, DuplexType: , AvailableRSECs: \n, TapsCapable: 0, "
              "RfLoopAvailable: 0, CarrierAggregationCapable: 0, SpaceDiversityCombinerCapable: 0, "
              "LongHaulBoosterCapable: 0, PathLatencyCapable: 0, Is2T2R: 0");
}

TEST_F(CriGetRadioChannelCapabilityTest, ExtremeResponsePrintsEveryField)
{
    Response response;
    response.NumberOfChannels = 4294967295U;
    response.MinTemp = kMin;
    response.MaxTemp = kMax;
    response.AvailableMinRFOutputPower = kMin;
    response.AvailableMaxRFOutputPower = {{static_cast<ModulationAndCoding>(kUnsignedMax), kMin},
                                          {ModulationAndCoding::HALF_BPSK, kMax}};
    response.MinTXFrequency = 4294967295U;
    response.MaxTXFrequency = 4294967294U;
    response.MinRXFrequency = 4294967293U;
    response.MaxRXFrequency = 4294967292U;
    response.FrequencyStepSize = 4294967291U;
    response.MinTXFrequencyStep = 4294967290U;
    response.MaxTXFrequencyStep = 4294967289U;
    response.MinRXFrequencyStep = 4294967288U;
    response.MaxRXFrequencyStep = 4294967287U;
    response.TXBaseFrequency = 4294967286U;
    response.RXBaseFrequency = 4294967285U;
    response.FrequencyBand = 4294967284U;
    response.FrequencySubBand = 4294967283U;
    response.DuplexType = "any text";
    response.AvailableRSECs = {ReferenceSec::Sec7B, static_cast<ReferenceSec>(10), ReferenceSec::Sec2};
    response.TapsCapable = true;
    response.RfLoopAvailable = true;
    response.CarrierAggregationCapable = true;
    response.SpaceDiversityCombinerCapable = true;
    response.LongHaulBoosterCapable = true;
    response.PathLatencyCapable = true;
    response.Is2T2R = true;
    EXPECT_EQ(
        response.printResponse(),
        "NumberOfChannels: 4294967295, MinTemp: -2147483648, MaxTemp: 2147483647, "
        "AvailableMinRFOutputPower: -2147483648, AvailableMaxRFOutputPower: Modulation:UNDEFINED "
        "Pmax:-2147483648\tModulation:HALF_BPSK Pmax:2147483647\t, MinTXFrequency: 4294967295, "
        "MaxTXFrequency: 4294967294, MinRXFrequency: 4294967293, MaxRXFrequency: 4294967292, "
        "FrequencyStepSize: 4294967291, MinTXFrequencyStep: 4294967290, MaxTXFrequencyStep: 4294967289, "
        "MinRXFrequencyStep: 4294967288, MaxRXFrequencyStep: 4294967287, TXBaseFrequency: 4294967286, "
        "RXBaseFrequency: 4294967285, FrequencyBand: 4294967284, FrequencySubBand: 4294967283, "
        "DuplexType: any text, AvailableRSECs: 7B\tUNDEFINED\t2\t\n, TapsCapable: 1, RfLoopAvailable: 1, "
        "CarrierAggregationCapable: 1, SpaceDiversityCombinerCapable: 1, LongHaulBoosterCapable: 1, "
        "PathLatencyCapable: 1, Is2T2R: 1");
}

TEST_F(CriGetRadioChannelCapabilityTest, FailedResponsePrintsTheResultLineAlone)
{
    Response response;
    response.NumberOfChannels = 2;
    setResult(response, eTI_E_FAILED, "why");
    EXPECT_EQ(response.printResponse(), "tiResult: eTI_E_FAILED, faultCode: 4, faultString: why");
}

// The channel.

TEST_F(CriGetRadioChannelCapabilityTest, ChannelAboveTheNumberOfChannelsIsRefusedWithoutARecord)
{
    initialise();
    setTraceLevel("ZYR.TI.CriGetRadioChannelCapability", 4);
    tell(impl.execute(command(3)));
    EXPECT_EQ(transcript.text(), R"(
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
)");
    EXPECT_EQ(impl.execute(command(4294967295U)).tiResult, 0xA100);
}

TEST_F(CriGetRadioChannelCapabilityTest, RefusalHoldsNoData)
{
    initialise();
    EXPECT_EQ(dataOf(impl.execute(command(3))), Response().printResponse());
}

TEST_F(CriGetRadioChannelCapabilityTest, ObjectThatWasNotInitialisedRefusesEveryChannel)
{
    EXPECT_EQ(outcome(impl.execute(command(1))), "result 0xA100 2 \"RadioChannelID out of bounds\"");
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(CriGetRadioChannelCapabilityTest, Channel0PassesTheBoundCheckAndHasNoCapabilities)
{
    initialise();
    tell(impl.execute(command(0)));
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriGetRadioChannelCapability: CRI.GetRadioChannelCapability, radio capabilities not available
result 0x8000 4 "CRI.GetRadioChannelCapability, radio capabilities not available"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetRadioChannelCapability, radio capabilities not available
)");
}

// Steps that fail.

TEST_F(CriGetRadioChannelCapabilityTest, RadioCapabilityThatIsLostInASecondInitialiseFails)
{
    initialise();
    withdraw("IRadioCapability_1");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    transcript.clear();
    const Response response = tell(impl.execute(command(1, true)));
    EXPECT_EQ(dataOf(response), Response().printResponse());
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriGetRadioChannelCapability: CRI.GetRadioChannelCapability, radio capabilities not available
result 0x8000 4 "CRI.GetRadioChannelCapability, radio capabilities not available"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetRadioChannelCapability, radio capabilities not available
)");
}

TEST_F(CriGetRadioChannelCapabilityTest, FailedSetOfTheCutbackEndsTheCommandBeforeTheRead)
{
    initialise();
    one.outputPowerCalculator.onSetTemporaryMaxPowerCutback = eTI_E_FAILED;
    const Response response = tell(impl.execute(command(1, true)));
    EXPECT_EQ(response.MinTXFrequency, 14501000U);
    EXPECT_EQ(response.FrequencySubBand, 11U);
    EXPECT_TRUE(response.AvailableMaxRFOutputPower.empty());
    EXPECT_EQ(response.AvailableMinRFOutputPower, 0);
    EXPECT_EQ(response.NumberOfChannels, 0U);
    EXPECT_EQ(transcript.text(), R"(
IRadioCapability_1.getFrequencyCapability()
IRadioCapability_1.getFeatureCapability()
IOutputPowerCalculator_1.setTemporaryMaxPowerCutback(true, 4)
1 ZYR.TI.CriGetRadioChannelCapability: CRI.GetRadioChannelCapability failed to set temporary max power cutback. SPC Result : 32768
result 0x8000 4 "CRI.GetRadioChannelCapability failed to set temporary max power cutback. SPC Result : 32768"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetRadioChannelCapability failed to set temporary max power cutback. SPC Result : 32768
)");
}

TEST_F(CriGetRadioChannelCapabilityTest, FailedReadLeavesTheCutbackSet)
{
    initialise();
    one.outputPowerCalculator.onGetMaxOutputPower = {
        0xFFFFFFFFU, -8, std::map<ModulationAndCoding, int>{{ModulationAndCoding::QAM_16, 21}}};
    const Response response = tell(impl.execute(command(1, true)));
    EXPECT_EQ(response.MaxRXFrequencyStep, 1408U);
    EXPECT_EQ(response.AvailableMinRFOutputPower, -8);
    EXPECT_TRUE(response.AvailableMaxRFOutputPower.empty());
    EXPECT_EQ(response.MinTemp, 0);
    EXPECT_EQ(response.MaxTemp, 0);
    EXPECT_FALSE(response.TapsCapable);
    EXPECT_TRUE(response.AvailableRSECs.empty());
    EXPECT_EQ(transcript.text(), R"(
IRadioCapability_1.getFrequencyCapability()
IRadioCapability_1.getFeatureCapability()
IOutputPowerCalculator_1.setTemporaryMaxPowerCutback(true, 4)
IOutputPowerCalculator_1.getMaxOutputPower(77, 30, 101, 8)
1 ZYR.TI.CriGetRadioChannelCapability: CRI.GetRadioChannelCapability failed to get max output power for each modulation. SPC Result : 4294967295
result 0x8000 4 "CRI.GetRadioChannelCapability failed to get max output power for each modulation. SPC Result : 4294967295"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetRadioChannelCapability failed to get max output power for each modulation. SPC Result : 4294967295
)");
}

TEST_F(CriGetRadioChannelCapabilityTest, FailedReadWith32778IsAnsweredButNotLogged)
{
    initialise();
    setTraceLevel("ZYR.TI.CriGetRadioChannelCapability", 4);
    one.outputPowerCalculator.onGetMaxOutputPower = 32778;
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
IRadioCapability_1.getFrequencyCapability()
IRadioCapability_1.getFeatureCapability()
IOutputPowerCalculator_1.getMaxOutputPower(77, 30, 101, 8)
result 0x8000 4 "CRI.GetRadioChannelCapability failed to get max output power for each modulation. SPC Result : 32778"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetRadioChannelCapability failed to get max output power for each modulation. SPC Result : 32778
)");
}

TEST_F(CriGetRadioChannelCapabilityTest, FailedReadWithAnyOtherResultIsLogged)
{
    initialise();
    for (const unsigned result : {0x8000U, 0x8009U, 0x800BU}) {
        one.outputPowerCalculator.onGetMaxOutputPower = result;
        transcript.clear();
        EXPECT_EQ(impl.execute(command(1)).tiResult, 0x8000);
        EXPECT_EQ(transcript.lines().back(),
                  "1 ZYR.TI.CriGetRadioChannelCapability: CRI.GetRadioChannelCapability failed to get max "
                  "output power for each modulation. SPC Result : " +
                      std::to_string(result));
    }
}

TEST_F(CriGetRadioChannelCapabilityTest, FailedCutbackWith32778IsLogged)
{
    initialise();
    one.outputPowerCalculator.onSetTemporaryMaxPowerCutback = 32778;
    impl.execute(command(1, true));
    EXPECT_EQ(transcript.lines().back(),
              "1 ZYR.TI.CriGetRadioChannelCapability: CRI.GetRadioChannelCapability failed to set temporary "
              "max power cutback. SPC Result : 32778");
    one.outputPowerCalculator.onSetTemporaryMaxPowerCutback.inTurn({eTI_S_OK, 32778});
    impl.execute(command(1, true));
    EXPECT_EQ(
        transcript.lines().back(),
        "1 ZYR.TI.CriGetRadioChannelCapability: CRI.GetRadioChannelCapability failed to unset temporary "
        "max power cutback. SPC Result : 32778");
}

TEST_F(CriGetRadioChannelCapabilityTest, FailedUnsetKeepsFrequenciesAndPowerAndNothingOfTheRest)
{
    initialise();
    one.outputPowerCalculator.onSetTemporaryMaxPowerCutback.inTurn({eTI_S_OK, 0x8001});
    const Response response = tell(impl.execute(command(1, true)));
    EXPECT_EQ(response.MinTXFrequency, 14501000U);
    EXPECT_EQ(response.MaxTXFrequency, 14732000U);
    EXPECT_EQ(response.MinRXFrequency, 14921000U);
    EXPECT_EQ(response.MaxRXFrequency, 15152000U);
    EXPECT_EQ(response.FrequencyStepSize, 250U);
    EXPECT_EQ(response.MinTXFrequencyStep, 404U);
    EXPECT_EQ(response.MaxTXFrequencyStep, 1328U);
    EXPECT_EQ(response.MinRXFrequencyStep, 484U);
    EXPECT_EQ(response.MaxRXFrequencyStep, 1408U);
    EXPECT_EQ(response.TXBaseFrequency, 14400000U);
    EXPECT_EQ(response.RXBaseFrequency, 14800000U);
    EXPECT_EQ(response.FrequencyBand, 15U);
    EXPECT_EQ(response.FrequencySubBand, 11U);
    EXPECT_EQ(response.AvailableMinRFOutputPower, -10);
    EXPECT_EQ(response.AvailableMaxRFOutputPower.size(), 3U);
    EXPECT_EQ(response.NumberOfChannels, 0U);
    EXPECT_EQ(response.MinTemp, 0);
    EXPECT_EQ(response.MaxTemp, 0);
    EXPECT_EQ(response.DuplexType, "");
    EXPECT_TRUE(response.AvailableRSECs.empty());
    EXPECT_FALSE(response.TapsCapable);
    EXPECT_EQ(transcript.text(), R"(
IRadioCapability_1.getFrequencyCapability()
IRadioCapability_1.getFeatureCapability()
IOutputPowerCalculator_1.setTemporaryMaxPowerCutback(true, 4)
IOutputPowerCalculator_1.getMaxOutputPower(77, 30, 101, 8)
IOutputPowerCalculator_1.setTemporaryMaxPowerCutback(false, 0)
1 ZYR.TI.CriGetRadioChannelCapability: CRI.GetRadioChannelCapability failed to unset temporary max power cutback. SPC Result : 32769
result 0x8000 4 "CRI.GetRadioChannelCapability failed to unset temporary max power cutback. SPC Result : 32769"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetRadioChannelCapability failed to unset temporary max power cutback. SPC Result : 32769
)");
}

TEST_F(CriGetRadioChannelCapabilityTest, GreatestSuccessOfEveryStepComesOutAsPlainSuccess)
{
    initialise();
    one.outputPowerCalculator.onSetTemporaryMaxPowerCutback = 0x7FFF;
    one.outputPowerCalculator.onGetMaxOutputPower = 0x7FFF;
    EXPECT_EQ(outcome(impl.execute(command(1, true))), "result 0x0 0 \"\"");
}

// Values.

TEST_F(CriGetRadioChannelCapabilityTest, EmptyPowerTableIsASuccess)
{
    initialise();
    one.outputPowerCalculator.onGetMaxOutputPower = {eTI_S_OK, kMin, std::map<ModulationAndCoding, int>{}};
    const Response response = impl.execute(command(1));
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_TRUE(response.AvailableMaxRFOutputPower.empty());
    EXPECT_EQ(response.AvailableMinRFOutputPower, kMin);
    EXPECT_NE(response.printResponse().find(", AvailableMaxRFOutputPower: , MinTXFrequency: "),
              std::string::npos);
}

TEST_F(CriGetRadioChannelCapabilityTest, CalculatorThatWritesNothingGivesZeroAndAnEmptyTable)
{
    initialise();
    one.outputPowerCalculator.onGetMaxOutputPower = eTI_S_OK;
    const Response response = impl.execute(command(1));
    EXPECT_EQ(response.AvailableMinRFOutputPower, 0);
    EXPECT_TRUE(response.AvailableMaxRFOutputPower.empty());
}

TEST_F(CriGetRadioChannelCapabilityTest, PowerTableIsOrderedByTheNumberOfTheModulation)
{
    EXPECT_TRUE(CriGetRadioChannelCapabilityImpl::maxPowerArrayToVector({}).empty());
    const auto table = CriGetRadioChannelCapabilityImpl::maxPowerArrayToVector(
        {{static_cast<ModulationAndCoding>(kUnsignedMax), kMax},
         {ModulationAndCoding::QAM_65536, 1},
         {ModulationAndCoding::HALF_BPSK_STRONG, kMin}});
    ASSERT_EQ(table.size(), 3U);
    EXPECT_EQ(static_cast<unsigned>(table[0].first), 10U);
    EXPECT_EQ(table[0].second, kMin);
    EXPECT_EQ(static_cast<unsigned>(table[1].first), 161U);
    EXPECT_EQ(table[1].second, 1);
    EXPECT_EQ(static_cast<unsigned>(table[2].first), 4294967295U);
    EXPECT_EQ(table[2].second, kMax);
}

TEST_F(CriGetRadioChannelCapabilityTest, DuplexTypeIsGivenAsText)
{
    initialise();
    std::string texts;
    for (const unsigned duplex : {0U, 1U, 2U, 4294967295U}) {
        FrequencyCapability frequencies;
        frequencies.DuplexType = duplex;
        one.radioCapability.onGetFrequencyCapability = frequencies;
        const Response response = impl.execute(command(1));
        EXPECT_EQ(response.tiResult, 0);
        texts += response.DuplexType + ";";
    }
    EXPECT_EQ(texts, "Variable;Fixed;UNDEFINED;UNDEFINED;");
}

TEST_F(CriGetRadioChannelCapabilityTest, ReferenceClassesAreTheTenWhateverIsAskedFor)
{
    initialise();
    CriGetRadioChannelCapability::Command request = command(1);
    request.referenceSec = static_cast<ReferenceSec>(10);
    const Response response = impl.execute(request);
    ASSERT_EQ(response.AvailableRSECs.size(), 10U);
    for (unsigned sec = 0; sec < 10; ++sec) {
        EXPECT_EQ(static_cast<unsigned>(response.AvailableRSECs[sec]), sec);
    }
}

TEST_F(CriGetRadioChannelCapabilityTest, EachFeatureReachesItsOwnField)
{
    initialise();
    const auto flags = [this](const FeatureCapability& features) {
        one.radioCapability.onGetFeatureCapability = features;
        const std::string text = impl.execute(command(1)).printResponse();
        return text.substr(text.find(", RfLoopAvailable"));
    };
    EXPECT_EQ(flags({.RfLoopAvailable = true}),
              ", RfLoopAvailable: 1, CarrierAggregationCapable: 0, SpaceDiversityCombinerCapable: 0, "
              "LongHaulBoosterCapable: 0, PathLatencyCapable: 0, Is2T2R: 0");
    EXPECT_EQ(flags({.CarrierAggregationCapable = true}),
              ", RfLoopAvailable: 0, CarrierAggregationCapable: 1, SpaceDiversityCombinerCapable: 0, "
              "LongHaulBoosterCapable: 0, PathLatencyCapable: 0, Is2T2R: 0");
    EXPECT_EQ(flags({.SpaceDiversityCombinerCapable = true}),
              ", RfLoopAvailable: 0, CarrierAggregationCapable: 0, SpaceDiversityCombinerCapable: 1, "
              "LongHaulBoosterCapable: 0, PathLatencyCapable: 0, Is2T2R: 0");
    EXPECT_EQ(flags({.LongHaulBoosterCapable = true}),
              ", RfLoopAvailable: 0, CarrierAggregationCapable: 0, SpaceDiversityCombinerCapable: 0, "
              "LongHaulBoosterCapable: 1, PathLatencyCapable: 0, Is2T2R: 0");
    EXPECT_EQ(flags({.PathLatencyCapable = true}),
              ", RfLoopAvailable: 0, CarrierAggregationCapable: 0, SpaceDiversityCombinerCapable: 0, "
              "LongHaulBoosterCapable: 0, PathLatencyCapable: 1, Is2T2R: 0");
    EXPECT_EQ(flags({.Is2T2R = true}),
              ", RfLoopAvailable: 0, CarrierAggregationCapable: 0, SpaceDiversityCombinerCapable: 0, "
              "LongHaulBoosterCapable: 0, PathLatencyCapable: 0, Is2T2R: 1");
}

TEST_F(CriGetRadioChannelCapabilityTest, CapabilityHandlerWithoutABodyOfItsOwnHasNoTaps)
{
    initialise();
    one.capabilityHandler.defaultsInForce = true;
    const Response response = impl.execute(command(1));
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_FALSE(response.TapsCapable);
}

TEST_F(CriGetRadioChannelCapabilityTest, CapabilityHandlerThatIsLostInASecondInitialiseLeavesTapsFalse)
{
    initialise();
    withdraw("ICapabilityHandler_1");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    const Response response = impl.execute(command(1));
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_FALSE(response.TapsCapable);
    EXPECT_EQ(response.AvailableRSECs.size(), 10U);
}

TEST_F(CriGetRadioChannelCapabilityTest, TemperaturesAreReadAtTheMomentOfTheCommand)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    storage.set("common.minTemp", kMin);
    storage.set("common.maxTemp", kMax);
    const Response response = impl.execute(command(1));
    EXPECT_EQ(response.MinTemp, kMin);
    EXPECT_EQ(response.MaxTemp, kMax);
    EXPECT_EQ(response.NumberOfChannels, 1U);
}

// initialize

TEST_F(CriGetRadioChannelCapabilityTest, InitialiseEntersAtLevel6WithoutAText)
{
    setTraceLevel("ZYR.TI.CriGetRadioChannelCapability", 7);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriGetRadioChannelCapability:
)");
}

TEST_F(CriGetRadioChannelCapabilityTest, InitialiseRefusesAnyOtherCountBeforeItLooksAtTheStorage)
{
    storage.remove("common.minTemp");
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(impl.initialize(4294967295U), 0xA100);
    EXPECT_EQ(outcome(impl.execute(command(1))), "result 0xA100 2 \"RadioChannelID out of bounds\"");
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriGetRadioChannelCapability: Error: numberOfChannels is out of range (0)
1 ZYR.TI.CriGetRadioChannelCapability: Error: numberOfChannels is out of range (3)
1 ZYR.TI.CriGetRadioChannelCapability: Error: numberOfChannels is out of range (4294967295)
)");
}

TEST_F(CriGetRadioChannelCapabilityTest, InitialiseTellsTheFirstThatIsMissingWithTheStorageInFront)
{
    for (const char* name : {"IRadioCapability_1", "ICapabilityHandler_1", "IOutputPowerCalculator_1"}) {
        withdraw(name);
        EXPECT_EQ(impl.initialize(2), 0x8000) << name;
    }
    storage.remove("common.maxTemp");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    storage.remove("common.minTemp");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriGetRadioChannelCapability: Error getting interface: IRadioCapability_1
1 ZYR.TI.CriGetRadioChannelCapability: Error getting interface: ICapabilityHandler_1
1 ZYR.TI.CriGetRadioChannelCapability: Error getting interface: IOutputPowerCalculator_1
1 ZYR.TI.CriGetRadioChannelCapability:  Could not get storage variable common.maxTemp
1 ZYR.TI.CriGetRadioChannelCapability:  Could not get storage variable common.minTemp
)");
}

TEST_F(CriGetRadioChannelCapabilityTest, InitialiseGoesChannelByChannelAndKeepsTheOneBefore)
{
    withdraw("IOutputPowerCalculator_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(impl.execute(command(1)).tiResult, 0);
    EXPECT_EQ(outcome(impl.execute(command(2))),
              "result 0x8000 4 \"CRI.GetRadioChannelCapability, radio capabilities not available\"");
    transcript.clear();
    withdraw("IRadioCapability_1");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriGetRadioChannelCapability: Error getting interface: IRadioCapability_1
)");
}

TEST_F(CriGetRadioChannelCapabilityTest, CommandAfterAnInitialiseWithoutStorageFindsNoCapabilities)
{
    storage.remove("common.minTemp");
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(outcome(impl.execute(command(1))),
              "result 0x8000 4 \"CRI.GetRadioChannelCapability, radio capabilities not available\"");
}

TEST_F(CriGetRadioChannelCapabilityTest, SecondInitialiseFetchesTheCollaboratorsAnew)
{
    initialise();
    withdraw("IRadioCapability_1");
    zyr_test::RadioCapabilityDouble other(transcript, "other");
    other.onGetFrequencyCapability = FrequencyCapability{.FrequencyBand = 80};
    publish("IRadioCapability_1", other);
    EXPECT_EQ(impl.initialize(1), 0);
    EXPECT_EQ(impl.execute(command(1)).FrequencyBand, 80U);
    EXPECT_EQ(impl.execute(command(2)).tiResult, 0xA100);
}

} // namespace
} // namespace zyr_top_api
