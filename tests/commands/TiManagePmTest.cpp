#include "DspApiFixture.h"
#include "TiManagePmImpl.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class TiManagePmTest : public zyr_test::DspApiFixture
{
  protected:
    TiManagePmTest()
    {
        dspApi1.statusApi.onGetInjectErrorBlocksData = {true, 17};
        dspApi2.statusApi.onGetInjectErrorBlocksData = {false, -4};
    }

    static TiManagePm::Command command(std::uint32_t channel)
    {
        TiManagePm::Command command;
        command.RadioChannelID = channel;
        return command;
    }

    static TiManagePm::Command injection(std::uint32_t channel, bool injectEb, std::int32_t cycles,
                                         std::uint32_t percentage)
    {
        TiManagePm::Command command;
        command.RadioChannelID = channel;
        command.injectEb = injectEb;
        command.ebCycles = cycles;
        command.ebPercentage = percentage;
        return command;
    }

    TiManagePmImpl impl;
};

TEST_F(TiManagePmTest, WithoutOptionsItReads)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute(command(1)));
    tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManagePm:
IDspStatusApi_1.getInjectErrorBlocksData()
result 0x0 0 ""
prints RadioChannelID: 1, Injecting EB: 1, Cycles left: 17
6 ZYR.TI.TiManagePm:
IDspStatusApi_2.getInjectErrorBlocksData()
result 0x0 0 ""
prints RadioChannelID: 2, Injecting EB: 0, Cycles left: -4
)");
}

TEST_F(TiManagePmTest, AllThreeOptionsAreToldAndInjectedAndThenRead)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute(injection(1, true, 20, 4000000000)));
    tell(impl.execute(injection(2, false, -1, 0)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManagePm:
3 ZYR.TI.TiManagePm: TI.ManagePm request: RadioChannelID: 1, Inject EB: 1, EB cycles: 20, EB percentage: 4000000000
IDspStatusApi_1.injectErrorBlocks(true, 20, 4000000000)
IDspStatusApi_1.getInjectErrorBlocksData()
result 0x0 0 ""
prints RadioChannelID: 1, Injecting EB: 1, Cycles left: 17
6 ZYR.TI.TiManagePm:
3 ZYR.TI.TiManagePm: TI.ManagePm request: RadioChannelID: 2, Inject EB: 0, EB cycles: -1, EB percentage: 0
IDspStatusApi_2.injectErrorBlocks(false, -1, 0)
IDspStatusApi_2.getInjectErrorBlocksData()
result 0x0 0 ""
prints RadioChannelID: 2, Injecting EB: 0, Cycles left: -4
)");
}

TEST_F(TiManagePmTest, OneOrTwoOptionsAreSilentlyARead)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("*", 7);
    for (unsigned options = 0; options < 7; ++options) {
        TiManagePm::Command request = command(1);
        if ((options & 1) != 0) {
            request.injectEb = true;
        }
        if ((options & 2) != 0) {
            request.ebCycles = 3;
        }
        if ((options & 4) != 0) {
            request.ebPercentage = 50;
        }
        transcript.clear();
        tell(impl.execute(request));
        EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManagePm:
IDspStatusApi_1.getInjectErrorBlocksData()
result 0x0 0 ""
prints RadioChannelID: 1, Injecting EB: 1, Cycles left: 17
)") << options;
    }
}

TEST_F(TiManagePmTest, DspWithoutTheOperationsKeepsWhatItWasTold)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("*", 0);
    dspApi1.statusApi.defaultsInForce = true;
    tell(impl.execute(command(1)));
    tell(impl.execute(injection(1, true, 9, 30)));
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
IDspStatusApi_1.getInjectErrorBlocksData()
result 0x0 0 ""
prints RadioChannelID: 1, Injecting EB: 0, Cycles left: 0
IDspStatusApi_1.injectErrorBlocks(true, 9, 30)
IDspStatusApi_1.getInjectErrorBlocksData()
result 0x0 0 ""
prints RadioChannelID: 1, Injecting EB: 1, Cycles left: 9
IDspStatusApi_1.getInjectErrorBlocksData()
result 0x0 0 ""
prints RadioChannelID: 1, Injecting EB: 1, Cycles left: 9
)");
}

TEST_F(TiManagePmTest, ChannelAboveTheCountIsRefusedInSilence)
{
    tell(impl.execute(command(1)));
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("*", 7);
    tell(impl.execute(injection(2, true, 1, 1)));
    EXPECT_EQ(transcript.text(), R"(
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
6 ZYR.TI.TiManagePm:
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
)");
}

TEST_F(TiManagePmTest, DspWithoutAStatusInterfaceFailsAndIsToldNothing)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.TiManagePm", 7);
    dspApi2.onGetDspStatusApi = nullptr;
    const TiManagePm::Response response = tell(impl.execute(injection(2, true, 1, 1)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManagePm:
1 ZYR.TI.TiManagePm: TI.ManagePm failed to get DSP API interface
result 0x8000 4 "TI.ManagePm failed to get DSP API interface"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TI.ManagePm failed to get DSP API interface
)");
    EXPECT_EQ(response.RadioChannelID, 1U);
    EXPECT_FALSE(response.injectingEb);
    EXPECT_EQ(response.cyclesLeft, 0);
}

TEST_F(TiManagePmTest, ChannelWithoutADspThrows)
{
    EXPECT_EQ(missingIn([&] { impl.execute(command(0)); }), "IDspApi of radio channel 0");
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(missingIn([&] { impl.execute(command(0)); }), "IDspApi of radio channel 0");
    withdraw("IDspApi_2");
    EXPECT_EQ(impl.initialize(2), eTI_E_FAILED);
    transcript.clear();
    EXPECT_EQ(missingIn([&] { impl.execute(command(2)); }), "IDspApi of radio channel 2");
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(TiManagePmTest, DefaultsAreChannelOneAndNoInjection)
{
    EXPECT_EQ(TiManagePm::Command().RadioChannelID, 1U);
    EXPECT_EQ(TiManagePm::Response().printResponse(), "RadioChannelID: 1, Injecting EB: 0, Cycles left: 0");
}

} // namespace
} // namespace zyr_top_api
