#include "FileSink.h"
#include "FreshChannel.h"
#include "MemorySink.h"
#include "TemporaryFolder.h"
#include "TraceService.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <system_error>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

namespace
{

using testing::HasSubstr;
using testing::MatchesRegex;
using zyr_platform::DescriptorSink;
using zyr_platform::FileSink;
using zyr_platform::MemorySink;
using zyr_platform::Registration;
using zyr_platform::StandardErrorSink;
using zyr_platform::TraceRecord;
using zyr_platform::TraceService;
using zyr_platform::TraceSink;

constexpr TylTraceHeader kHeader{"src/a/B.cpp", 42, "execute"};

class CallbackSink : public TraceSink
{
  public:
    explicit CallbackSink(std::function<void(const TraceRecord&)> callback) : m_callback(std::move(callback))
    {}
    void write(const TraceRecord& record) override { m_callback(record); }

  private:
    std::function<void(const TraceRecord&)> m_callback;
};

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

TEST(TraceSinks, memorySinkGetsTheWholeRecord)
{
    const auto sink = std::make_shared<MemorySink>();
    const auto added = TraceService::get().addSink(sink);
    const TylTrace& channel = freshChannel("Sinks.record");
    const auto before = std::chrono::system_clock::now();
    channel.logMsg(2, kHeader, std::string_view("a\0b", 3));
    const auto after = std::chrono::system_clock::now();

    const auto records = sink->take();
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].channel, channel.name());
    EXPECT_EQ(records[0].level, 2);
    EXPECT_STREQ(records[0].header.file, "src/a/B.cpp");
    EXPECT_EQ(records[0].header.line, 42);
    EXPECT_STREQ(records[0].header.function, "execute");
    EXPECT_EQ(records[0].text, std::string("a\0b", 3));
    EXPECT_EQ(records[0].threadId, ::gettid());
    EXPECT_LE(before, records[0].time);
    EXPECT_LE(records[0].time, after);
    EXPECT_TRUE(sink->records().empty());
}

TEST(TraceSinks, entryIsTracedAtLevelSix)
{
    const auto sink = std::make_shared<MemorySink>();
    const auto added = TraceService::get().addSink(sink);
    const TylTrace& channel = freshChannel("Sinks.entry", 5);
    channel.logEnterMsg(kHeader, "off");
    TraceService::get().setLevel(channel.name(), 6);
    channel.logEnterMsg(kHeader);
    channel.logEnterMsg(kHeader, "on");
    const auto records = sink->records();
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0].level, 6);
    EXPECT_EQ(records[0].text, "");
    EXPECT_EQ(records[1].text, "on");
}

TEST(TraceSinks, withdrawnSinkGetsNothingMoreAndOthersStay)
{
    const auto first = std::make_shared<MemorySink>();
    const auto second = std::make_shared<MemorySink>();
    auto addedFirst = TraceService::get().addSink(first);
    const auto addedSecond = TraceService::get().addSink(second);
    const TylTrace& channel = freshChannel("Sinks.withdrawn");
    channel.logMsg(1, kHeader, "both");
    addedFirst.withdraw();
    addedFirst.withdraw();
    channel.logMsg(1, kHeader, "second");
    EXPECT_EQ(first->records().size(), 1U);
    EXPECT_EQ(second->records().size(), 2U);
}

TEST(TraceSinks, sinkThatWasAddedTwiceIsWithdrawnOnceAtATime)
{
    const auto sink = std::make_shared<MemorySink>();
    auto once = TraceService::get().addSink(sink);
    const auto twice = TraceService::get().addSink(sink);
    const TylTrace& channel = freshChannel("Sinks.twice");
    channel.logMsg(1, kHeader, "x");
    EXPECT_EQ(sink->take().size(), 2U);
    once.withdraw();
    channel.logMsg(1, kHeader, "x");
    EXPECT_EQ(sink->take().size(), 1U);
}

TEST(TraceSinks, noSinkAtAllIsRefused)
{
    EXPECT_THROW(static_cast<void>(TraceService::get().addSink(nullptr)), std::invalid_argument);
}

TEST(TraceSinks, messageWithoutSinksGoesNowhere)
{
    const TylTrace& channel = freshChannel("Sinks.none");
    channel.logMsg(1, kHeader, "lost");
    const auto sink = std::make_shared<MemorySink>();
    const auto added = TraceService::get().addSink(sink);
    EXPECT_TRUE(sink->records().empty());
}

TEST(TraceSinks, exceptionOfASinkReachesNeitherCallerNorOtherSinks)
{
    const auto throwing = TraceService::get().addSink(
        std::make_shared<CallbackSink>([](const TraceRecord&) { throw std::runtime_error("disk on fire"); }));
    const auto sink = std::make_shared<MemorySink>();
    const auto added = TraceService::get().addSink(sink);
    EXPECT_NO_THROW(freshChannel("Sinks.throwing").logMsg(1, kHeader, "x"));
    EXPECT_EQ(sink->records().size(), 1U);
}

TEST(TraceSinks, whatASinkTracesIsDropped)
{
    const TylTrace& channel = freshChannel("Sinks.recursive");
    int calls = 0;
    const auto added = TraceService::get().addSink(std::make_shared<CallbackSink>([&](const TraceRecord&) {
        ++calls;
        channel.logMsg(1, kHeader, "from the sink");
    }));
    channel.logMsg(1, kHeader, "x");
    channel.logMsg(1, kHeader, "y");
    EXPECT_EQ(calls, 2);
}

TEST(TraceSinks, errnoSurvivesATrace)
{
    const auto added =
        TraceService::get().addSink(std::make_shared<CallbackSink>([](const TraceRecord&) { errno = EIO; }));
    const TylTrace& channel = freshChannel("Sinks.errno");
    errno = ENOTTY;
    channel.logMsg(1, kHeader, "x");
    EXPECT_EQ(errno, ENOTTY);
}

// The slow sink holds its first writer until the second one is through: this ends only if nobody waits.
TEST(TraceSinks, slowSinkHoldsUpItsOwnWriterAlone)
{
    const TylTrace& channel = freshChannel("Sinks.slow");
    std::atomic<bool> isSlowInside{false};
    std::atomic<bool> isQuickThrough{false};
    const auto added =
        TraceService::get().addSink(std::make_shared<CallbackSink>([&](const TraceRecord& record) {
            if (record.text == "slow") {
                isSlowInside = true;
                isQuickThrough.wait(false);
            }
        }));
    const std::jthread slow([&] { channel.logMsg(1, kHeader, "slow"); });
    while (!isSlowInside) {
        std::this_thread::yield();
    }
    channel.logMsg(1, kHeader, "quick");
    const auto other = TraceService::get().addSink(std::make_shared<MemorySink>());
    isQuickThrough = true;
    isQuickThrough.notify_all();
}

TEST(TraceSinks, sinksMayComeAndGoWhileManyThreadsTrace)
{
    const TylTrace& channel = freshChannel("Sinks.come");
    const auto lasting = std::make_shared<MemorySink>();
    const auto added = TraceService::get().addSink(lasting);
    std::atomic<int> writing{4};
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&] {
                for (int message = 0; message < 300; ++message) {
                    channel.logMsg(1, kHeader, "x");
                }
                --writing;
            });
        }
        threads.emplace_back([&] {
            while (writing > 0) {
                const auto passing = TraceService::get().addSink(std::make_shared<MemorySink>());
            }
        });
    }
    EXPECT_EQ(lasting->records().size(), 1200U);
}

TEST(TraceSinks, fileHoldsOneLineARecordBehindWhatWasThere)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("trace.log");
    std::ofstream(path) << "old\n";
    const TylTrace& channel = freshChannel("Sinks.file");
    {
        const auto added = TraceService::get().addSink(std::make_shared<FileSink>(path));
        channel.logMsg(3, kHeader, "first");
        channel.logMsg(1, kHeader, "second\nline");
    }
    const auto lines = linesOf(contentOf(path));
    const std::string time = "2[0-9]{3}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{6}Z";
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0], "old");
    EXPECT_THAT(lines[1], MatchesRegex(time + " 3 Sinks.file.[0-9]+ src/a/B.cpp:42 execute: first"));
    EXPECT_THAT(lines[2], MatchesRegex(time + " 1 Sinks.file.[0-9]+ src/a/B.cpp:42 execute: second"));
    EXPECT_EQ(lines[3], "    line");
}

TEST(TraceSinks, fileThatCannotBeOpenedIsRefusedWithItsPath)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("none/trace.log");
    try {
        const FileSink sink(path);
        ADD_FAILURE();
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code().value(), ENOENT);
        EXPECT_EQ(std::string(error.what()),
                  "can't open the trace file " + path + ": No such file or directory");
    }
}

TEST(TraceSinks, recordsOfManyThreadsStayWholeInTheFile)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("trace.log");
    const TylTrace& channel = freshChannel("Sinks.whole");
    const std::string text(3000, 'x');
    {
        const auto added = TraceService::get().addSink(std::make_shared<FileSink>(path));
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&] {
                for (int message = 0; message < 100; ++message) {
                    channel.logMsg(1, kHeader, text);
                }
            });
        }
        threads.clear();
    }
    const auto lines = linesOf(contentOf(path));
    ASSERT_EQ(lines.size(), 400U);
    for (const auto& line : lines) {
        ASSERT_EQ(line.size(), lines[0].size());
        ASSERT_EQ(line.substr(line.find("execute: ")), "execute: " + text);
    }
}

TEST(TraceSinks, recordThatTheDiskDoesNotTakeIsCounted)
{
    const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    ASSERT_GE(full, 0);
    const auto sink = std::make_shared<DescriptorSink>(full);
    {
        const auto added = TraceService::get().addSink(sink);
        freshChannel("Sinks.full").logMsg(1, kHeader, "x");
    }
    EXPECT_EQ(sink->lostRecords(), 1U);
    ::close(full);
}

TEST(TraceSinks, fullDiskIsToldOnceOnStandardError)
{
    const auto sink = std::make_shared<FileSink>("/dev/full");
    const auto added = TraceService::get().addSink(sink);
    const TylTrace& channel = freshChannel("Sinks.full");
    testing::internal::CaptureStderr();
    for (int count = 0; count < 3; ++count) {
        channel.logMsg(1, kHeader, "x");
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "can't write to the trace file /dev/full: No space left on "
              "device; what can't be written is lost\n");
    EXPECT_EQ(sink->lostRecords(), 3U);
}

TEST(TraceSinks, pipeThatNobodyReadsHoldsUpNobody)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("pipe");
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    const int reader = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    testing::internal::CaptureStderr();
    {
        const auto sink = std::make_shared<FileSink>(path);
        const auto added = TraceService::get().addSink(sink);
        const TylTrace& channel = freshChannel("Sinks.pipe");
        const std::string text(10'000, 'x');
        for (int count = 0; count < 20; ++count) {
            channel.logMsg(1, kHeader, text);
        }
        EXPECT_GT(sink->lostRecords(), 0U);
    }
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("can't write to the trace file "));
    ::close(reader);
}

TEST(TraceSinks, fileThatWasMovedAwayIsOpenedAnew)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("trace.log");
    const auto sink = std::make_shared<FileSink>(path);
    const auto added = TraceService::get().addSink(sink);
    const TylTrace& channel = freshChannel("Sinks.reopen");
    channel.logMsg(1, kHeader, "first");
    ASSERT_EQ(std::rename(path.c_str(), folder.path("trace.old").c_str()), 0);
    channel.logMsg(1, kHeader, "second");
    sink->reopen();
    channel.logMsg(1, kHeader, "third");
    EXPECT_EQ(linesOf(contentOf(folder.path("trace.old"))).size(), 2U);
    const auto lines = linesOf(contentOf(path));
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_THAT(lines[0], HasSubstr("third"));
}

TEST(TraceSinks, fileThatCannotBeOpenedAnewStaysInUse)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("trace.log");
    const std::string moved = folder.path("trace.old");
    const auto sink = std::make_shared<FileSink>(path);
    const auto added = TraceService::get().addSink(sink);
    ASSERT_EQ(std::rename(path.c_str(), moved.c_str()), 0);
    ASSERT_EQ(::mkdir(path.c_str(), 0700), 0);
    EXPECT_THROW(sink->reopen(), std::system_error);
    freshChannel("Sinks.reopen").logMsg(1, kHeader, "still here");
    EXPECT_EQ(linesOf(contentOf(moved)).size(), 1U);
}

TEST(TraceSinks, standardErrorSinkWritesThere)
{
    testing::internal::CaptureStderr();
    {
        const auto added = TraceService::get().addSink(std::make_shared<StandardErrorSink>());
        freshChannel("Sinks.stderr").logMsg(1, kHeader, "to be seen");
    }
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr(" src/a/B.cpp:42 execute: to be seen\n"));
}

TEST(TraceSinks, lastLineBeforeAnAbortIsInTheFile)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("trace.log");
    const TylTrace& channel = freshChannel("Sinks.abort");
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const rlimit noCore{0, 0};
        ::setrlimit(RLIMIT_CORE, &noCore);
        std::signal(SIGABRT, SIG_DFL);
        const auto added = TraceService::get().addSink(std::make_shared<FileSink>(path));
        channel.logMsg(1, kHeader, "first words");
        channel.logMsg(1, kHeader, "last words");
        std::abort();
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGABRT);
    const auto lines = linesOf(contentOf(path));
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_THAT(lines[1], HasSubstr(" src/a/B.cpp:42 execute: last words"));
}

} // namespace
