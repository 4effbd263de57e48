#include "Log.h"

#include "AllocationCounter.h"
#include "CountedTest.h"
#include "MemorySink.h"
#include "TraceService.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace zyr_top_api
{
namespace
{

constinit TylTrace logTrace{"ZYR.TEST.Log", 3, TylTraceHdrOption_Default};
constinit TylTrace otherTrace{"ZYR.TEST.OtherLog", 3, TylTraceHdrOption_Default};

// Takes records without allocating.
class MeasuringSink : public zyr_platform::TraceSink
{
  public:
    void write(const zyr_platform::TraceRecord& record) override
    {
        ++m_records;
        m_bytes += record.text.size();
    }

    std::size_t records() const { return m_records; }
    std::size_t bytes() const { return m_bytes; }

  private:
    std::size_t m_records = 0;
    std::size_t m_bytes = 0;
};

class LogTest : public ::testing::Test
{
  protected:
    LogTest() { service.resetLevels(); }
    ~LogTest() override { service.resetLevels(); }

    zyr_platform::TraceService& service = zyr_platform::TraceService::get();
    std::shared_ptr<zyr_platform::MemorySink> sink = std::make_shared<zyr_platform::MemorySink>();
    zyr_platform::Registration sinkRegistration = service.addSink(sink);
};

using LogAllocationTest = zyr_test::CountedTest<LogTest>;

TEST_F(LogTest, TextOfALevelThatIsOffIsNotBuilt)
{
    int built = 0;
    const auto text = [&](TextWriter& writer) {
        ++built;
        writer << "text";
    };
    log(logTrace, 4, text);
    logEnter(logTrace, text);
    EXPECT_EQ(built, 0);
    EXPECT_TRUE(sink->records().empty());
    log(logTrace, 3, text);
    EXPECT_EQ(built, 1);
    service.setLevel("ZYR.TEST.Log", 6);
    logEnter(logTrace, text);
    EXPECT_EQ(built, 2);
    service.setLevel("ZYR.TEST.Log", 0);
    log(logTrace, 1, text);
    EXPECT_EQ(built, 2);
    EXPECT_EQ(sink->records().size(), 2U);
}

TEST_F(LogTest, MessageCarriesChannelLevelTextAndThePlaceOfTheCall)
{
    log(logTrace, 2, [](TextWriter& text) { text << "number " << 5; });
    const int line = __LINE__ - 1;
    const auto records = sink->records();
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].channel, "ZYR.TEST.Log");
    EXPECT_EQ(records[0].level, 2);
    EXPECT_EQ(records[0].text, "number 5");
    EXPECT_STREQ(records[0].header.file, "tests/library/LogTest.cpp");
    EXPECT_EQ(records[0].header.line, line);
    EXPECT_STREQ(records[0].header.function, "TestBody");
}

TEST_F(LogTest, PlainTextCarriesThePlaceOfTheCallToo)
{
    log(logTrace, 1, "plain");
    const int line = __LINE__ - 1;
    const auto records = sink->records();
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].level, 1);
    EXPECT_EQ(records[0].text, "plain");
    EXPECT_STREQ(records[0].header.file, "tests/library/LogTest.cpp");
    EXPECT_EQ(records[0].header.line, line);
    EXPECT_STREQ(records[0].header.function, "TestBody");
}

TEST_F(LogTest, StepThatStandsInAFunctionOfItsOwnNamesTheWholeFunctionAndItsOwnLine)
{
    service.setLevel("ZYR.TEST.Log", 6);
    const auto text = [](TextWriter& writer) { writer << "built"; };
    log(logTrace, 1, "plain", within("whole"));
    log(logTrace, 2, text, within("whole"));
    logEnter(logTrace, within("whole"));
    const int line = __LINE__ - 1;
    const auto records = sink->records();
    ASSERT_EQ(records.size(), 3U);
    for (int record = 0; record < 3; ++record) {
        const auto& header = records[static_cast<std::size_t>(record)].header;
        EXPECT_STREQ(header.file, "tests/library/LogTest.cpp");
        EXPECT_EQ(header.line, line - 2 + record);
        EXPECT_STREQ(header.function, "whole");
    }
}

void enteredWithoutText()
{
    logEnter(logTrace);
}
void enteredWithText()
{
    logEnter(logTrace, [](TextWriter& text) { text << "argument=" << 1; });
}

TEST_F(LogTest, EntryIsALevel6MessageOfTheCallingFunction)
{
    service.setLevel("ZYR.TEST.Log", 6);
    enteredWithoutText();
    enteredWithText();
    const auto records = sink->records();
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0].level, 6);
    EXPECT_EQ(records[0].text, "");
    EXPECT_STREQ(records[0].header.function, "enteredWithoutText");
    EXPECT_EQ(records[1].level, 6);
    EXPECT_EQ(records[1].text, "argument=1");
    EXPECT_STREQ(records[1].header.function, "enteredWithText");
}

TEST_F(LogTest, TextStartsAnewForEachMessage)
{
    log(logTrace, 1, [](TextWriter& text) { text << "a long first text"; });
    log(logTrace, 1, [](TextWriter& text) { text << "second"; });
    log(logTrace, 1, [](TextWriter&) {});
    const auto records = sink->records();
    ASSERT_EQ(records.size(), 3U);
    EXPECT_EQ(records[0].text, "a long first text");
    EXPECT_EQ(records[1].text, "second");
    EXPECT_EQ(records[2].text, "");
}

TEST_F(LogTest, MessageThatIsBuiltInsideAnotherLeavesTheOuterTextWhole)
{
    log(logTrace, 1, [](TextWriter& text) {
        text << "outer ";
        log(otherTrace, 1, [](TextWriter& inner) { inner << "inner"; });
        text << "again";
    });
    const auto records = sink->records();
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0].channel, "ZYR.TEST.OtherLog");
    EXPECT_EQ(records[0].text, "inner");
    EXPECT_EQ(records[1].channel, "ZYR.TEST.Log");
    EXPECT_EQ(records[1].text, "outer again");
}

TEST_F(LogTest, ExceptionOfTheTextReachesTheCallerAndTheNextMessageIsWhole)
{
    EXPECT_THROW(log(logTrace, 1,
                     [](TextWriter& text) {
                         text << "half";
                         throw 1;
                     }),
                 int);
    log(logTrace, 1, [](TextWriter& text) { text << "whole"; });
    const auto records = sink->records();
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].text, "whole");
}

TEST_F(LogAllocationTest, NothingIsAllocatedWithTheLevelOff)
{
    log(logTrace, 1, "attaches the channel");
    const std::string longText(200, 'x');
    const zyr_test::AllocationCounter counter;
    log(logTrace, 4, [&](TextWriter& text) { text << longText << longText; });
    log(logTrace, 4, "a plain text that is longer than any small buffer of a string");
    logEnter(logTrace);
    logEnter(logTrace, [&](TextWriter& text) { text << longText; });
    EXPECT_EQ(counter.allocations(), 0U);
}

TEST_F(LogAllocationTest, NothingIsAllocatedForAMessageAfterTheFirst)
{
    sinkRegistration.withdraw();
    const auto counting = std::make_shared<MeasuringSink>();
    const zyr_platform::Registration registration = service.addSink(counting);
    service.setLevel("ZYR.TEST.Log", 7);
    const auto text = [](TextWriter& writer) {
        for (int number = 0; number < 100; ++number) {
            writer << "number " << number << ", ";
        }
    };
    log(logTrace, 1, text);
    const std::size_t bytes = counting->bytes();
    std::size_t allocations = 0;
    {
        const zyr_test::AllocationCounter counter;
        log(logTrace, 5, text);
        log(logTrace, 1, "plain");
        logEnter(logTrace);
        logEnter(logTrace, text);
        allocations = counter.allocations();
    }
    EXPECT_EQ(allocations, 0U);
    EXPECT_EQ(counting->records(), 5U);
    EXPECT_EQ(counting->bytes(), 3 * bytes + 5);
}

TEST_F(LogAllocationTest, CounterSeesAllocations)
{
    const zyr_test::AllocationCounter counter;
    const auto number = std::make_unique<int>(1);
    EXPECT_EQ(*number, 1);
    EXPECT_EQ(counter.allocations(), 1U);
}

} // namespace
} // namespace zyr_top_api
