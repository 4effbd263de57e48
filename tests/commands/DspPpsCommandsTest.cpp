#include "CriCalibrateDspPpsImpl.h"
#include "CriGetCalibrationStatusDspPpsImpl.h"
#include "CriGetHopLengthTimeDspPpsImpl.h"
#include "CriSetOutputModeDspPpsImpl.h"
#include "CriSetSourceDspPpsImpl.h"
#include "DspApiFixture.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

// What the commands of the pulse per second have in common: one call of the DSP's channel, of which only the
// failure is told. Their texts stand in the tests of each.

namespace zyr_top_api
{
namespace
{

struct Calibrate
{
    using Impl = CriCalibrateDspPpsImpl;
    static constexpr const char* kFailure = "CRI.CalibrateDspPps failed to calibrate ";
    static auto& answer(zyr_test::DspChannelApiDouble& api) { return api.onPpsRtcCalibrationStart; }
};

struct GetStatus
{
    using Impl = CriGetCalibrationStatusDspPpsImpl;
    static constexpr const char* kFailure = "CRI.GetCalibrationStatusDspPps failed to get calibrationStatus.";
    static auto& answer(zyr_test::DspChannelApiDouble& api) { return api.onPpsStatusGet; }
};

struct GetHopLengthTime
{
    using Impl = CriGetHopLengthTimeDspPpsImpl;
    static constexpr const char* kFailure = "CRI.GetHopLengthTimeDspPps failed to get hop length time.";
    static auto& answer(zyr_test::DspChannelApiDouble& api) { return api.onPpsHopLengthTimeGet; }
};

struct SetOutputMode
{
    using Impl = CriSetOutputModeDspPpsImpl;
    static constexpr const char* kFailure = "CRI.SetOutputModeDspPps failed to set outputMode";
    static auto& answer(zyr_test::DspChannelApiDouble& api) { return api.onPpsOutputModeSet; }
};

struct SetSource
{
    using Impl = CriSetSourceDspPpsImpl;
    static constexpr const char* kFailure = "CRI.SetSourceDspPps failed to configure";
    static auto& answer(zyr_test::DspChannelApiDouble& api) { return api.onPpsConfigure; }
};

template <class Case>
class DspPpsCommandsTest : public zyr_test::DspApiFixture
{
  protected:
    using Impl = typename Case::Impl;

    DspPpsCommandsTest() { setTraceLevel("*", 0); }

    auto execute(std::uint32_t channel)
    {
        typename Impl::Command command;
        command.channelId = channel;
        return impl.execute(command);
    }

    std::string outcomeOf(std::uint32_t channel) { return outcome(execute(channel)); }

    /// On which channels' DSPs calls have arrived, in order.
    std::string served() const
    {
        std::string channels;
        for (const std::string& line : transcript.lines()) {
            channels += line.substr(0, line.find('.')) + " ";
        }
        return channels;
    }

    Impl impl;
};

using Cases = testing::Types<Calibrate, GetStatus, GetHopLengthTime, SetOutputMode, SetSource>;
TYPED_TEST_SUITE(DspPpsCommandsTest, Cases);

TYPED_TEST(DspPpsCommandsTest, DspsGreatestSuccessAndItsWarningsComeOutAsPlainSuccess)
{
    ASSERT_EQ(this->impl.initialize(1), eTI_S_OK);
    TypeParam::answer(this->dspApi1.channelApi).inTurn({0x7FFF, 4100, 0x8000, 0xFFFFFFFFU});
    const std::string failure = std::string("result 0x8000 4 \"") + TypeParam::kFailure + "\"";
    EXPECT_EQ(this->outcomeOf(1), "result 0x0 0 \"\"");
    EXPECT_EQ(this->outcomeOf(1), "result 0x0 0 \"\"");
    EXPECT_EQ(this->outcomeOf(1), failure);
    EXPECT_EQ(this->outcomeOf(1), failure);
}

TYPED_TEST(DspPpsCommandsTest, ChannelsAboveTheNumberOfChannelsAreRefusedWithoutACall)
{
    ASSERT_EQ(this->impl.initialize(1), eTI_S_OK);
    EXPECT_EQ(this->outcomeOf(1), "result 0x0 0 \"\"");
    EXPECT_EQ(this->outcomeOf(2), "result 0xA100 2 \"RadioChannelID out of bounds\"");
    EXPECT_EQ(this->outcomeOf(4294967295U), "result 0xA100 2 \"RadioChannelID out of bounds\"");
    EXPECT_EQ(this->served(), "IDspChannelApi_1 ");
}

TYPED_TEST(DspPpsCommandsTest, Channel0PassesTheBoundCheckAndReachesNoDsp)
{
    ASSERT_EQ(this->impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(this->missingIn([&] { this->execute(0); }), "IDspApi of radio channel 0");
    EXPECT_EQ(this->served(), "");
}

TYPED_TEST(DspPpsCommandsTest, ObjectThatWasNotInitialisedRefusesEveryChannel)
{
    EXPECT_EQ(this->outcomeOf(1), "result 0xA100 2 \"RadioChannelID out of bounds\"");
}

TYPED_TEST(DspPpsCommandsTest, DspWithoutThatChannelThrowsAndNamesIt)
{
    ASSERT_EQ(this->impl.initialize(2), eTI_S_OK);
    this->dspApi2.onGetDspChannelApi = nullptr;
    try {
        this->execute(2);
        ADD_FAILURE() << "no exception";
    } catch (const std::out_of_range& missing) {
        EXPECT_STREQ(missing.what(), "IDspChannelApi of radio channel 2");
    }
    EXPECT_EQ(this->execute(1).tiResult, 0);
}

TYPED_TEST(DspPpsCommandsTest, ChannelOfTheDspIsAskedForAnewByEachCall)
{
    ASSERT_EQ(this->impl.initialize(1), eTI_S_OK);
    this->execute(1);
    this->dspApi1.onGetDspChannelApi = &this->dspApi2.channelApi;
    this->execute(1);
    EXPECT_EQ(this->served(), "IDspChannelApi_1 IDspChannelApi_2 ");
}

TYPED_TEST(DspPpsCommandsTest, SecondInitialiseThatFailsLosesTheDspThatIsGone)
{
    ASSERT_EQ(this->impl.initialize(2), eTI_S_OK);
    this->withdraw("IDspApi_2");
    EXPECT_EQ(this->impl.initialize(2), 0x8000);
    EXPECT_EQ(this->execute(1).tiResult, 0);
    EXPECT_EQ(this->missingIn([&] { this->execute(2); }), "IDspApi of radio channel 2");
}

TYPED_TEST(DspPpsCommandsTest, TraceNamesTheSourceOfTheCommand)
{
    ASSERT_EQ(this->impl.initialize(1), eTI_S_OK);
    TypeParam::answer(this->dspApi1.channelApi) = 0x8000;
    const std::string name = std::string(TypeParam::Impl::identity.className);
    this->expectTraceOf(TypeParam::Impl::identity.traceChannel,
                        "src/Device/ZyrTopApi/messages/" + name + "/src/" + name + "Impl", "execute",
                        [&] { this->execute(1); });
}

} // namespace
} // namespace zyr_top_api
