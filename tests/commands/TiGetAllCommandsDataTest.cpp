#include "CommandTest.h"
#include "TiGetAllCommandsDataImpl.h"

#include <gtest/gtest.h>

namespace zyr_top_api
{
namespace
{

class TiGetAllCommandsDataTest : public zyr_test::CommandTest
{
  protected:
    TiGetAllCommandsDataImpl impl;
};

TEST_F(TiGetAllCommandsDataTest, EmptyCatalogueGivesAnEmptySuccess)
{
    const TiGetAllCommandsData::Response response = impl.execute({});
    EXPECT_TRUE(response.commands.empty());
    EXPECT_EQ(outcome(response), R"(result 0x0 0 "")");
    EXPECT_EQ(response.printResponse(), "");
}

TEST_F(TiGetAllCommandsDataTest, CommandsComeInTheOrderInWhichTheyWereAddedDoublesIncluded)
{
    impl.addCmdData({"CRI.EnableAcm", "ACM on and off"});
    impl.addCmdData({"CI.GetEvents", "alarms"});
    impl.addCmdData({"CRI.EnableAcm", "once more"});
    const TiGetAllCommandsData::Response response = impl.execute({});
    ASSERT_EQ(response.commands.size(), 3U);
    EXPECT_EQ(response.commands[0].name, "CRI.EnableAcm");
    EXPECT_EQ(response.commands[0].description, "ACM on and off");
    EXPECT_EQ(response.commands[1].name, "CI.GetEvents");
    EXPECT_EQ(response.commands[1].description, "alarms");
    EXPECT_EQ(response.commands[2].name, "CRI.EnableAcm");
    EXPECT_EQ(response.commands[2].description, "once more");
    EXPECT_EQ(response.printResponse(), "");
}

TEST_F(TiGetAllCommandsDataTest, AnswerIsACopyThatLeavesTheCatalogue)
{
    impl.addCmdData({"CI.GetEvents", "alarms"});
    TiGetAllCommandsData::Response first = impl.execute({});
    first.commands.clear();
    EXPECT_EQ(impl.execute({}).commands.size(), 1U);
}

TEST_F(TiGetAllCommandsDataTest, AnswersFromItsOwnCatalogueNotFromTheFrames)
{
    ZyrApiHandler::m_allCommandsDescData = {{"CI.GetEvents", "alarms"}};
    EXPECT_TRUE(impl.execute({}).commands.empty());
    ZyrApiHandler::m_allCommandsDescData.clear();
}

TEST_F(TiGetAllCommandsDataTest, InitialiseTakesAnyNumberOfChannelsAndTracesNothing)
{
    setTraceLevel("ZYR.TI.TiGetAllCommandsData", 7);
    EXPECT_EQ(impl.initialize(0), 0);
    EXPECT_EQ(impl.initialize(3), 0);
    impl.execute({});
    EXPECT_EQ(transcript.text(), "\n");
}

} // namespace
} // namespace zyr_top_api
