#include "FreshChannel.h"
#include "MemorySink.h"
#include "TraceService.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <barrier>
#include <stdexcept>
#include <thread>
#include <vector>

namespace
{

using testing::Contains;
using testing::HasSubstr;
using zyr_platform::MemorySink;
using zyr_platform::TraceService;

class TraceLevels : public testing::Test
{
  protected:
    TraceLevels() { service.resetLevels(); }
    ~TraceLevels() override { service.resetLevels(); }

    std::size_t countOf(const TylTrace& channel) const
    {
        const auto channels = service.channels();
        return static_cast<std::size_t>(
            std::ranges::count(channels, channel.name(), &TraceService::Channel::name));
    }

    TraceService& service = TraceService::get();
};

TEST_F(TraceLevels, channelStartsAtItsDefaultLevel)
{
    const TylTrace& channel = freshChannel("Levels.default");
    EXPECT_TRUE(channel.isEnabled(1));
    EXPECT_TRUE(channel.isEnabled(3));
    EXPECT_FALSE(channel.isEnabled(4));
    EXPECT_FALSE(channel.isEnabled(7));
}

TEST_F(TraceLevels, levelBeforeTheFirstUseIsKeptForIt)
{
    const TylTrace& channel = freshChannel("Levels.early");
    EXPECT_EQ(countOf(channel), 0U);
    EXPECT_EQ(service.setLevel(channel.name(), 6), "trace level 6 for \"" + std::string(channel.name()) +
                                                       "\": no channel in use yet, kept for later");
    EXPECT_TRUE(channel.isEnabled(6));
    EXPECT_FALSE(channel.isEnabled(7));
}

TEST_F(TraceLevels, levelOfAUsedChannelChangesAtOnce)
{
    const TylTrace& channel = freshChannel("Levels.used");
    EXPECT_FALSE(channel.isEnabled(4));
    EXPECT_EQ(service.setLevel(channel.name(), 7),
              "trace level 7 for \"" + std::string(channel.name()) + "\": 1 channel in use");
    EXPECT_TRUE(channel.isEnabled(7));
}

TEST_F(TraceLevels, wildcardNamesUsedAndComingChannelsAndNoOthers)
{
    const std::string stem = freshChannel("Levels.wild").name();
    const TylTrace& first = freshChannel(stem + ".TI.a");
    const TylTrace& second = freshChannel(stem + ".TI.b");
    const TylTrace& other = freshChannel(stem + ".CI.c");
    const TylTrace& later = freshChannel(stem + ".TI.d");
    EXPECT_FALSE(first.isEnabled(5) || second.isEnabled(5) || other.isEnabled(5));

    EXPECT_EQ(service.setLevel(stem + ".TI.*", 5),
              "trace level 5 for \"" + stem + ".TI.*\": 2 channels in use");
    EXPECT_TRUE(first.isEnabled(5));
    EXPECT_TRUE(second.isEnabled(5));
    EXPECT_FALSE(other.isEnabled(5));
    EXPECT_TRUE(later.isEnabled(5));
}

TEST_F(TraceLevels, starMayStandAnywhereAndForNothing)
{
    struct Case
    {
        const char* pattern;
        bool fits;
    };
    const Case cases[] = {{"Star.abcabd", true},    {"Star.*abd", true},      {"*abd", true},
                          {"Star.*b*b*", true},     {"**Star.abcabd*", true}, {"Star.a*c*d", true},
                          {"Star.abcabd*d", false}, {"Star.*abc", false},     {"star.*", false},
                          {"Star.abcab", false},    {"*x*", false},           {"Star.abcabdd", false}};
    static constinit TylTrace channel("Star.abcabd", 3, TylTraceHdrOption_Default);
    for (const Case& each : cases) {
        service.resetLevels();
        channel.isEnabled(7);
        service.setLevel(each.pattern, 7);
        EXPECT_EQ(channel.isEnabled(7), each.fits) << each.pattern;
    }
}

TEST_F(TraceLevels, latestSettingThatNamesAChannelCounts)
{
    const TylTrace& channel = freshChannel("Levels.latest");
    service.setLevel("Levels.lat*", 6);
    service.setLevel(channel.name(), 2);
    EXPECT_FALSE(channel.isEnabled(3));
    service.setLevel("Levels.lat*", 5);
    EXPECT_TRUE(channel.isEnabled(5));
    EXPECT_FALSE(channel.isEnabled(6));
}

TEST_F(TraceLevels, earlierSettingHoldsWhereTheLatestDoesNotNameTheChannel)
{
    const TylTrace& channel = freshChannel("Levels.hold");
    service.setLevel("Levels.hold*", 6);
    service.setLevel("Levels.other*", 1);
    EXPECT_TRUE(channel.isEnabled(6));
}

TEST_F(TraceLevels, allChannelsAreSetTogether)
{
    const TylTrace& used = freshChannel("Levels.all");
    const TylTrace& coming = freshChannel("Levels.all");
    used.isEnabled(1);
    EXPECT_THAT(service.setLevelForAll(7), HasSubstr("trace level 7 for \"*\": "));
    EXPECT_TRUE(used.isEnabled(7));
    EXPECT_TRUE(coming.isEnabled(7));
}

TEST_F(TraceLevels, levelZeroSilencesErrorsToo)
{
    const auto sink = std::make_shared<MemorySink>();
    const auto added = service.addSink(sink);
    const TylTrace& channel = freshChannel("Levels.zero");
    service.setLevel(channel.name(), 0);
    EXPECT_FALSE(channel.isEnabled(1));
    channel.logMsg(1, {"f.cpp", 1, "g"}, "not asked for");
    channel.logEnterMsg({"f.cpp", 1, "g"});
    EXPECT_TRUE(sink->records().empty());
}

TEST_F(TraceLevels, resetBringsTheDefaultsBackAndForgetsWhatWasKept)
{
    const TylTrace& used = freshChannel("Levels.reset", 2);
    const TylTrace& coming = freshChannel("Levels.reset", 5);
    service.setLevel("Levels.reset*", 7);
    EXPECT_TRUE(used.isEnabled(7));
    service.resetLevels();
    EXPECT_TRUE(used.isEnabled(2));
    EXPECT_FALSE(used.isEnabled(3));
    EXPECT_TRUE(coming.isEnabled(5));
    EXPECT_FALSE(coming.isEnabled(6));
}

TEST_F(TraceLevels, channelsAreListedWithLevelAndDefault)
{
    const TylTrace& channel = freshChannel("Levels.list", 2);
    channel.isEnabled(1);
    service.setLevel(channel.name(), 5);
    const auto channels = service.channels();
    EXPECT_THAT(channels, Contains(TraceService::Channel{channel.name(), 5, 2}));
    EXPECT_TRUE(std::ranges::is_sorted(channels, {}, &TraceService::Channel::name));
}

TEST_F(TraceLevels, defaultLevelOutsideTheRangeCountsAsTheNearest)
{
    const TylTrace& high = freshChannel("Levels.high", 255);
    const TylTrace& low = freshChannel("Levels.low", -4);
    EXPECT_TRUE(high.isEnabled(7));
    EXPECT_FALSE(high.isEnabled(8));
    EXPECT_FALSE(low.isEnabled(1));
    EXPECT_THAT(service.channels(), Contains(TraceService::Channel{high.name(), 7, 7}));
    EXPECT_EQ(countOf(high), 1U);
}

TEST_F(TraceLevels, settingThatCannotBeIsRefusedAndChangesNothing)
{
    const TylTrace& channel = freshChannel("Levels.refused");
    for (const TylTraceLevel level : {-1, 8, 255}) {
        try {
            service.setLevel(channel.name(), level);
            ADD_FAILURE() << level;
        } catch (const std::invalid_argument& refusal) {
            EXPECT_EQ(refusal.what(), "trace level " + std::to_string(level) + " is not within 0 to 7");
        }
    }
    EXPECT_THROW(service.setLevel("", 3), std::invalid_argument);
    EXPECT_TRUE(channel.isEnabled(3));
    EXPECT_FALSE(channel.isEnabled(4));
}

TEST_F(TraceLevels, twoChannelsOfOneNameAreBothSet)
{
    static constinit TylTrace first("Levels.twin", 3, TylTraceHdrOption_Default);
    static constinit TylTrace second("Levels.twin", 3, TylTraceHdrOption_Default);
    first.isEnabled(7);
    service.setLevel("Levels.twin", 7);
    EXPECT_TRUE(first.isEnabled(7));
    EXPECT_TRUE(second.isEnabled(7));
}

// What happens when two threads ask a new channel at the same moment.
TEST_F(TraceLevels, channelThatIsAttachedAgainIsKnownOnceAndKeepsItsLevel)
{
    const TylTrace& channel = freshChannel("Levels.again");
    service.setLevel(channel.name(), 5);
    EXPECT_EQ(service.attach(channel), 5);
    EXPECT_EQ(service.attach(channel), 5);
    EXPECT_EQ(countOf(channel), 1U);
}

TEST_F(TraceLevels, threadsThatMeetAtANewChannelAttachItOnce)
{
    constexpr int kChannels = 500;
    std::vector<const TylTrace*> channels;
    for (int i = 0; i < kChannels; ++i) {
        channels.push_back(&freshChannel("Levels.race"));
    }
    std::atomic<int> enabled{0};
    std::barrier together(4);
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&] {
                for (const TylTrace* channel : channels) {
                    together.arrive_and_wait();
                    enabled += channel->isEnabled(3) ? 1 : 0;
                }
            });
        }
    }
    EXPECT_EQ(enabled, 4 * kChannels);
    for (const TylTrace* channel : channels) {
        EXPECT_EQ(countOf(*channel), 1U);
    }
}

TEST_F(TraceLevels, levelsMayFlipWhileManyThreadsTrace)
{
    constexpr int kMessages = 500;
    constexpr int kWriters = 4;
    const auto sink = std::make_shared<MemorySink>();
    const auto added = service.addSink(sink);
    const TylTrace& channel = freshChannel("Levels.flip");
    std::atomic<int> writing{kWriters};
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < kWriters; ++i) {
            threads.emplace_back([&] {
                for (int message = 0; message < kMessages; ++message) {
                    channel.logMsg(1, {"f.cpp", 1, "g"}, "always");
                    channel.logMsg(7, {"f.cpp", 2, "g"}, "at times");
                }
                --writing;
            });
        }
        threads.emplace_back([&] {
            while (writing > 0) {
                service.setLevel(channel.name(), 7);
                service.setLevel("Levels.fl*", 1);
                service.resetLevels();
                service.channels();
            }
        });
    }
    const auto records = sink->records();
    EXPECT_EQ(std::ranges::count(records, "always", &MemorySink::Kept::text), kMessages * kWriters);
    EXPECT_LE(std::ranges::count(records, "at times", &MemorySink::Kept::text), kMessages * kWriters);
}

TEST_F(TraceLevels, patternHas128CharactersAtTheMost)
{
    EXPECT_NO_THROW(service.setLevel(std::string(128, 'x'), 4));
    try {
        service.setLevel(std::string(129, 'x'), 4);
        ADD_FAILURE();
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), "the name of the trace channel has 129 characters, it may have 128");
    }
}

TEST_F(TraceLevels, settingsAreBoundedAndOneForAllReplacesThem)
{
    for (int count = 0; count < 256; ++count) {
        service.setLevel("Levels.bound." + std::to_string(count), 4);
    }
    EXPECT_NO_THROW(service.setLevel("Levels.bound.17", 5)) << "one that is there already";
    try {
        service.setLevel("Levels.bound.256", 4);
        ADD_FAILURE();
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(
            error.what(),
            "there are 256 settings of trace levels, no more can be kept; one for \"*\" replaces all");
    }
    const TylTrace& channel = freshChannel("Levels.unbound");
    EXPECT_FALSE(channel.isEnabled(4)) << "what was refused has changed nothing";
    service.setLevel("*", 2);
    EXPECT_NO_THROW(service.setLevel("Levels.bound.256", 4));
}

TEST_F(TraceLevels, patternOfManyStarsIsMatchedInNoTime)
{
    std::string pattern;
    for (int count = 0; count < 63; ++count) {
        pattern += "*a";
    }
    pattern += "*b";
    const TylTrace& hostile = freshChannel(std::string(20'000, 'a'));
    EXPECT_TRUE(hostile.isEnabled(1));
    const auto start = std::chrono::steady_clock::now();
    service.setLevel(pattern, 7);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(100));
    EXPECT_FALSE(hostile.isEnabled(7));
}

} // namespace
