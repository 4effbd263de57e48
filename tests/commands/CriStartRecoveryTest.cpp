#include "CommandTest.h"
#include "CriStartRecoveryImpl.h"
#include "NodeDoubles.h"

#include <gtest/gtest.h>

namespace zyr_top_api
{
namespace
{

class CriStartRecoveryTest : public zyr_test::CommandTest
{
  protected:
    CriStartRecoveryTest()
    {
        publishNode(node);
        transcript.clear();
    }

    static CriStartRecovery::Command command(Recover recover) { return {.Recover = recover}; }

    zyr_test::NodeDoubles node{transcript};
    CriStartRecoveryImpl impl;
};

TEST_F(CriStartRecoveryTest, FullRecoveryReachesTheController)
{
    enrol<CriStartRecoveryImpl>();
    tell(criStartRecovery(command(Recover::Dsp)));
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriStartRecovery: DSP recovery triggered
RecoveryController.startDspRecovery(2)
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriStartRecoveryTest, RequestAndStepsAreTraced)
{
    enrol<CriStartRecoveryImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriStartRecovery", 7);
    criStartRecovery(command(Recover::Dsp));
    EXPECT_EQ(transcript.text(), R"x(
5 ZYR.COMM: CRI.StartRecovery Request: Recover: Dsp\n
6 ZYR.TI.CriStartRecovery:
3 ZYR.TI.CriStartRecovery: DSP recovery triggered
RecoveryController.startDspRecovery(2)
4 ZYR.TI.CriStartRecovery: Dsp recovery performed
5 ZYR.COMM: CRI.StartRecovery Response: StandardResponse Sent\n\n----------------------------------------------------\n
)x");
}

TEST_F(CriStartRecoveryTest, AnyOtherRecoveryIsRefusedBeforeTheControllerIsAsked)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriStartRecovery", 7);
    for (const unsigned recover : {0U, 1U, 3U, 4294967295U}) {
        tell(impl.execute(command(static_cast<Recover>(recover))));
    }
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriStartRecovery:
1 ZYR.TI.CriStartRecovery: CRI.StartRecovery does not support recover of: Undefined
result 0x8000 4 "CRI.StartRecovery recovery type not supported"
prints StandardResponse Sent\n
6 ZYR.TI.CriStartRecovery:
1 ZYR.TI.CriStartRecovery: CRI.StartRecovery does not support recover of: DspWithoutConfig
result 0x8000 4 "CRI.StartRecovery recovery type not supported"
prints StandardResponse Sent\n
6 ZYR.TI.CriStartRecovery:
1 ZYR.TI.CriStartRecovery: CRI.StartRecovery does not support recover of: Undefined
result 0x8000 4 "CRI.StartRecovery recovery type not supported"
prints StandardResponse Sent\n
6 ZYR.TI.CriStartRecovery:
1 ZYR.TI.CriStartRecovery: CRI.StartRecovery does not support recover of: Undefined
result 0x8000 4 "CRI.StartRecovery recovery type not supported"
prints StandardResponse Sent\n
)x");
}

TEST_F(CriStartRecoveryTest, FailureOfTheControllerIsTheCommands)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriStartRecovery", 7);
    for (const unsigned result : {0x8000U, 0xFFFFFFFFU}) {
        node.recoveryController.onStartDspRecovery = result;
        transcript.clear();
        tell(impl.execute(command(Recover::Dsp)));
        EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriStartRecovery:
3 ZYR.TI.CriStartRecovery: DSP recovery triggered
RecoveryController.startDspRecovery(2)
1 ZYR.TI.CriStartRecovery: CRI.StartRecovery failed to recover dsp
result 0x8000 4 "CRI.StartRecovery failed to recover dsp"
prints StandardResponse Sent\n
)x");
    }
}

TEST_F(CriStartRecoveryTest, GreatestSuccessOfTheControllerComesOutAsPlainSuccess)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriStartRecovery", 7);
    node.recoveryController.onStartDspRecovery = 0x7FFF;
    tell(impl.execute(command(Recover::Dsp)));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriStartRecovery:
3 ZYR.TI.CriStartRecovery: DSP recovery triggered
RecoveryController.startDspRecovery(2)
4 ZYR.TI.CriStartRecovery: Dsp recovery performed
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriStartRecoveryTest, InitialiseWithoutAControllerSucceedsAndEachFullRecoveryFails)
{
    setTraceLevel("ZYR.TI.CriStartRecovery", 7);
    withdraw("RecoveryController");
    EXPECT_EQ(impl.initialize(2), 0);
    tell(impl.execute(command(Recover::Dsp)));
    tell(impl.execute(command(Recover::Dsp)));
    tell(impl.execute(command(Recover::DspWithoutConfig)));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriStartRecovery:
1 ZYR.TI.CriStartRecovery: Failed to get RecoveryController interface.
6 ZYR.TI.CriStartRecovery:
3 ZYR.TI.CriStartRecovery: DSP recovery triggered
1 ZYR.TI.CriStartRecovery: Failed to start recovery as RecoveryController Interface is NULL
result 0x8000 4 "CRI.StartRecovery Failed to recover dsp. RecoveryController Interface is not set."
prints StandardResponse Sent\n
6 ZYR.TI.CriStartRecovery:
3 ZYR.TI.CriStartRecovery: DSP recovery triggered
1 ZYR.TI.CriStartRecovery: Failed to start recovery as RecoveryController Interface is NULL
result 0x8000 4 "CRI.StartRecovery Failed to recover dsp. RecoveryController Interface is not set."
prints StandardResponse Sent\n
6 ZYR.TI.CriStartRecovery:
1 ZYR.TI.CriStartRecovery: CRI.StartRecovery does not support recover of: DspWithoutConfig
result 0x8000 4 "CRI.StartRecovery recovery type not supported"
prints StandardResponse Sent\n
)x");
}

TEST_F(CriStartRecoveryTest, ControllerOfAnotherTypeUnderTheNameIsMissing)
{
    withdraw("RecoveryController");
    publish("RecoveryController", node.routeUpdater);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriStartRecovery: Failed to get RecoveryController interface.
)x");
}

TEST_F(CriStartRecoveryTest, ObjectThatWasNotInitialisedHasNoController)
{
    EXPECT_EQ(
        outcome(impl.execute(command(Recover::Dsp))),
        "result 0x8000 4 \"CRI.StartRecovery Failed to recover dsp. RecoveryController Interface is not "
        "set.\"");
}

TEST_F(CriStartRecoveryTest, InitialiseRefusesAnyOtherCountWithoutATextAndCanBeRepeated)
{
    setTraceLevel("ZYR.TI.CriStartRecovery", 7);
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(impl.initialize(4294967295U), 0xA100);
    EXPECT_EQ(impl.initialize(1), 0);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriStartRecovery:
6 ZYR.TI.CriStartRecovery:
6 ZYR.TI.CriStartRecovery:
6 ZYR.TI.CriStartRecovery:
)x");
}

TEST_F(CriStartRecoveryTest, SecondInitialiseIsRefusedBehindTheRangeAndKeepsTheController)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    withdraw("RecoveryController");
    zyr_test::RecoveryControllerDouble other(transcript, "other");
    publish("RecoveryController", other);
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    impl.execute(command(Recover::Dsp));
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriStartRecovery: CriStartRecoveryImpl already initialized
3 ZYR.TI.CriStartRecovery: DSP recovery triggered
RecoveryController.startDspRecovery(2)
)x");
}

TEST_F(CriStartRecoveryTest, SecondInitialiseIsRefusedAlsoBehindOneWithoutAController)
{
    withdraw("RecoveryController");
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    publish(node.recoveryController);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriStartRecovery: Failed to get RecoveryController interface.
1 ZYR.TI.CriStartRecovery: CriStartRecoveryImpl already initialized
)x");
}

} // namespace
} // namespace zyr_top_api
