#include "CommandTest.h"
#include "CriMimoSpatialMuteImpl.h"
#include "CriXpicSlaveMuteImpl.h"
#include "NodeDoubles.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

// The two mutes are one pattern: the same tests, with the names and texts of each.

namespace zyr_top_api
{
namespace
{

struct XpicSlave
{
    using Impl = CriXpicSlaveMuteImpl;
    static StandardResponse dispatch(const Impl::Command& command) { return criXpicSlaveMute(command); }
    static auto& controller(zyr_test::ChannelDoubles& channel) { return channel.ccdpController; }
    static auto& onMute(zyr_test::ChannelDoubles& channel) { return channel.ccdpController.onXpicMute; }

    static constexpr const char* kWire = "CRI.XpicSlaveMute";
    static constexpr const char* kTrace = "ZYR.TI.CriXpicSlaveMute";
    static constexpr const char* kController = "ICcdpController";
    static constexpr const char* kOperation = "xpicMute";
    static constexpr const char* kWhat = "slave";
    static constexpr const char* kLogged = "CRI.XpicSlaveMute failed to mute xpic slave";
    static constexpr const char* kAnswered = "CRI.XpicSlaveMute failed to mute xpic slave";
};

struct MimoSpatial
{
    using Impl = CriMimoSpatialMuteImpl;
    static StandardResponse dispatch(const Impl::Command& command) { return criMimoSpatialMute(command); }
    static auto& controller(zyr_test::ChannelDoubles& channel) { return channel.mimoController; }
    static auto& onMute(zyr_test::ChannelDoubles& channel)
    {
        return channel.mimoController.onMimoSpatialMute;
    }

    static constexpr const char* kWire = "CRI.MimoSpatialMute";
    static constexpr const char* kTrace = "ZYR.TI.CriMimoSpatialMute";
    static constexpr const char* kController = "IMimoController";
    static constexpr const char* kOperation = "mimoSpatialMute";
    static constexpr const char* kWhat = "mimo";
    static constexpr const char* kLogged = "CRI.CriMimoSpatialMute failed to mute mimo diversity";
    static constexpr const char* kAnswered = "CRI.CriMimoSpatialMute failed to mimo diversity";
};

template <class Path>
class MuteTest : public zyr_test::CommandTest
{
  protected:
    using Impl = typename Path::Impl;

    MuteTest()
    {
        publishNode(node);
        transcript.clear();
    }

    /// The form with the path's own texts in it.
    static std::string text(std::string form)
    {
        const auto replace = [&form](const std::string& word, const std::string& by) {
            for (auto at = form.find(word); at != std::string::npos; at = form.find(word, at + by.size())) {
                form.replace(at, word.size(), by);
            }
        };
        replace("WIRE", Path::kWire);
        replace("TRACE", Path::kTrace);
        replace("CONTROLLER", Path::kController);
        replace("OPERATION", Path::kOperation);
        replace("WHAT", Path::kWhat);
        replace("LOGGED", Path::kLogged);
        replace("ANSWERED", Path::kAnswered);
        return form;
    }

    zyr_test::NodeDoubles node{transcript};
    Impl impl;
};

TYPED_TEST_SUITE_P(MuteTest);

TYPED_TEST_P(MuteTest, FrameShowsTheRequestAndTheControllerOfTheChannelIsMuted)
{
    this->template enrol<typename TypeParam::Impl>();
    this->setTraceLevel("ZYR.COMM", 5);
    this->setTraceLevel(TypeParam::kTrace, 7);
    this->tell(TypeParam::dispatch({2, true}));
    EXPECT_EQ(this->transcript.text(), this->text(R"(
5 ZYR.COMM: WIRE Request: RadioChannelID: 2, Mute: 1
6 TRACE:
3 TRACE: muting 1, WHAT on radiochannel: 2
CONTROLLER_2.OPERATION(true)
5 ZYR.COMM: WIRE Response: StandardResponse Sent\n\n----------------------------------------------------\n
result 0x0 0 ""
prints StandardResponse Sent\n
)"));
}

TYPED_TEST_P(MuteTest, UnmutingReachesTheControllerOfTheChannel)
{
    this->template enrol<typename TypeParam::Impl>();
    this->tell(TypeParam::dispatch({1, false}));
    EXPECT_EQ(this->transcript.text(), this->text(R"(
3 TRACE: muting 0, WHAT on radiochannel: 1
CONTROLLER_1.OPERATION(false)
result 0x0 0 ""
prints StandardResponse Sent\n
)"));
}

TYPED_TEST_P(MuteTest, MutingTwiceCallsTheControllerTwice)
{
    ASSERT_EQ(this->impl.initialize(2), eTI_S_OK);
    this->impl.execute({1, true});
    this->impl.execute({1, true});
    EXPECT_EQ(this->transcript.text(), this->text(R"(
3 TRACE: muting 1, WHAT on radiochannel: 1
CONTROLLER_1.OPERATION(true)
3 TRACE: muting 1, WHAT on radiochannel: 1
CONTROLLER_1.OPERATION(true)
)"));
}

TYPED_TEST_P(MuteTest, ControllerThatFailsIsToldInTheTraceAndInTheResponse)
{
    ASSERT_EQ(this->impl.initialize(2), eTI_S_OK);
    TypeParam::onMute(this->node.channel1).inTurn({0x8000, 0xFFFFFFFFU});
    this->tell(this->impl.execute({1, true}));
    this->tell(this->impl.execute({1, false}));
    EXPECT_EQ(this->transcript.text(), this->text(R"(
3 TRACE: muting 1, WHAT on radiochannel: 1
CONTROLLER_1.OPERATION(true)
1 TRACE: LOGGED
result 0x8000 4 "ANSWERED"
prints StandardResponse Sent\n
3 TRACE: muting 0, WHAT on radiochannel: 1
CONTROLLER_1.OPERATION(false)
1 TRACE: LOGGED
result 0x8000 4 "ANSWERED"
prints StandardResponse Sent\n
)"));
}

TYPED_TEST_P(MuteTest, WarningsOfTheControllerComeOutAsPlainSuccess)
{
    ASSERT_EQ(this->impl.initialize(2), eTI_S_OK);
    TypeParam::onMute(this->node.channel2).inTurn({0x1000, 0x7FFF});
    EXPECT_EQ(this->outcome(this->impl.execute({2, true})), "result 0x0 0 \"\"");
    EXPECT_EQ(this->outcome(this->impl.execute({2, true})), "result 0x0 0 \"\"");
}

TYPED_TEST_P(MuteTest, ChannelAboveTheCountIsToldInTheSummaryAndReachesNoController)
{
    ASSERT_EQ(this->impl.initialize(1), eTI_S_OK);
    this->setTraceLevel(TypeParam::kTrace, 7);
    this->tell(this->impl.execute({2, true}));
    this->tell(this->impl.execute({4294967295U, false}));
    EXPECT_EQ(this->transcript.text(), this->text(R"(
6 TRACE:
3 TRACE: muting 1, WHAT on radiochannel: 2
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
6 TRACE:
3 TRACE: muting 0, WHAT on radiochannel: 4294967295
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)"));
}

TYPED_TEST_P(MuteTest, ChannelEqualToTheCountIsAcceptedAndOneAboveRefused)
{
    ASSERT_EQ(this->impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(this->outcome(this->impl.execute({2, true})), "result 0x0 0 \"\"");
    EXPECT_EQ(this->outcome(this->impl.execute({3, true})),
              "result 0xA100 2 \"RadioChannelID out of bounds\"");
}

TYPED_TEST_P(MuteTest, Channel0PassesTheBoundCheckAndReachesNoController)
{
    ASSERT_EQ(this->impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(this->missingIn([&] {
        this->impl.execute({0, true});
    }),
              this->text("CONTROLLER of radio channel 0"));
    EXPECT_EQ(this->transcript.text(), this->text(R"(
3 TRACE: muting 1, WHAT on radiochannel: 0
)"));
}

TYPED_TEST_P(MuteTest, ObjectThatWasNotInitialisedRefusesEveryChannel)
{
    EXPECT_EQ(this->outcome(this->impl.execute({})), "result 0xA100 2 \"RadioChannelID out of bounds\"");
}

TYPED_TEST_P(MuteTest, InitialiseTellsNoCountAndRefusesAnyButOneAndTwo)
{
    this->setTraceLevel(TypeParam::kTrace, 7);
    EXPECT_EQ(this->impl.initialize(0), 0xA100);
    EXPECT_EQ(this->impl.initialize(3), 0xA100);
    EXPECT_EQ(this->transcript.text(), this->text(R"x(
6 TRACE:
1 TRACE: Error: numberOfChannels is out of range (0)
6 TRACE:
1 TRACE: Error: numberOfChannels is out of range (3)
)x"));
}

TYPED_TEST_P(MuteTest, InitialiseNamesTheMissingControllerAndKeepsTheOneBefore)
{
    this->withdraw(this->text("CONTROLLER_2"));
    EXPECT_EQ(this->impl.initialize(2), 0x8000);
    EXPECT_EQ(this->outcome(this->impl.execute({1, true})), "result 0x0 0 \"\"");
    EXPECT_EQ(this->missingIn([&] {
        this->impl.execute({2, true});
    }),
              this->text("CONTROLLER of radio channel 2"));
    EXPECT_EQ(this->transcript.text(), this->text(R"(
1 TRACE:  Error getting interface to CONTROLLER_2
3 TRACE: muting 1, WHAT on radiochannel: 1
CONTROLLER_1.OPERATION(true)
3 TRACE: muting 1, WHAT on radiochannel: 2
)"));
}

TYPED_TEST_P(MuteTest, SecondInitialiseFetchesTheControllersAnew)
{
    ASSERT_EQ(this->impl.initialize(2), eTI_S_OK);
    this->withdraw(this->text("CONTROLLER_1"));
    EXPECT_EQ(this->impl.initialize(2), 0x8000);
    EXPECT_EQ(this->missingIn([&] {
        this->impl.execute({1, true});
    }),
              this->text("CONTROLLER of radio channel 1"));
    this->publish(TypeParam::controller(this->node.channel1));
    EXPECT_EQ(this->impl.initialize(2), 0);
    EXPECT_EQ(this->outcome(this->impl.execute({1, true})), "result 0x0 0 \"\"");
}

REGISTER_TYPED_TEST_SUITE_P(
    MuteTest, FrameShowsTheRequestAndTheControllerOfTheChannelIsMuted,
    UnmutingReachesTheControllerOfTheChannel, MutingTwiceCallsTheControllerTwice,
    ControllerThatFailsIsToldInTheTraceAndInTheResponse, WarningsOfTheControllerComeOutAsPlainSuccess,
    ChannelAboveTheCountIsToldInTheSummaryAndReachesNoController,
    ChannelEqualToTheCountIsAcceptedAndOneAboveRefused, Channel0PassesTheBoundCheckAndReachesNoController,
    ObjectThatWasNotInitialisedRefusesEveryChannel, InitialiseTellsNoCountAndRefusesAnyButOneAndTwo,
    InitialiseNamesTheMissingControllerAndKeepsTheOneBefore, SecondInitialiseFetchesTheControllersAnew);

INSTANTIATE_TYPED_TEST_SUITE_P(CriXpicSlaveMute, MuteTest, XpicSlave);
INSTANTIATE_TYPED_TEST_SUITE_P(CriMimoSpatialMute, MuteTest, MimoSpatial);

} // namespace
} // namespace zyr_top_api
