#include "IAcmHandler.h"
#include "IAlarmHandlerTopApi.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <future>
#include <string>
#include <thread>
#include <vector>

namespace
{

using zyr_top_api::AlarmEvent;

/// One line for each event, so that differences read well.
std::string printed(const std::vector<AlarmEvent>& events)
{
    std::string text;
    for (const auto& event : events) {
        text += event.eventName + " " + std::to_string(event.radioChannelId) +
                (event.isActive ? " active " : " inactive ") +
                std::to_string(event.numberOfTimesEventHasBeenActive) + "\n";
    }
    return text;
}

class AlarmHandlerTest : public SimulationFixture
{
  protected:
    struct Answer
    {
        ResultCode result;
        std::vector<AlarmEvent> events;
    };

    IAlarmHandlerTopApi& handler() { return require<IAlarmHandlerTopApi>("IAlarmHandlerTopApi"); }
    void enableAcm(unsigned channel, bool enable)
    {
        ASSERT_EQ(require<IAcmHandler>("IAcmHandler", channel).enableAcm(enable), 0U);
    }

    std::vector<AlarmEvent> known()
    {
        std::vector<AlarmEvent> events;
        EXPECT_EQ(handler().getAlarms(events), 0U);
        return events;
    }

    /// A long poll on a thread of its own.
    std::future<Answer> poll(std::vector<AlarmEvent> view)
    {
        return std::async(std::launch::async, [this, view = std::move(view)]() mutable {
            const auto result = handler().getFastAlarms(view);
            return Answer{result, view};
        });
    }

    void waitUntilHanging(unsigned count)
    {
        while (node().alarmHandler().hangingRequests() != count) {
            std::this_thread::yield();
        }
    }
};

TEST_F(AlarmHandlerTest, freshNodeHasNoAlarms)
{
    EXPECT_EQ(printed(known()), "");
}

TEST_F(AlarmHandlerTest, alarmStaysKnownWhenItIsCleared)
{
    enableAcm(2, false);
    EXPECT_EQ(printed(known()), "AcmDisabled 2 active 1\n");
    enableAcm(2, false);
    EXPECT_EQ(printed(known()), "AcmDisabled 2 active 1\n") << "raised already";
    enableAcm(2, true);
    EXPECT_EQ(printed(known()), "AcmDisabled 2 inactive 1\n");
    enableAcm(2, false);
    enableAcm(1, false);
    EXPECT_EQ(printed(known()), "AcmDisabled 1 active 1\nAcmDisabled 2 active 2\n");
}

TEST_F(AlarmHandlerTest, optionOneGivesTheActiveAlarmsOnly)
{
    enableAcm(1, false);
    enableAcm(1, true);
    enableAcm(2, false);
    for (const auto& [option, expected] :
         {std::pair(0, "AcmDisabled 1 inactive 1\nAcmDisabled 2 active 1\n"),
          std::pair(1, "AcmDisabled 2 active 1\n"),
          std::pair(2, "AcmDisabled 1 inactive 1\nAcmDisabled 2 active 1\n"),
          std::pair(-1, "AcmDisabled 1 inactive 1\nAcmDisabled 2 active 1\n")}) {
        std::vector<AlarmEvent> events;
        EXPECT_EQ(handler().getAlarmsByOption(option, events), 0U);
        EXPECT_EQ(printed(events), expected) << option;
    }
}

TEST_F(AlarmHandlerTest, settingResetsTheCountsOfInactiveAlarms)
{
    enableAcm(1, false);
    enableAcm(1, true);
    enableAcm(2, false);
    EXPECT_EQ(handler().setAlarmEvents({}), 0U);
    EXPECT_EQ(printed(known()), "AcmDisabled 1 inactive 0\nAcmDisabled 2 active 1\n");
}

TEST_F(AlarmHandlerTest, longPollWithAnOldViewAnswersAtOnce)
{
    enableAcm(1, false);
    std::vector<AlarmEvent> view;
    EXPECT_EQ(handler().getFastAlarms(view), 0U);
    EXPECT_EQ(printed(view), "AcmDisabled 1 active 1\n");

    auto oldCount = view;
    oldCount[0].numberOfTimesEventHasBeenActive = 0;
    EXPECT_EQ(handler().getFastAlarms(oldCount), 0U);
    EXPECT_EQ(printed(oldCount), "AcmDisabled 1 active 1\n");

    auto otherChannel = view;
    otherChannel[0].radioChannelId = 2;
    EXPECT_EQ(handler().getFastAlarms(otherChannel), 0U);
    EXPECT_EQ(printed(otherChannel), "AcmDisabled 1 active 1\n");
}

TEST_F(AlarmHandlerTest, longPollHangsUntilAnAlarmChanges)
{
    auto answer = poll({});
    waitUntilHanging(1);
    enableAcm(1, false);
    const auto [result, events] = answer.get();
    EXPECT_EQ(result, 0U);
    EXPECT_EQ(printed(events), "AcmDisabled 1 active 1\n");
}

TEST_F(AlarmHandlerTest, orderOfTheViewDoesNotMatter)
{
    enableAcm(1, false);
    enableAcm(2, false);
    auto view = known();
    std::swap(view.front(), view.back());
    auto answer = poll(view);
    waitUntilHanging(1);
    enableAcm(2, true);
    EXPECT_EQ(printed(answer.get().events), "AcmDisabled 1 active 1\nAcmDisabled 2 inactive 1\n");
}

TEST_F(AlarmHandlerTest, releaseEndsThePollsThatHangAndNoLaterOne)
{
    auto first = poll({});
    auto second = poll({});
    waitUntilHanging(2);
    EXPECT_EQ(handler().releaseFastAlarmRequests(), 0U);
    EXPECT_EQ(first.get().result, 0x8015U);
    EXPECT_EQ(second.get().result, 0x8015U);

    auto third = poll({});
    waitUntilHanging(1);
    enableAcm(1, false);
    EXPECT_EQ(third.get().result, 0U);
}

TEST_F(AlarmHandlerTest, releaseWithoutPollsIsNothing)
{
    EXPECT_EQ(handler().releaseFastAlarmRequests(), 0U);
    auto answer = poll({});
    waitUntilHanging(1);
    enableAcm(1, false);
    EXPECT_EQ(answer.get().result, 0U);
}

TEST_F(AlarmHandlerTest, shutdownEndsAllPollsAndLetsNoneHangAgain)
{
    auto answer = poll({});
    waitUntilHanging(1);
    node().shutdown();
    EXPECT_EQ(answer.get().result, 0x8015U);
    std::vector<AlarmEvent> view;
    EXPECT_EQ(handler().getFastAlarms(view), 0x8015U);
}

TEST_F(AlarmHandlerTest, manyPollsAllHearOfTheChange)
{
    std::vector<std::future<Answer>> answers;
    for (unsigned count = 0; count < 8; ++count) {
        answers.push_back(poll({}));
    }
    waitUntilHanging(8);
    enableAcm(2, false);
    for (auto& answer : answers) {
        EXPECT_EQ(printed(answer.get().events), "AcmDisabled 2 active 1\n");
    }
}

TEST_F(AlarmHandlerTest, failsOnRequest)
{
    node().faults().inject({"IAlarmHandlerTopApi", "getFastAlarms", 0, 0x8044, 1});
    std::vector<AlarmEvent> view;
    EXPECT_EQ(handler().getFastAlarms(view), 0x8044U);
}

} // namespace
