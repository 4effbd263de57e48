#include "CommandTest.h"
#include "CriManagePathLatencyImpl.h"
#include "MemorySink.h"
#include "RauLatencyCalculatorDouble.h"
#include "RecoveryControllerDouble.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <limits>

namespace zyr_top_api
{
namespace
{

using general_classes::Optional;

class CriManagePathLatencyTest : public zyr_test::CommandTest
{
  protected:
    CriManagePathLatencyTest()
    {
        publish(calculator1);
        publish(calculator2);
        publish(recoveryController);
        transcript.clear();
        calculator1.onGetCurrentLatency = {eTI_S_OK, false, true, 11U, 1000U};
        calculator2.onGetCurrentLatency = {eTI_S_OK, true, false, 22U, 2000U};
    }

    static CriManagePathLatency::Command read(std::uint32_t channel) { return {channel, {}, {}, {}}; }

    static CriManagePathLatency::Command set(std::uint32_t channel)
    {
        return {channel, Optional<std::int32_t>(-5), Optional<std::int32_t>(12), Optional<std::int32_t>(7)};
    }

    zyr_test::RauLatencyCalculatorDouble calculator1{transcript, "IRauLatencyCalculator_1"};
    zyr_test::RauLatencyCalculatorDouble calculator2{transcript, "IRauLatencyCalculator_2"};
    zyr_test::RecoveryControllerDouble recoveryController{transcript, "RecoveryController"};
    CriManagePathLatencyImpl impl;
};

TEST_F(CriManagePathLatencyTest, FrameShowsRequestAndResponseAroundASetAndTheRead)
{
    enrol<CriManagePathLatencyImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.ZyrTopApi", 6);
    setTraceLevel("TI.CriManagePathLatency", 7);
    tell(criManagePathLatency(set(1)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
6 ZYR.ZyrTopApi: Running CriManagePathLatency::Command
5 ZYR.COMM: CRI.ManagePathLatency Request: RadioChannelID: 1, RxPathLatencyXpicSlave: -5, RxPathLatencyMimoSpatial: 12, RxPathLatencyMimoSpatialSlave: 7
6 TI.CriManagePathLatency: command.channelId=1
3 TI.CriManagePathLatency: RadioChannelID: 1, RxPathLatencyXpicSlave: -5, RxPathLatencyMimoSpatial: 12, RxPathLatencyMimoSpatialSlave: 7
IRauLatencyCalculator_1.calculateAndSetDspDelayCompensation(0/0/1 -5/1/1 0/0/1 0/0/1 12/1/1 7/1/1)
IRauLatencyCalculator_1.getCurrentLatency()
6 ZYR.ZyrTopApi: Return CriManagePathLatency::Response
5 ZYR.COMM: CRI.ManagePathLatency Response: IsValidValues: true, RxPathLatency: 1000\n----------------------------------------------------\n
result 0x0 0 ""
prints IsValidValues: true, RxPathLatency: 1000
)");
}

TEST_F(CriManagePathLatencyTest, WithoutLatenciesItOnlyReads)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute(read(2)));
    EXPECT_EQ(transcript.text(), R"(
3 TI.CriManagePathLatency: RadioChannelID: 2
IRauLatencyCalculator_2.getCurrentLatency()
result 0x0 0 ""
prints IsValidValues: false, RxPathLatency: 2000
)");
}

TEST_F(CriManagePathLatencyTest, EachLatencyAloneIsASetOfItsOwnGroup)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    impl.execute({2, Optional<std::int32_t>(0), {}, {}});
    impl.execute({1, {}, Optional<std::int32_t>(12), {}});
    impl.execute({1, {}, {}, Optional<std::int32_t>(std::numeric_limits<std::int32_t>::min())});
    EXPECT_EQ(transcript.text(), R"(
3 TI.CriManagePathLatency: RadioChannelID: 2, RxPathLatencyXpicSlave: 0
IRauLatencyCalculator_2.calculateAndSetDspDelayCompensation(0/0/1 0/1/1 0/0/1 0/0/1 0/0/1 0/0/1)
IRauLatencyCalculator_2.getCurrentLatency()
3 TI.CriManagePathLatency: RadioChannelID: 1, RxPathLatencyMimoSpatial: 12
IRauLatencyCalculator_1.calculateAndSetDspDelayCompensation(0/0/1 0/0/1 0/0/1 0/0/1 12/1/1 0/0/1)
IRauLatencyCalculator_1.getCurrentLatency()
3 TI.CriManagePathLatency: RadioChannelID: 1, RxPathLatencyMimoSpatialSlave: -2147483648
IRauLatencyCalculator_1.calculateAndSetDspDelayCompensation(0/0/1 0/0/1 0/0/1 0/0/1 0/0/1 -2147483648/1/1)
IRauLatencyCalculator_1.getCurrentLatency()
)");
}

TEST_F(CriManagePathLatencyTest, RequestIsRightInEachOfIts80Bytes)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    impl.execute({1, Optional<std::int32_t>(0x01020304), {}, Optional<std::int32_t>(-2)});
    // clang-format off
    constexpr std::array<unsigned char, 80> expected{
        0, 0, 0, 0, 0, 0, 0, 0,
        0, 0, 0, 0,              0, 1, 0, 0, 0, 0, 0, 0,
        4, 3, 2, 1,              1, 1, 0, 0, 0, 0, 0, 0,
        0, 0, 0, 0,              0, 1, 0, 0, 0, 0, 0, 0,
        0, 0, 0, 0,              0, 1, 0, 0, 0, 0, 0, 0,
        0, 0, 0, 0,              0, 1, 0, 0, 0, 0, 0, 0,
        0xFE, 0xFF, 0xFF, 0xFF,  1, 1, 0, 0, 0, 0, 0, 0};
    // clang-format on
    ASSERT_EQ(calculator1.requests.size(), 1U);
    static_assert(sizeof(RauLatencyRequest) == expected.size());
    std::array<unsigned char, 80> sent{};
    std::memcpy(sent.data(), calculator1.requests.data(), sent.size());
    EXPECT_EQ(sent, expected);
}

TEST_F(CriManagePathLatencyTest, NeededResetRecoversTheDspOnceAndTriesTheSameAgain)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    calculator2.onCalculateAndSetDspDelayCompensation.inTurn({0x8013, eTI_S_OK});
    tell(impl.execute(set(2)));
    EXPECT_EQ(transcript.text(), R"(
3 TI.CriManagePathLatency: RadioChannelID: 2, RxPathLatencyXpicSlave: -5, RxPathLatencyMimoSpatial: 12, RxPathLatencyMimoSpatialSlave: 7
IRauLatencyCalculator_2.calculateAndSetDspDelayCompensation(0/0/1 -5/1/1 0/0/1 0/0/1 12/1/1 7/1/1)
3 TI.CriManagePathLatency: DSP recovery triggered due to needed reset of RAU path latency
RecoveryController.startDspRecovery(2)
IRauLatencyCalculator_2.calculateAndSetDspDelayCompensation(0/0/1 -5/1/1 0/0/1 0/0/1 12/1/1 7/1/1)
IRauLatencyCalculator_2.getCurrentLatency()
result 0x0 0 ""
prints IsValidValues: false, RxPathLatency: 2000
)");
}

TEST_F(CriManagePathLatencyTest, ResetNeededASecondTimeIsAFailureWithOneRecovery)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    calculator1.onCalculateAndSetDspDelayCompensation = 0x8013;
    setTraceLevel("TI.CriManagePathLatency", 7);
    const auto response = tell(impl.execute({1, {}, Optional<std::int32_t>(3), {}}));
    EXPECT_EQ(transcript.text(), R"x(
6 TI.CriManagePathLatency: command.channelId=1
3 TI.CriManagePathLatency: RadioChannelID: 1, RxPathLatencyMimoSpatial: 3
IRauLatencyCalculator_1.calculateAndSetDspDelayCompensation(0/0/1 0/0/1 0/0/1 0/0/1 3/1/1 0/0/1)
3 TI.CriManagePathLatency: DSP recovery triggered due to needed reset of RAU path latency
RecoveryController.startDspRecovery(2)
IRauLatencyCalculator_1.calculateAndSetDspDelayCompensation(0/0/1 0/0/1 0/0/1 0/0/1 3/1/1 0/0/1)
result 0x8000 4 "Error in calculateAndSetDspDelayCompensation()"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Error in calculateAndSetDspDelayCompensation()
)x");
    EXPECT_FALSE(response.isValidValues);
    EXPECT_EQ(response.rxPathLatency, 0U);
}

TEST_F(CriManagePathLatencyTest, OtherFailuresAnswerAtOnceWithoutARecoveryAndWithoutALine)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("TI.CriManagePathLatency", 7);
    for (const std::uint32_t code : {0x8000U, 0x8012U, 0x8014U, 0x18013U, 0xFFFFFFFFU}) {
        transcript.clear();
        calculator1.onCalculateAndSetDspDelayCompensation = code;
        tell(impl.execute({1, {}, Optional<std::int32_t>(3), {}}));
        EXPECT_EQ(transcript.text(), R"x(
6 TI.CriManagePathLatency: command.channelId=1
3 TI.CriManagePathLatency: RadioChannelID: 1, RxPathLatencyMimoSpatial: 3
IRauLatencyCalculator_1.calculateAndSetDspDelayCompensation(0/0/1 0/0/1 0/0/1 0/0/1 3/1/1 0/0/1)
result 0x8000 4 "Error in calculateAndSetDspDelayCompensation()"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Error in calculateAndSetDspDelayCompensation()
)x") << code;
    }
}

TEST_F(CriManagePathLatencyTest, GreatestSuccessOfTheFirstAndOfTheSecondTryGoOnToTheRead)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    calculator1.onCalculateAndSetDspDelayCompensation.inTurn({0x7FFF, 0x8013, 0x7FFF, 0x8013, 0x8000});
    EXPECT_EQ(impl.execute(set(1)).rxPathLatency, 1000U);
    EXPECT_EQ(impl.execute(set(1)).rxPathLatency, 1000U);
    EXPECT_EQ(outcome(impl.execute(set(1))),
              "result 0x8000 4 \"Error in calculateAndSetDspDelayCompensation()\"");
}

TEST_F(CriManagePathLatencyTest, RecoveryThatFailsEndsItWithoutASecondTry)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    calculator1.onCalculateAndSetDspDelayCompensation = 0x8013;
    recoveryController.onStartDspRecovery = 0x8000;
    setTraceLevel("TI.CriManagePathLatency", 5);
    const auto response = tell(impl.execute({1, {}, Optional<std::int32_t>(3), {}}));
    EXPECT_EQ(transcript.text(), R"(
3 TI.CriManagePathLatency: RadioChannelID: 1, RxPathLatencyMimoSpatial: 3
IRauLatencyCalculator_1.calculateAndSetDspDelayCompensation(0/0/1 0/0/1 0/0/1 0/0/1 3/1/1 0/0/1)
3 TI.CriManagePathLatency: DSP recovery triggered due to needed reset of RAU path latency
RecoveryController.startDspRecovery(2)
result 0x8000 4 "Failed to recover DSP"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Failed to recover DSP
)");
    EXPECT_FALSE(response.isValidValues);
    EXPECT_EQ(response.rxPathLatency, 0U);
}

TEST_F(CriManagePathLatencyTest, RecoverysGreatestSuccessIsFollowedByTheSecondTry)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    calculator1.onCalculateAndSetDspDelayCompensation.inTurn({0x8013, eTI_S_OK});
    recoveryController.onStartDspRecovery = 0x7FFF;
    EXPECT_EQ(outcome(impl.execute(set(1))), "result 0x0 0 \"\"");
    EXPECT_EQ(calculator1.requests.size(), 2U);
}

TEST_F(CriManagePathLatencyTest, NodeWithoutARecoveryControllerCannotRecover)
{
    withdraw("RecoveryController");
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    calculator1.onCalculateAndSetDspDelayCompensation = 0x8013;
    tell(impl.execute({1, {}, Optional<std::int32_t>(3), {}}));
    EXPECT_EQ(transcript.text(), R"(
3 TI.CriManagePathLatency: RadioChannelID: 1, RxPathLatencyMimoSpatial: 3
IRauLatencyCalculator_1.calculateAndSetDspDelayCompensation(0/0/1 0/0/1 0/0/1 0/0/1 3/1/1 0/0/1)
3 TI.CriManagePathLatency: DSP recovery triggered due to needed reset of RAU path latency
result 0x8000 4 "Failed to recover DSP"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Failed to recover DSP
)");
}

TEST_F(CriManagePathLatencyTest, ReadThatFailsStillSucceedsWithWhatItLeft)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    calculator1.onGetCurrentLatency.inTurn({{0x8000, false, true, 0U, 4294967295U}, 0xFFFFFFFFU});
    const auto touched = impl.execute(read(1));
    EXPECT_EQ(outcome(touched), "result 0x0 0 \"\"");
    EXPECT_TRUE(touched.isValidValues);
    EXPECT_EQ(touched.rxPathLatency, 4294967295U);
    const auto untouched = impl.execute(read(1));
    EXPECT_EQ(outcome(untouched), "result 0x0 0 \"\"");
    EXPECT_FALSE(untouched.isValidValues);
    EXPECT_EQ(untouched.rxPathLatency, 0U);
}

TEST_F(CriManagePathLatencyTest, ReadStartsFromZeroedValues)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    calculator1.onGetCurrentLatency.doInstead(
        [&](bool& first, bool& isValid, std::uint32_t& third, std::uint32_t& latency) {
            EXPECT_FALSE(first);
            EXPECT_FALSE(isValid);
            EXPECT_EQ(third, 0U);
            EXPECT_EQ(latency, 0U);
            return eTI_S_OK;
        });
    impl.execute(set(1));
}

TEST_F(CriManagePathLatencyTest, ChannelEqualToTheNumberOfChannelsIsServedAndOneAboveRefusedWithoutACall)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(impl.execute(read(2)).rxPathLatency, 2000U);
    transcript.clear();
    setTraceLevel("TI.CriManagePathLatency", 7);
    tell(impl.execute(set(3)));
    EXPECT_EQ(transcript.text(), R"(
6 TI.CriManagePathLatency: command.channelId=3
3 TI.CriManagePathLatency: RadioChannelID: 3, RxPathLatencyXpicSlave: -5, RxPathLatencyMimoSpatial: 12, RxPathLatencyMimoSpatialSlave: 7
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
)");
}

TEST_F(CriManagePathLatencyTest, Channel0PassesTheBoundCheckAndReachesNoCalculator)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(missingIn([&] { impl.execute(read(0)); }), "IRauLatencyCalculator of radio channel 0");
}

TEST_F(CriManagePathLatencyTest, InitialiseRefusesOtherCountsThan1And2Silently)
{
    setTraceLevel("TI.CriManagePathLatency", 5);
    EXPECT_EQ(impl.initialize(0), 0x8000);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(transcript.text(), "\n");
    EXPECT_EQ(outcome(impl.execute(read(1))), "result 0xA100 2 \"RadioChannelID out of bounds\"");
}

TEST_F(CriManagePathLatencyTest, InitialiseWithoutTheSecondCalculatorLeavesEveryChannelRefused)
{
    withdraw("IRauLatencyCalculator_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
1 TI.CriManagePathLatency: Failed to get IRauLatencyCalculator
)");
    EXPECT_EQ(outcome(impl.execute(read(1))), "result 0xA100 2 \"RadioChannelID out of bounds\"");
}

TEST_F(CriManagePathLatencyTest, SecondInitialiseThatFailsKeepsTheCountAndLosesTheCalculator)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    withdraw("IRauLatencyCalculator_1");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(missingIn([&] { impl.execute(read(1)); }), "IRauLatencyCalculator of radio channel 1");
    EXPECT_EQ(impl.execute(read(2)).rxPathLatency, 2000U);
}

TEST_F(CriManagePathLatencyTest, TraceNamesTheSourceOfTheCommand)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    calculator1.onCalculateAndSetDspDelayCompensation.inTurn({0x8013, eTI_S_OK});
    setTraceLevel("TI.CriManagePathLatency", 7);
    const auto sink = std::make_shared<zyr_platform::MemorySink>();
    const auto registration = zyr_platform::TraceService::get().addSink(sink);
    impl.execute(set(1));
    const auto records = sink->records();
    EXPECT_EQ(records.size(), 3U);
    for (const auto& record : records) {
        EXPECT_STREQ(record.header.file, "src/Device/ZyrTopApi/messages/CriManagePathLatency/src/"
                                         "CriManagePathLatencyImpl.cpp");
        EXPECT_STREQ(record.header.function, "execute");
    }
}

} // namespace
} // namespace zyr_top_api
