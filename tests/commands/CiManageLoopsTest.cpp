#include "CiManageLoopsImpl.h"
#include "CommandTest.h"
#include "LoopControllerDouble.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace zyr_top_api
{
namespace
{

class CiManageLoopsTest : public zyr_test::CommandTest
{
  protected:
    CiManageLoopsTest()
    {
        loopController.onGetLoops = {0, {{"IF_1", true}, {"RF_1", false}, {"IF_2", false}}};
        publish(loopController);
        transcript.clear();
    }

    zyr_test::LoopControllerDouble loopController{transcript, "ILoopController"};
    CiManageLoopsImpl impl;
};

TEST_F(CiManageLoopsTest, EmptyListOnlyReads)
{
    enrol<CiManageLoopsImpl>();
    const CiManageLoops::Response response = tell(ciManageLoops({}));
    EXPECT_EQ(transcript.text(), R"(
ILoopController.getLoops()
result 0x0 0 ""
prints [IF_1, 1]\n[RF_1, 0]\n[IF_2, 0]\n
)");
    ASSERT_EQ(response.loops.size(), 3U);
    EXPECT_EQ(response.loops[0].loopName, "IF_1");
    EXPECT_TRUE(response.loops[0].closed);
    EXPECT_EQ(response.loops[1].loopName, "RF_1");
    EXPECT_FALSE(response.loops[1].closed);
}

TEST_F(CiManageLoopsTest, LoopsAreSetInTheirOrderAndThenAllAreRead)
{
    enrol<CiManageLoopsImpl>();
    tell(ciManageLoops({{{"RF_1", false}, {"IF_1", true}, {"RF_1", true}}}));
    EXPECT_EQ(transcript.text(), R"(
ILoopController.setLoop("RF_1", false)
3 ZYR.TI.CiManageLoops: Loop RF_1 set to open
ILoopController.setLoop("IF_1", true)
3 ZYR.TI.CiManageLoops: Loop IF_1 set to closed
ILoopController.setLoop("RF_1", true)
3 ZYR.TI.CiManageLoops: Loop RF_1 set to closed
ILoopController.getLoops()
result 0x0 0 ""
prints [IF_1, 1]\n[RF_1, 0]\n[IF_2, 0]\n
)");
}

TEST_F(CiManageLoopsTest, FrameShowsRequestAndResponseAtLevel5AndTheEntryStandsAtLevel6)
{
    enrol<CiManageLoopsImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CiManageLoops", 7);
    ciManageLoops({{{"IF_1", true}, {"RF_2", false}}});
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CI.ManageLoops Request: Loops:\n[IF_1, 1]\n[RF_2, 0]\n
6 ZYR.TI.CiManageLoops: msg:Loops:\n[IF_1, 1]\n[RF_2, 0]\n
ILoopController.setLoop("IF_1", true)
3 ZYR.TI.CiManageLoops: Loop IF_1 set to closed
ILoopController.setLoop("RF_2", false)
3 ZYR.TI.CiManageLoops: Loop RF_2 set to open
ILoopController.getLoops()
5 ZYR.COMM: CI.ManageLoops Response: [IF_1, 1]\n[RF_1, 0]\n[IF_2, 0]\n\n----------------------------------------------------\n
)");
}

TEST_F(CiManageLoopsTest, EmptyListAndEmptyAnswerShowTheirLabelsAlone)
{
    enrol<CiManageLoopsImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CiManageLoops", 6);
    loopController.onGetLoops = {0, {}};
    ciManageLoops({});
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CI.ManageLoops Request: Loops:\n
6 ZYR.TI.CiManageLoops: msg:Loops:\n
ILoopController.getLoops()
5 ZYR.COMM: CI.ManageLoops Response: \n----------------------------------------------------\n
)");
}

TEST_F(CiManageLoopsTest, UnknownSecondLoopEndsTheCommandAndTheFirstStaysSet)
{
    enrol<CiManageLoopsImpl>();
    loopController.onSetLoop.inTurn({0, 0x8008, 0});
    const CiManageLoops::Response response =
        tell(ciManageLoops({{{"IF_1", true}, {"Audio", true}, {"RF_1", true}}}));
    EXPECT_EQ(transcript.text(), R"(
ILoopController.setLoop("IF_1", true)
3 ZYR.TI.CiManageLoops: Loop IF_1 set to closed
ILoopController.setLoop("Audio", true)
1 ZYR.TI.CiManageLoops: Loop Audio is not supported
result 0xA002 3 "Loop Audio is not supported"
prints tiResult: eTI_E_PARAMETER_INVALID, faultCode: 3, faultString: Loop Audio is not supported
)");
    EXPECT_TRUE(response.loops.empty());
}

TEST_F(CiManageLoopsTest, UnknownLoopReadsTheSameWhenItWasToOpen)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    loopController.onSetLoop = 0x8008;
    tell(impl.execute({{{"Audio", false}}}));
    EXPECT_EQ(transcript.text(), R"(
ILoopController.setLoop("Audio", false)
1 ZYR.TI.CiManageLoops: Loop Audio is not supported
result 0xA002 3 "Loop Audio is not supported"
prints tiResult: eTI_E_PARAMETER_INVALID, faultCode: 3, faultString: Loop Audio is not supported
)");
}

TEST_F(CiManageLoopsTest, AnyOtherFailureTellsTheStateThatCouldNotBeSet)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    loopController.onSetLoop.inTurn({0x8007, 0x8009});
    const CiManageLoops::Response response = tell(impl.execute({{{"IF_2", true}, {"RF_1", false}}}));
    tell(impl.execute({{{"RF_1", false}}}));
    EXPECT_EQ(transcript.text(), R"(
ILoopController.setLoop("IF_2", true)
1 ZYR.TI.CiManageLoops: Failed to set loop IF_2 to closed
result 0x8000 4 "Failed to set loop IF_2 to closed"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Failed to set loop IF_2 to closed
ILoopController.setLoop("RF_1", false)
1 ZYR.TI.CiManageLoops: Failed to set loop RF_1 to open
result 0x8000 4 "Failed to set loop RF_1 to open"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Failed to set loop RF_1 to open
)");
    EXPECT_TRUE(response.loops.empty());
}

TEST_F(CiManageLoopsTest, LoopFailsFrom0x8000AndSucceedsBelow)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    loopController.onSetLoop.inTurn({0x7FFF, 8, 0x8000, 0xFFFFFFFFU});
    loopController.onGetLoops = {0x7FFF, {{"IF_1", true}}};
    tell(impl.execute({{{"IF_1", true}, {"IF_2", true}, {"RF_1", true}}}));
    tell(impl.execute({}));
    EXPECT_EQ(transcript.text(), R"(
ILoopController.setLoop("IF_1", true)
3 ZYR.TI.CiManageLoops: Loop IF_1 set to closed
ILoopController.setLoop("IF_2", true)
3 ZYR.TI.CiManageLoops: Loop IF_2 set to closed
ILoopController.setLoop("RF_1", true)
1 ZYR.TI.CiManageLoops: Failed to set loop RF_1 to closed
result 0x8000 4 "Failed to set loop RF_1 to closed"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Failed to set loop RF_1 to closed
ILoopController.getLoops()
result 0x0 0 ""
prints [IF_1, 1]\n
)");
    EXPECT_EQ(impl.execute({{{"RF_1", true}}}).faultString, "Failed to set loop RF_1 to closed");
}

TEST_F(CiManageLoopsTest, FailedReadBehindSuccessfulSetsGivesNoLoops)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    for (const ResultCode result : {0x8000U, 0x8008U, 0xFFFFFFFFU}) {
        transcript.clear();
        loopController.onGetLoops = {result, {{"IF_1", true}}};
        const CiManageLoops::Response response = tell(impl.execute({{{"IF_1", true}}}));
        EXPECT_EQ(transcript.text(), R"(
ILoopController.setLoop("IF_1", true)
3 ZYR.TI.CiManageLoops: Loop IF_1 set to closed
ILoopController.getLoops()
1 ZYR.TI.CiManageLoops: Failed to get loops from LoopController
result 0x8000 4 "Failed to get loops from LoopController"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Failed to get loops from LoopController
)");
        EXPECT_TRUE(response.loops.empty());
    }
}

TEST_F(CiManageLoopsTest, NamesPassThroughUnchanged)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    loopController.onGetLoops = {0, {}};
    tell(impl.execute({{{"", true}, {" a, b]\n", false}, {std::string("x\0y", 3), true}}}));
    EXPECT_EQ(transcript.text(), R"(
ILoopController.setLoop("", true)
3 ZYR.TI.CiManageLoops: Loop  set to closed
ILoopController.setLoop(" a, b]\n", false)
3 ZYR.TI.CiManageLoops: Loop  a, b]\n set to open
ILoopController.setLoop("x\x00y", true)
3 ZYR.TI.CiManageLoops: Loop x\x00y set to closed
ILoopController.getLoops()
result 0x0 0 ""
prints\x20
)");
}

TEST_F(CiManageLoopsTest, NothingIsKeptBetweenCalls)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    loopController.onSetLoop.inTurn({0x8008, 0});
    EXPECT_EQ(impl.execute({{{"IF_1", true}}}).tiResult, 0xA002);
    EXPECT_EQ(impl.execute({{{"IF_1", true}}}).tiResult, 0);
}

// initialize

TEST_F(CiManageLoopsTest, InitialiseRefusesZeroAndThreeChannels)
{
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(impl.initialize(4294967295U), 0xA100);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CiManageLoops: Error: numberOfChannels is out of range (0)
1 ZYR.TI.CiManageLoops: Error: numberOfChannels is out of range (3)
1 ZYR.TI.CiManageLoops: Error: numberOfChannels is out of range (4294967295)
)");
    EXPECT_EQ(missingIn([&] { impl.execute({}); }), "ILoopController of the node");
}

TEST_F(CiManageLoopsTest, InitialiseTellsThatTheControllerIsMissing)
{
    withdraw("ILoopController");
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CiManageLoops: Could not find the LoopController interface
1 ZYR.TI.CiManageLoops: Error: numberOfChannels is out of range (3)
)");
    EXPECT_EQ(missingIn([&] { impl.execute({}); }), "ILoopController of the node");
}

TEST_F(CiManageLoopsTest, InitialiseLooksTheControllerUpOnceForTheNode)
{
    setTraceLevel("ZYR.TI.CiManageLoops", 7);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CiManageLoops:
)");
    EXPECT_EQ(impl.execute({}).tiResult, 0);
}

TEST_F(CiManageLoopsTest, SecondFailingInitialiseForgetsTheController)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    withdraw("ILoopController");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(missingIn([&] { impl.execute({}); }), "ILoopController of the node");
}

} // namespace
} // namespace zyr_top_api
