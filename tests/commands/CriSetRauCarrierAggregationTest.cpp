#include "CommandTest.h"
#include "CriSetRauCarrierAggregationImpl.h"
#include "NodeDoubles.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class CriSetRauCarrierAggregationTest : public zyr_test::CommandTest
{
  protected:
    CriSetRauCarrierAggregationTest()
    {
        publishNode(node);
        transcript.clear();
    }

    zyr_test::NodeDoubles node{transcript};
    CriSetRauCarrierAggregationImpl impl;
};

TEST_F(CriSetRauCarrierAggregationTest, SettingReachesTheHandlerOfTheNode)
{
    enrol<CriSetRauCarrierAggregationImpl>();
    tell(criSetRauCarrierAggregation({.IsRauCarrierAggregation = true}));
    tell(criSetRauCarrierAggregation({.IsRauCarrierAggregation = false}));
    EXPECT_EQ(transcript.text(), R"x(
IHardwareConfigurationHandler.setRauCarrierAggregation(true)
result 0x0 0 ""
prints StandardResponse Sent\n
IHardwareConfigurationHandler.setRauCarrierAggregation(false)
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRauCarrierAggregationTest, RequestIsTraced)
{
    enrol<CriSetRauCarrierAggregationImpl>(1);
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriSetRauCarrierAggregation", 7);
    criSetRauCarrierAggregation({.IsRauCarrierAggregation = true});
    criSetRauCarrierAggregation({.IsRauCarrierAggregation = false});
    EXPECT_EQ(transcript.text(), R"x(
5 ZYR.COMM: CRI.SetRauCarrierAggregation Request: IsRauCarrierAggregation: 1\n
6 ZYR.TI.CriSetRauCarrierAggregation:
5 ZYR.TI.CriSetRauCarrierAggregation: IsRauCarrierAggregation: 1\n
IHardwareConfigurationHandler.setRauCarrierAggregation(true)
5 ZYR.COMM: CRI.SetRauCarrierAggregation Response: StandardResponse Sent\n\n----------------------------------------------------\n
5 ZYR.COMM: CRI.SetRauCarrierAggregation Request: IsRauCarrierAggregation: 0\n
6 ZYR.TI.CriSetRauCarrierAggregation:
5 ZYR.TI.CriSetRauCarrierAggregation: IsRauCarrierAggregation: 0\n
IHardwareConfigurationHandler.setRauCarrierAggregation(false)
5 ZYR.COMM: CRI.SetRauCarrierAggregation Response: StandardResponse Sent\n\n----------------------------------------------------\n
)x");
}

TEST_F(CriSetRauCarrierAggregationTest, FailureOfTheHandlerIsIgnored)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetRauCarrierAggregation", 7);
    node.hardwareConfigurationHandler.onSetRauCarrierAggregation.inTurn({0x8000, 0xFFFFFFFFU});
    tell(impl.execute({.IsRauCarrierAggregation = true}));
    tell(impl.execute({.IsRauCarrierAggregation = false}));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriSetRauCarrierAggregation:
5 ZYR.TI.CriSetRauCarrierAggregation: IsRauCarrierAggregation: 1\n
IHardwareConfigurationHandler.setRauCarrierAggregation(true)
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.TI.CriSetRauCarrierAggregation:
5 ZYR.TI.CriSetRauCarrierAggregation: IsRauCarrierAggregation: 0\n
IHardwareConfigurationHandler.setRauCarrierAggregation(false)
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRauCarrierAggregationTest, ObjectThatWasNotInitialisedHasNoHandlerToReach)
{
    EXPECT_EQ(missingIn([&] { impl.execute({.IsRauCarrierAggregation = true}); }),
              "IHardwareConfigurationHandler of the node");
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(CriSetRauCarrierAggregationTest, SecondInitialiseFetchesTheHandlerAnewAndForgetsItIfItIsGone)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    withdraw("IHardwareConfigurationHandler");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(missingIn([&] { impl.execute({.IsRauCarrierAggregation = true}); }),
              "IHardwareConfigurationHandler of the node");
    publish(node.hardwareConfigurationHandler);
    EXPECT_EQ(impl.initialize(1), 0);
    impl.execute({.IsRauCarrierAggregation = true});
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriSetRauCarrierAggregation: could not get hardwareConfigurationHandler.
IHardwareConfigurationHandler.setRauCarrierAggregation(true)
)x");
}

TEST_F(CriSetRauCarrierAggregationTest, InitialiseRefusesAnyOtherCount)
{
    setTraceLevel("ZYR.TI.CriSetRauCarrierAggregation", 7);
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriSetRauCarrierAggregation:
1 ZYR.TI.CriSetRauCarrierAggregation: Error: numberOfChannels is out of range (0)
6 ZYR.TI.CriSetRauCarrierAggregation:
1 ZYR.TI.CriSetRauCarrierAggregation: Error: numberOfChannels is out of range (3)
6 ZYR.TI.CriSetRauCarrierAggregation:
)x");
}

} // namespace
} // namespace zyr_top_api
