#include "DspApiFixture.h"
#include "TiManagePathLatencyCompensationImpl.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace zyr_top_api
{
namespace
{

using bcm::types::ModemChain;
using general_classes::Optional;

class TiManagePathLatencyCompensationTest : public zyr_test::DspApiFixture
{
  protected:
    using Command = TiManagePathLatencyCompensation::Command;

    TiManagePathLatencyCompensationTest()
    {
        // Another value per channel, kind and chain.
        for (zyr_test::DspApiDouble* const dsp : {&dspApi1, &dspApi2}) {
            const int channel = dsp == &dspApi1 ? 1 : 2;
            dsp->channelApi.onOnePpsAsymmetryCompensation.inTurn(
                {{true, static_cast<std::int16_t>(channel * -100)}});
            dsp->channelApi.onRxChainDelay.inTurn(samples(channel * 10));
            dsp->channelApi.onRxEqualizerFeedForwardFilterDelay.inTurn(samples(channel * 10 + 100));
        }
    }

    static std::vector<zyr_test::Answer<bool, std::uint8_t>::Reply> samples(int first)
    {
        std::vector<zyr_test::Answer<bool, std::uint8_t>::Reply> replies;
        for (int place = 0; place < 4; ++place) {
            replies.emplace_back(true, static_cast<std::uint8_t>(first + place));
        }
        return replies;
    }

    static Command command(std::uint32_t channel)
    {
        Command made;
        made.radioChannelId = channel;
        return made;
    }

    TiManagePathLatencyCompensationImpl impl;
};

TEST_F(TiManagePathLatencyCompensationTest, EmptyCommandGivesTheNineValuesOfChannel1)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.TiManagePathLatencyCompensation", 7);
    tell(impl.execute({}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManagePathLatencyCompensation:
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.onePpsAsymmetryCompensation(0, 0)
IDspChannelApi_1.rxChainDelay(0, 0, 0)
IDspChannelApi_1.rxChainDelay(0, 1, 0)
IDspChannelApi_1.rxChainDelay(0, 4, 0)
IDspChannelApi_1.rxChainDelay(0, 5, 0)
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(0, 0, 0)
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(0, 1, 0)
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(0, 4, 0)
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(0, 5, 0)
result 0x0 0 ""
prints RadioChannelID: 1, DspValues: OnePpsDelayNanosec: -100, AdjFifoMain: 10, AdjFifoXpicSlave: 11, AdjFifoMimoSpatial: 12, AdjFifoMimoXSpatialSlave: 13, FffFifoMain: 110, FffFifoXpicSlave: 111, FffFifoMimoSpatial: 112, FffFifoMimoXSpatialSlave: 113
)");
}

TEST_F(TiManagePathLatencyCompensationTest, FrameShowsRequestAndResponseAroundAllSetsAndReads)
{
    enrol<TiManagePathLatencyCompensationImpl>();
    openTestGate();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.ZyrTopApi", 6);
    dspApi2.channelApi.onOnePpsAsymmetryCompensation.inTurn({true, {true, std::int16_t{-200}}});
    dspApi2.channelApi.onRxChainDelay.inTurn({true, {true, std::uint8_t{20}}, {true, std::uint8_t{255}}});
    tiManagePathLatencyCompensation({2, -3, ModemChain::MimoSpatial, 21, 22});
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
6 ZYR.ZyrTopApi: Running TiManagePathLatencyCompensation::Command
5 ZYR.COMM: TI.ManagePathLatencyCompensation Request: RadioChannelID: 2OnePpsDelaySet: -3ModemChain: MimoSpatialAdjFifoSamplesSet: 21FffFifoSamplesSet: 22
IDspChannelApi_2.isConfigured()
IDspChannelApi_2.onePpsAsymmetryCompensation(1, -3)
IDspChannelApi_2.rxChainDelay(1, 4, 21)
IDspChannelApi_2.rxEqualizerFeedForwardFilterDelay(1, 4, 22)
IDspChannelApi_2.onePpsAsymmetryCompensation(0, 0)
IDspChannelApi_2.rxChainDelay(0, 0, 0)
IDspChannelApi_2.rxChainDelay(0, 1, 0)
IDspChannelApi_2.rxChainDelay(0, 4, 0)
IDspChannelApi_2.rxChainDelay(0, 5, 0)
IDspChannelApi_2.rxEqualizerFeedForwardFilterDelay(0, 0, 0)
IDspChannelApi_2.rxEqualizerFeedForwardFilterDelay(0, 1, 0)
IDspChannelApi_2.rxEqualizerFeedForwardFilterDelay(0, 4, 0)
IDspChannelApi_2.rxEqualizerFeedForwardFilterDelay(0, 5, 0)
6 ZYR.ZyrTopApi: Return TiManagePathLatencyCompensation::Response
5 ZYR.COMM: TI.ManagePathLatencyCompensation Response: RadioChannelID: 2, DspValues: OnePpsDelayNanosec: -200, AdjFifoMain: 20, AdjFifoXpicSlave: 255, AdjFifoMimoSpatial: 255, AdjFifoMimoXSpatialSlave: 255, FffFifoMain: 121, FffFifoXpicSlave: 122, FffFifoMimoSpatial: 123, FffFifoMimoXSpatialSlave: 123\n----------------------------------------------------\n
)");
}

TEST_F(TiManagePathLatencyCompensationTest, ClosedGateRefusesIt)
{
    enrol<TiManagePathLatencyCompensationImpl>();
    tiManagePathLatencyCompensation({});
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.ZyrTopApi: Error: Command TI.ManagePathLatencyCompensation not available
)");
}

TEST_F(TiManagePathLatencyCompensationTest, RequestPrintsWhatIsPresentAndNothingBetween)
{
    EXPECT_EQ(Command{}.toString(), "");
    EXPECT_EQ((Command{{}, {}, {}, -1, {}}.toString()), "AdjFifoSamplesSet: -1");
    EXPECT_EQ((Command{{}, 70000, {}, {}, 300}.toString()), "OnePpsDelaySet: 70000FffFifoSamplesSet: 300");
    const std::pair<std::uint32_t, const char*> chains[] = {
        {0, "Main"},         {1, "XpicSlave"},         {2, "MrcDiversity"}, {3, "MrcDiversitySlave"},
        {4, "MimoSpatial"},  {5, "MimoXSpatialSlave"}, {6, "Max"},          {7, "Max"},
        {4294967295U, "Max"}};
    for (const auto& [chain, name] : chains) {
        EXPECT_EQ((Command{{}, {}, static_cast<ModemChain>(chain), {}, {}}.toString()),
                  std::string("ModemChain: ") + name);
    }
}

TEST_F(TiManagePathLatencyCompensationTest, DelaysOfChainsCountOnlyTogetherWithAChain)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    for (const Command& without :
         {Command{{}, {}, {}, 5, {}}, Command{{}, {}, {}, {}, 6}, Command{{}, {}, {}, 5, 6},
          Command{{}, {}, ModemChain::XpicSlave, {}, {}}}) {
        transcript.clear();
        EXPECT_EQ(impl.execute(without).tiResult, 0);
        EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.onePpsAsymmetryCompensation(0, 0)
IDspChannelApi_1.rxChainDelay(0, 0, 0)
IDspChannelApi_1.rxChainDelay(0, 1, 0)
IDspChannelApi_1.rxChainDelay(0, 4, 0)
IDspChannelApi_1.rxChainDelay(0, 5, 0)
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(0, 0, 0)
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(0, 1, 0)
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(0, 4, 0)
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(0, 5, 0)
)") << without.toString();
    }
}

TEST_F(TiManagePathLatencyCompensationTest, ValuesReachTheDspInTheirLowBits)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    // Each set fails, so that nothing else is called.
    dspApi1.channelApi.onOnePpsAsymmetryCompensation = false;
    for (const std::int32_t delay : {32767, 32768, 65536, 70000, -32769, -1}) {
        impl.execute({{}, delay, {}, {}, {}});
    }
    dspApi1.channelApi.onRxChainDelay = false;
    dspApi1.channelApi.onRxEqualizerFeedForwardFilterDelay = false;
    for (const std::int32_t delay : {255, 256, 300, -1}) {
        impl.execute({{}, {}, ModemChain::Main, delay, {}});
        impl.execute({{}, {}, ModemChain::Main, {}, delay + 1});
    }
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.onePpsAsymmetryCompensation(1, 32767)
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.onePpsAsymmetryCompensation(1, -32768)
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.onePpsAsymmetryCompensation(1, 0)
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.onePpsAsymmetryCompensation(1, 4464)
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.onePpsAsymmetryCompensation(1, 32767)
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.onePpsAsymmetryCompensation(1, -1)
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.rxChainDelay(1, 0, 255)
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(1, 0, 0)
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.rxChainDelay(1, 0, 0)
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(1, 0, 1)
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.rxChainDelay(1, 0, 44)
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(1, 0, 45)
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.rxChainDelay(1, 0, 255)
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(1, 0, 0)
)");
}

TEST_F(TiManagePathLatencyCompensationTest, SetAddressesAnyChainAlsoOnesThatAreNotReadBack)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.channelApi.onRxEqualizerFeedForwardFilterDelay = false;
    dspApi1.channelApi.onRxChainDelay = true;
    for (const std::uint32_t chain : {2U, 3U, 5U, 6U, 9U}) {
        impl.execute({1, {}, static_cast<ModemChain>(chain), 65, 66});
    }
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.rxChainDelay(1, 2, 65)
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(1, 2, 66)
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.rxChainDelay(1, 3, 65)
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(1, 3, 66)
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.rxChainDelay(1, 5, 65)
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(1, 5, 66)
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.rxChainDelay(1, 6, 65)
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(1, 6, 66)
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.rxChainDelay(1, 9, 65)
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(1, 9, 66)
)");
}

TEST_F(TiManagePathLatencyCompensationTest, SetOnAChainThatIsNotReadShowsInNoFieldOfTheResponse)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.TiManagePathLatencyCompensation", 7);
    // The set leaves what it was handed, and the reads follow it.
    const auto afterASet = [](int first) {
        auto replies = samples(first);
        replies.emplace(replies.begin(), true);
        return replies;
    };
    dspApi1.channelApi.onRxChainDelay.inTurn(afterASet(10));
    dspApi1.channelApi.onRxEqualizerFeedForwardFilterDelay.inTurn(afterASet(110));
    dspApi2.channelApi.onRxChainDelay.inTurn(afterASet(20));
    dspApi2.channelApi.onRxEqualizerFeedForwardFilterDelay.inTurn(afterASet(120));
    tell(impl.execute({1, {}, ModemChain::MrcDiversity, 65, 66}));
    tell(impl.execute({2, {}, ModemChain::MrcDiversitySlave, 67, 68}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManagePathLatencyCompensation:
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.rxChainDelay(1, 2, 65)
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(1, 2, 66)
IDspChannelApi_1.onePpsAsymmetryCompensation(0, 0)
IDspChannelApi_1.rxChainDelay(0, 0, 0)
IDspChannelApi_1.rxChainDelay(0, 1, 0)
IDspChannelApi_1.rxChainDelay(0, 4, 0)
IDspChannelApi_1.rxChainDelay(0, 5, 0)
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(0, 0, 0)
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(0, 1, 0)
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(0, 4, 0)
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(0, 5, 0)
result 0x0 0 ""
prints RadioChannelID: 1, DspValues: OnePpsDelayNanosec: -100, AdjFifoMain: 10, AdjFifoXpicSlave: 11, AdjFifoMimoSpatial: 12, AdjFifoMimoXSpatialSlave: 13, FffFifoMain: 110, FffFifoXpicSlave: 111, FffFifoMimoSpatial: 112, FffFifoMimoXSpatialSlave: 113
6 ZYR.TI.TiManagePathLatencyCompensation:
IDspChannelApi_2.isConfigured()
IDspChannelApi_2.rxChainDelay(1, 3, 67)
IDspChannelApi_2.rxEqualizerFeedForwardFilterDelay(1, 3, 68)
IDspChannelApi_2.onePpsAsymmetryCompensation(0, 0)
IDspChannelApi_2.rxChainDelay(0, 0, 0)
IDspChannelApi_2.rxChainDelay(0, 1, 0)
IDspChannelApi_2.rxChainDelay(0, 4, 0)
IDspChannelApi_2.rxChainDelay(0, 5, 0)
IDspChannelApi_2.rxEqualizerFeedForwardFilterDelay(0, 0, 0)
IDspChannelApi_2.rxEqualizerFeedForwardFilterDelay(0, 1, 0)
IDspChannelApi_2.rxEqualizerFeedForwardFilterDelay(0, 4, 0)
IDspChannelApi_2.rxEqualizerFeedForwardFilterDelay(0, 5, 0)
result 0x0 0 ""
prints RadioChannelID: 2, DspValues: OnePpsDelayNanosec: -200, AdjFifoMain: 20, AdjFifoXpicSlave: 21, AdjFifoMimoSpatial: 22, AdjFifoMimoXSpatialSlave: 23, FffFifoMain: 120, FffFifoXpicSlave: 121, FffFifoMimoSpatial: 122, FffFifoMimoXSpatialSlave: 123
)");
}

TEST_F(TiManagePathLatencyCompensationTest, RefusedPulseDelayStartsTheResponseAnewAndEndsIt)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.TiManagePathLatencyCompensation", 5);
    dspApi2.channelApi.onOnePpsAsymmetryCompensation = {false, std::int16_t{9}};
    const auto response = tell(impl.execute({2, -70000, ModemChain::Main, 1, 2}));
    EXPECT_EQ(transcript.text(), R"x(
IDspChannelApi_2.isConfigured()
IDspChannelApi_2.onePpsAsymmetryCompensation(1, -4464)
result 0x8000 4 "channel 2: onePpsAsymmetryCompensationSet(-4464) failed"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: channel 2: onePpsAsymmetryCompensationSet(-4464) failed
)x");
    EXPECT_EQ(response.radioChannelId, 1U);
    EXPECT_EQ(response.onePpsDelayNanosec, 0);
}

TEST_F(TiManagePathLatencyCompensationTest, RefusedChainDelayIsToldAsOneByteAndTheFilterIsNotTried)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi2.channelApi.onRxChainDelay = false;
    const auto response = tell(impl.execute({2, {}, ModemChain::MimoXSpatialSlave, 256 + 'A', 66}));
    EXPECT_EQ(transcript.text(), R"x(
IDspChannelApi_2.isConfigured()
IDspChannelApi_2.rxChainDelay(1, 5, 65)
result 0x8000 4 "channel 2: rxChainDelaySet(MimoXSpatialSlave, A) failed"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: channel 2: rxChainDelaySet(MimoXSpatialSlave, A) failed
)x");
    EXPECT_EQ(response.radioChannelId, 1U);
}

TEST_F(TiManagePathLatencyCompensationTest, RefusedFilterDelayIsToldAsOneByte)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onRxEqualizerFeedForwardFilterDelay = false;
    tell(impl.execute({{}, {}, static_cast<ModemChain>(8), {}, 'z'}));
    EXPECT_EQ(transcript.text(), R"x(
IDspChannelApi_1.isConfigured()
IDspChannelApi_1.rxEqualizerFeedForwardFilterDelay(1, 8, 122)
result 0x8000 4 "channel 1: rxEqualizerFeedForwardFilterDelaySet(Max, z) failed"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: channel 1: rxEqualizerFeedForwardFilterDelaySet(Max, z) failed
)x");
}

TEST_F(TiManagePathLatencyCompensationTest, EveryByteOfADelayStandsRawInTheText)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.channelApi.onRxChainDelay = false;
    for (int samples = 0; samples < 256; ++samples) {
        const std::string expected =
            std::string("channel 1: rxChainDelaySet(Main, ") + static_cast<char>(samples) + ") failed";
        EXPECT_EQ(impl.execute({{}, {}, ModemChain::Main, samples, {}}).faultString, expected) << samples;
    }
}

TEST_F(TiManagePathLatencyCompensationTest, FirstFailingReadNamesItselfAndEndsTheReads)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    const std::vector<std::string> texts{
        "channel 2: onePpsAsymmetryCompensation get failed",
        "channel 2: rxChainDelay get failed for Main",
        "channel 2: rxChainDelay get failed for XpicSlave",
        "channel 2: rxChainDelay get failed for MimoSpatial",
        "channel 2: rxChainDelay get failed for MimoXSpatialSlave",
        "channel 2: rxEqualizerFeedForwardFilterDelay get failed for Chain0",
        "channel 2: rxEqualizerFeedForwardFilterDelay get failed for Chain1",
        "channel 2: rxEqualizerFeedForwardFilterDelay get failed for Chain2",
        "channel 2: rxEqualizerFeedForwardFilterDelay get failed for Chain3",
    };
    const std::vector<std::string> calls{
        "IDspChannelApi_2.isConfigured()",
        "IDspChannelApi_2.onePpsAsymmetryCompensation(0, 0)",
        "IDspChannelApi_2.rxChainDelay(0, 0, 0)",
        "IDspChannelApi_2.rxChainDelay(0, 1, 0)",
        "IDspChannelApi_2.rxChainDelay(0, 4, 0)",
        "IDspChannelApi_2.rxChainDelay(0, 5, 0)",
        "IDspChannelApi_2.rxEqualizerFeedForwardFilterDelay(0, 0, 0)",
        "IDspChannelApi_2.rxEqualizerFeedForwardFilterDelay(0, 1, 0)",
        "IDspChannelApi_2.rxEqualizerFeedForwardFilterDelay(0, 4, 0)",
        "IDspChannelApi_2.rxEqualizerFeedForwardFilterDelay(0, 5, 0)",
    };
    setTraceLevel("ZYR.TI.TiManagePathLatencyCompensation", 5);
    for (std::size_t failing = 0; failing < texts.size(); ++failing) {
        transcript.clear();
        // What a failing read leaves behind is dropped too.
        std::size_t reads = 0;
        const auto answer = [&](auto& value) {
            value = 7;
            return reads++ != failing;
        };
        dspApi2.channelApi.onOnePpsAsymmetryCompensation.doInstead(answer);
        dspApi2.channelApi.onRxChainDelay.doInstead(answer);
        dspApi2.channelApi.onRxEqualizerFeedForwardFilterDelay.doInstead(answer);
        const auto response = impl.execute(command(2));
        EXPECT_EQ(transcript.lines(),
                  std::vector<std::string>(calls.begin(), calls.begin() + static_cast<int>(failing) + 2));
        transcript.clear();
        tell(response);
        EXPECT_EQ(transcript.text(), "\nresult 0x8000 4 \"" + texts[failing] +
                                         "\"\nprints tiResult: eTI_E_FAILED, faultCode: 4, faultString: " +
                                         texts[failing] + "\n");
        EXPECT_EQ(response.radioChannelId, 1U);
        EXPECT_EQ(response.onePpsDelayNanosec, 0);
        EXPECT_EQ(response.adjFifoMain, 0);
        EXPECT_EQ(response.fffFifoMimoSpatial, 0);
    }
}

TEST_F(TiManagePathLatencyCompensationTest, DspThatDoesNotSupportItFailsTheFirstRead)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.channelApi.defaultsInForce = true;
    EXPECT_EQ(impl.execute({}).faultString, "channel 1: onePpsAsymmetryCompensation get failed");
}

TEST_F(TiManagePathLatencyCompensationTest, UnconfiguredChannelIsRefusedBeforeAnySet)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi2.channelApi.onIsConfigured = false;
    tell(impl.execute({2, 1, ModemChain::Main, 2, 3}));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_2.isConfigured()
result 0x8000 4 "TiManagePathLatencyCompensationImpl: The DSP channel is not configured"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TiManagePathLatencyCompensationImpl: The DSP channel is not configured
)");
}

TEST_F(TiManagePathLatencyCompensationTest, ChannelOneAboveTheNumberOfChannelsIsRefusedWithItsNumber)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(impl.execute(command(2)).radioChannelId, 2U);
    transcript.clear();
    tell(impl.execute(command(3)));
    tell(impl.execute(command(4294967295U)));
    EXPECT_EQ(transcript.text(), R"(
result 0xA100 2 "RadioChannelID out of bounds: 3"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds: 3
result 0xA100 2 "RadioChannelID out of bounds: 4294967295"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds: 4294967295
)");
}

TEST_F(TiManagePathLatencyCompensationTest, Channel0PassesTheBoundCheckAndReachesNoDsp)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(missingIn([&] { impl.execute(command(0)); }), "IDspChannelApi of radio channel 0");
}

TEST_F(TiManagePathLatencyCompensationTest, ObjectThatWasNotInitialisedSaysSoWhateverTheChannel)
{
    tell(impl.execute({}));
    EXPECT_EQ(transcript.text(), R"(
result 0x8000 4 "TiManagePathLatencyCompensationImpl has not been initialized"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TiManagePathLatencyCompensationImpl has not been initialized
)");
    EXPECT_EQ(impl.execute(command(3)).faultString,
              "TiManagePathLatencyCompensationImpl has not been initialized");
}

TEST_F(TiManagePathLatencyCompensationTest, InitialiseThatFailedOnceMayBeRepeatedAndOneThatSucceededMayNot)
{
    setTraceLevel("ZYR.TI.TiManagePathLatencyCompensation", 7);
    dspApi2.onGetDspChannelApi = nullptr;
    EXPECT_EQ(impl.initialize(2), 0x8000);
    dspApi2.onGetDspChannelApi = &dspApi2.channelApi;
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(impl.initialize(0), 0x8000);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManagePathLatencyCompensation: numberOfChannels=2
1 ZYR.TI.TiManagePathLatencyCompensation: failed to fetch interface for IDspChannelApi
6 ZYR.TI.TiManagePathLatencyCompensation: numberOfChannels=3
1 ZYR.TI.TiManagePathLatencyCompensation: numberOfChannels is out of bounds
6 ZYR.TI.TiManagePathLatencyCompensation: numberOfChannels=0
1 ZYR.TI.TiManagePathLatencyCompensation: numberOfChannels is out of bounds
6 ZYR.TI.TiManagePathLatencyCompensation: numberOfChannels=2
6 ZYR.TI.TiManagePathLatencyCompensation: numberOfChannels=3
1 ZYR.TI.TiManagePathLatencyCompensation: TiManagePathLatencyCompensationImpl has already been initialized
)");
}

TEST_F(TiManagePathLatencyCompensationTest, InitialiseWithoutTheDspNamesTheChannel)
{
    withdraw("IDspApi_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.TiManagePathLatencyCompensation: channel 2: Failed to fetch interface for IDspApi
)");
    EXPECT_EQ(impl.execute(command(1)).faultString,
              "TiManagePathLatencyCompensationImpl has not been initialized");
}

// Another object's steps, in the transcript.
class Replaced : public TiManagePathLatencyCompensationImpl
{
  public:
    explicit Replaced(zyr_test::Transcript& transcript) : m_transcript(transcript) {}

    void onePpsAsymmetryCompensationSet(Response& response, RadioChannel channel, short nanoSec) override
    {
        m_transcript.add("pulse " + std::to_string(channel) + " " + std::to_string(nanoSec));
        answer(response, 0);
    }
    void adjFifoSamplesSet(Response& response, RadioChannel channel, ModemChain chain,
                           unsigned char samples) override
    {
        m_transcript.add("delay " + std::to_string(channel) + " " +
                         std::to_string(static_cast<unsigned>(chain)) + " " + std::to_string(samples));
        answer(response, 1);
    }
    void fffFifoSamplesSet(Response& response, RadioChannel channel, ModemChain chain,
                           unsigned char samples) override
    {
        m_transcript.add("filter " + std::to_string(channel) + " " +
                         std::to_string(static_cast<unsigned>(chain)) + " " + std::to_string(samples));
        answer(response, 2);
    }
    void getCurrentValues(Response& response, RadioChannel channel) override
    {
        m_transcript.add("values " + std::to_string(channel) + " of " +
                         std::to_string(response.radioChannelId));
        answer(response, 3);
    }

    int answering = -1; ///< the step that answers 1, which is no failure but ends the command

  private:
    void answer(Response& response, int step) const
    {
        if (step == answering) {
            response.tiResult = eTI_S_TRUE;
        }
    }

    zyr_test::Transcript& m_transcript;
};

TEST_F(TiManagePathLatencyCompensationTest, StepsAreReplaceableAndAnyResultAbove0EndsTheCommand)
{
    Replaced replaced(transcript);
    ASSERT_EQ(replaced.initialize(2), eTI_S_OK);
    for (const int step : {-1, 0, 1, 2, 3}) {
        replaced.answering = step;
        tell(replaced.execute({2, -1, ModemChain::MrcDiversity, 5, 6}));
    }
    const std::string all = "prints RadioChannelID: 2, DspValues: OnePpsDelayNanosec: 0, AdjFifoMain: 0, "
                            "AdjFifoXpicSlave: 0, AdjFifoMimoSpatial: 0, AdjFifoMimoXSpatialSlave: 0, "
                            "FffFifoMain: 0, FffFifoXpicSlave: 0, FffFifoMimoSpatial: 0, "
                            "FffFifoMimoXSpatialSlave: 0\n";
    const std::string configured = "IDspChannelApi_2.isConfigured()\n";
    EXPECT_EQ(transcript.text(), "\n" + configured +
                                     "pulse 2 -1\ndelay 2 2 5\nfilter 2 2 6\nvalues 2 of 2\n"
                                     "result 0x0 0 \"\"\n" +
                                     all + configured + "pulse 2 -1\nresult 0x1 0 \"\"\n" + all + configured +
                                     "pulse 2 -1\ndelay 2 2 5\nresult 0x1 0 \"\"\n" + all + configured +
                                     "pulse 2 -1\ndelay 2 2 5\nfilter 2 2 6\nresult 0x1 0 \"\"\n" + all +
                                     configured +
                                     "pulse 2 -1\ndelay 2 2 5\nfilter 2 2 6\nvalues 2 of 2\n"
                                     "result 0x1 0 \"\"\n" +
                                     all);
}

TEST_F(TiManagePathLatencyCompensationTest, TraceNamesTheSourceOfTheCommand)
{
    expectTraceOf("ZYR.TI.TiManagePathLatencyCompensation",
                  "src/Device/ZyrTopApi/messages/TiManagePathLatencyCompensation/src/"
                  "TiManagePathLatencyCompensationImpl",
                  "initialize", [&] { impl.initialize(3); });
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    expectTraceOf("ZYR.TI.TiManagePathLatencyCompensation",
                  "src/Device/ZyrTopApi/messages/TiManagePathLatencyCompensation/src/"
                  "TiManagePathLatencyCompensationImpl",
                  "execute", [&] { impl.execute({}); });
}

} // namespace
} // namespace zyr_top_api
