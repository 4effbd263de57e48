#include "CommandTest.h"
#include "CriGetAcmModeImpl.h"
#include "DspApiDouble.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class CriGetAcmModeTest : public zyr_test::CommandTest
{
  protected:
    CriGetAcmModeTest()
    {
        dspApi1.acmApi.onGetAcmMode = {eTI_S_OK, AcmMode::Passive, AcmModePosition::Internal};
        dspApi2.acmApi.onGetAcmMode = {eTI_S_OK, AcmMode::Basic, AcmModePosition::External};
        publish(dspApi1);
        publish(dspApi2);
        transcript.clear();
    }

    static CriGetAcmMode::Command command(std::uint32_t channel) { return {RadioChannel(channel)}; }

    /// Writes the response's data into the transcript too: it prints none.
    CriGetAcmMode::Response tellAll(CriGetAcmMode::Response response)
    {
        tell(response);
        transcript.add("holds " + std::to_string(static_cast<std::uint32_t>(response.acmMode)) + ", " +
                       std::to_string(static_cast<std::uint32_t>(response.acmModePosition)));
        return response;
    }

    zyr_test::DspApiDouble dspApi1{transcript, "IDspApi_1"};
    zyr_test::DspApiDouble dspApi2{transcript, "IDspApi_2"};
    CriGetAcmModeImpl impl;
};

TEST_F(CriGetAcmModeTest, ResponseHoldsTheModeAndPositionOfTheChannel)
{
    enrol<CriGetAcmModeImpl>();
    tellAll(criGetAcmMode(command(1)));
    tellAll(criGetAcmMode(command(2)));
    EXPECT_EQ(transcript.text(), R"(
IDspAcmApi_1.getAcmMode()
result 0x0 0 ""
prints Sent\n
holds 1, 0
IDspAcmApi_2.getAcmMode()
result 0x0 0 ""
prints Sent\n
holds 2, 1
)");
}

TEST_F(CriGetAcmModeTest, OutcomeStandsAtLevel5OfTheCommandAndTheFrameTellsNoData)
{
    enrol<CriGetAcmModeImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriGetAcmMode", 7);
    criGetAcmMode(command(2));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CRI.GetAcmMode Request: RadioChannelID: 2\n
6 ZYR.TI.CriGetAcmMode: command.channelId=2
IDspAcmApi_2.getAcmMode()
5 ZYR.TI.CriGetAcmMode: cmd:RadioChannelID: 2\n, rsp:AcmMode: Basic, Position: External\n
5 ZYR.COMM: CRI.GetAcmMode Response: Sent\n\n----------------------------------------------------\n
)");
}

TEST_F(CriGetAcmModeTest, OutcomeIsNotShownAtLevel4)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetAcmMode", 4);
    impl.execute(command(2));
    EXPECT_EQ(transcript.text(), R"(
IDspAcmApi_2.getAcmMode()
)");
}

TEST_F(CriGetAcmModeTest, ValuesWithoutAMeaningReadUndefinedAndAreGivenOn)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetAcmMode", 5);
    dspApi1.acmApi.onGetAcmMode = {eTI_S_OK, static_cast<AcmMode>(4),
                                   static_cast<AcmModePosition>(4294967295U)};
    tellAll(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
IDspAcmApi_1.getAcmMode()
5 ZYR.TI.CriGetAcmMode: cmd:RadioChannelID: 1\n, rsp:AcmMode: Undefined, Position: Undefined\n
result 0x0 0 ""
prints Sent\n
holds 4, 4294967295
)");
}

TEST_F(CriGetAcmModeTest, DspThatFailsAndWritesNothingLeavesTheDefaults)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetAcmMode", 5);
    dspApi2.acmApi.onGetAcmMode = 0x8000;
    tellAll(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"(
IDspAcmApi_2.getAcmMode()
1 ZYR.TI.CriGetAcmMode: CRI.CriGetAcmMode failed to set ACM mode
result 0x8000 4 "CRI.GetAcmMode failed to set ACM mode"
prints Sent\n
holds 3, 2
)");
}

TEST_F(CriGetAcmModeTest, ResponseCarriesWhatAFailingDspWrote)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.acmApi.onGetAcmMode = {0xFFFFFFFFU, AcmMode::Basic, AcmModePosition::External};
    tellAll(impl.execute(command(1)));
    dspApi1.acmApi.onGetAcmMode.doInstead([](AcmMode& mode, AcmModePosition&) {
        mode = AcmMode::Active;
        return eTI_E_FAILED;
    });
    tellAll(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
IDspAcmApi_1.getAcmMode()
1 ZYR.TI.CriGetAcmMode: CRI.CriGetAcmMode failed to set ACM mode
result 0x8000 4 "CRI.GetAcmMode failed to set ACM mode"
prints Sent\n
holds 2, 1
IDspAcmApi_1.getAcmMode()
1 ZYR.TI.CriGetAcmMode: CRI.CriGetAcmMode failed to set ACM mode
result 0x8000 4 "CRI.GetAcmMode failed to set ACM mode"
prints Sent\n
holds 0, 2
)");
}

TEST_F(CriGetAcmModeTest, DspsGreatestSuccessComesOutAsPlainSuccess)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.acmApi.onGetAcmMode = {0x7FFF, AcmMode::Active, AcmModePosition::External};
    tellAll(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
IDspAcmApi_1.getAcmMode()
result 0x0 0 ""
prints Sent\n
holds 0, 1
)");
}

TEST_F(CriGetAcmModeTest, ChannelAboveTheNumberOfChannelsIsRefusedInSilenceWithTheDefaults)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetAcmMode", 7);
    tellAll(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriGetAcmMode: command.channelId=2
result 0xA100 2 "RadioChannelID out of bounds"
prints Sent\n
holds 3, 2
)");
}

TEST_F(CriGetAcmModeTest, Channel0AndADspWithoutItsAcmPartAreNamed)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.onGetAcmApi = nullptr;
    EXPECT_EQ(missingIn([&] { impl.execute(command(0)); }), "IDspApi of radio channel 0");
    try {
        impl.execute(command(1));
        FAIL() << "no exception";
    } catch (const std::out_of_range& exception) {
        EXPECT_STREQ(exception.what(), "IDspAcmApi of radio channel 1");
    }
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(CriGetAcmModeTest, InitialiseRefusesOtherCountsAndNamesTheMissingDsp)
{
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    withdraw("IDspApi_1");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriGetAcmMode: Error: numberOfChannels is out of range (0)
1 ZYR.TI.CriGetAcmMode: Error: numberOfChannels is out of range (3)
1 ZYR.TI.CriGetAcmMode:  Error getting interface to IDspApi_1
)");
    EXPECT_EQ(missingIn([&] { impl.execute(command(2)); }), "IDspApi of radio channel 2");
}

} // namespace
} // namespace zyr_top_api
