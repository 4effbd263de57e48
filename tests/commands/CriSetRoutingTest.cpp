#include "CommandTest.h"
#include "CriSetRoutingImpl.h"
#include "NodeDoubles.h"

#include <gtest/gtest.h>

namespace zyr_top_api
{
namespace
{

class CriSetRoutingTest : public zyr_test::CommandTest
{
  protected:
    CriSetRoutingTest()
    {
        publishNode(node);
        transcript.clear();
    }

    static CriSetRouting::Command command(std::uint32_t channel, std::uint32_t destination, unsigned type)
    {
        return {.RadioChannelID = channel,
                .DestinationID = destination,
                .RouteType = static_cast<RouteType>(type)};
    }

    zyr_test::NodeDoubles node{transcript};
    CriSetRoutingImpl impl;
};

TEST_F(CriSetRoutingTest, RouteReachesTheUpdater)
{
    enrol<CriSetRoutingImpl>();
    tell(criSetRouting(command(2, 7, 1)));
    tell(criSetRouting(command(1, 4294967295U, 2)));
    EXPECT_EQ(transcript.text(), R"x(
IRouteUpdater.updateRoute([2: 7], 1)
result 0x0 0 ""
prints StandardResponse Sent\n
IRouteUpdater.updateRoute([1: 4294967295], 2)
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRoutingTest, RequestIsTraced)
{
    enrol<CriSetRoutingImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriSetRouting", 7);
    criSetRouting(command(2, 9, 1));
    criSetRouting(command(1, 8, 2));
    EXPECT_EQ(transcript.text(), R"x(
5 ZYR.COMM: CRI.SetRouting Request: RadioChannel ID: 2\nDestination ID: 9\nRouteType: RcchToPhyRccMap\n
6 ZYR.TI.CriSetRouting: command.channelId=2
5 ZYR.TI.CriSetRouting: RadioChannel ID: 2\nDestination ID: 9\nRouteType: RcchToPhyRccMap\n
IRouteUpdater.updateRoute([2: 9], 1)
5 ZYR.COMM: CRI.SetRouting Response: StandardResponse Sent\n\n----------------------------------------------------\n
5 ZYR.COMM: CRI.SetRouting Request: RadioChannel ID: 1\nDestination ID: 8\nRouteType: RcchToRfPortMap\n
6 ZYR.TI.CriSetRouting: command.channelId=1
5 ZYR.TI.CriSetRouting: RadioChannel ID: 1\nDestination ID: 8\nRouteType: RcchToRfPortMap\n
IRouteUpdater.updateRoute([1: 8], 2)
5 ZYR.COMM: CRI.SetRouting Response: StandardResponse Sent\n\n----------------------------------------------------\n
)x");
}

TEST_F(CriSetRoutingTest, TypeWithoutAMeaningReachesTheUpdater)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetRouting", 5);
    tell(impl.execute(command(1, 3, 0)));
    tell(impl.execute(command(1, 4, 3)));
    EXPECT_EQ(transcript.text(), R"x(
5 ZYR.TI.CriSetRouting: RadioChannel ID: 1\nDestination ID: 3\nRouteType: UndefinedRoute\n
IRouteUpdater.updateRoute([1: 3], 0)
result 0x0 0 ""
prints StandardResponse Sent\n
5 ZYR.TI.CriSetRouting: RadioChannel ID: 1\nDestination ID: 4\nRouteType: UndefinedRoute\n
IRouteUpdater.updateRoute([1: 4], 3)
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRoutingTest, FailureOfTheUpdaterIsIgnored)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetRouting", 7);
    node.routeUpdater.onUpdateRoute.inTurn({0x8000, 0xFFFFFFFFU});
    tell(impl.execute(command(1, 5, 1)));
    tell(impl.execute(command(1, 6, 2)));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriSetRouting: command.channelId=1
5 ZYR.TI.CriSetRouting: RadioChannel ID: 1\nDestination ID: 5\nRouteType: RcchToPhyRccMap\n
IRouteUpdater.updateRoute([1: 5], 1)
result 0x0 0 ""
prints StandardResponse Sent\n
6 ZYR.TI.CriSetRouting: command.channelId=1
5 ZYR.TI.CriSetRouting: RadioChannel ID: 1\nDestination ID: 6\nRouteType: RcchToRfPortMap\n
IRouteUpdater.updateRoute([1: 6], 2)
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRoutingTest, ChannelEqualToTheCountIsAcceptedAndOneAboveRefused)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute(command(2, 5, 1)));
    tell(impl.execute(command(3, 6, 1)));
    EXPECT_EQ(transcript.text(), R"x(
IRouteUpdater.updateRoute([2: 5], 1)
result 0x0 0 ""
prints StandardResponse Sent\n
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRoutingTest, ChannelAboveTheCountIsRefusedBehindTheSummaryWithoutALine)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetRouting", 7);
    impl.execute(command(2, 6, 1));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriSetRouting: command.channelId=2
5 ZYR.TI.CriSetRouting: RadioChannel ID: 2\nDestination ID: 6\nRouteType: RcchToPhyRccMap\n
)x");
}

TEST_F(CriSetRoutingTest, Channel0ReachesTheUpdater)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    tell(impl.execute(command(0, 5, 2)));
    EXPECT_EQ(transcript.text(), R"x(
IRouteUpdater.updateRoute([0: 5], 2)
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRoutingTest, WithoutAnUpdaterTheCallIsLeftOut)
{
    withdraw("IRouteUpdater");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    tell(impl.execute(command(2, 1, 1)));
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriSetRouting:  Error getting interface to IRouteUpdater
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRoutingTest, SecondInitialiseFetchesTheUpdaterAnewAndForgetsItIfItIsGone)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    withdraw("IRouteUpdater");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    tell(impl.execute(command(2, 1, 1)));
    publish(node.routeUpdater);
    EXPECT_EQ(impl.initialize(2), 0);
    impl.execute(command(2, 3, 1));
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriSetRouting:  Error getting interface to IRouteUpdater
result 0x0 0 ""
prints StandardResponse Sent\n
IRouteUpdater.updateRoute([2: 3], 1)
)x");
}

TEST_F(CriSetRoutingTest, InitialiseRefusesAnyOtherCountAndStoresNothing)
{
    setTraceLevel("ZYR.TI.CriSetRouting", 7);
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(outcome(impl.execute(command(1, 1, 1))), "result 0xA100 2 \"RadioChannelID out of bounds\"");
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriSetRouting:
1 ZYR.TI.CriSetRouting: Error: numberOfChannels is out of range (0)
6 ZYR.TI.CriSetRouting:
1 ZYR.TI.CriSetRouting: Error: numberOfChannels is out of range (3)
6 ZYR.TI.CriSetRouting: command.channelId=1
5 ZYR.TI.CriSetRouting: RadioChannel ID: 1\nDestination ID: 1\nRouteType: RcchToPhyRccMap\n
)x");
}

} // namespace
} // namespace zyr_top_api
