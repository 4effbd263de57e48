#include "FaultInjector.h"

#include "IAcmHandler.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace
{

using zyr_simulation::Fault;

class FaultInjectorTest : public SimulationFixture
{
  protected:
    IAcmHandler& acm(unsigned channel) { return require<IAcmHandler>("IAcmHandler", channel); }

    /// Why a fault is refused, empty if it isn't.
    std::string refusal(const Fault& fault)
    {
        try {
            node().faults().inject(fault);
            return "";
        } catch (const std::invalid_argument& error) {
            return error.what();
        }
    }
};

TEST_F(FaultInjectorTest, operationFailsSoManyTimesAndThenNoMore)
{
    node().faults().inject({"IAcmHandler", "enableAcm", 1, 0x8123, 2});
    EXPECT_EQ(acm(1).enableAcm(true), 0x8123U);
    EXPECT_EQ(node().faults().list().at(0).count, 1U);
    EXPECT_EQ(acm(1).enableAcm(true), 0x8123U);
    EXPECT_FALSE(node().channel(1).acmEnabled) << "a failed operation does nothing";
    EXPECT_TRUE(node().faults().list().empty());
    EXPECT_EQ(acm(1).enableAcm(true), 0U);
    EXPECT_TRUE(node().channel(1).acmEnabled);
}

TEST_F(FaultInjectorTest, onlyTheNamedChannelAndOperationFail)
{
    node().faults().inject({"IAcmHandler", "enableAcm", 2, 0x8123, 1});
    EXPECT_EQ(acm(1).enableAcm(true), 0U);
    EXPECT_EQ(acm(2).muteAcm(), 0U);
    EXPECT_EQ(acm(2).enableAcm(true), 0x8123U);
}

TEST_F(FaultInjectorTest, channelZeroMeansAnyChannel)
{
    node().faults().inject({"IAcmHandler", "muteAcm", 0, 0x8005, 2});
    EXPECT_EQ(acm(2).muteAcm(), 0x8005U);
    EXPECT_EQ(acm(1).muteAcm(), 0x8005U);
    EXPECT_EQ(acm(1).muteAcm(), 0U);
}

TEST_F(FaultInjectorTest, olderOrdersAreUsedUpFirst)
{
    node().faults().inject({"IAcmHandler", "muteAcm", 1, 0x8005, 1});
    node().faults().inject({"IAcmHandler", "muteAcm", 0, 0x8006, 1});
    EXPECT_EQ(acm(1).muteAcm(), 0x8005U);
    EXPECT_EQ(acm(1).muteAcm(), 0x8006U);
    EXPECT_EQ(acm(1).muteAcm(), 0U);
}

TEST_F(FaultInjectorTest, clearingDropsAllOrders)
{
    node().faults().inject({"IAcmHandler", "muteAcm", 0, 0x8005, 5});
    EXPECT_EQ(node().snapshot().faults.size(), 1U);
    node().faults().clear();
    EXPECT_EQ(acm(1).muteAcm(), 0U);
    EXPECT_TRUE(node().snapshot().faults.empty());
}

TEST_F(FaultInjectorTest, unknownCollaboratorIsRefusedWithTheKnownOnes)
{
    const auto text = refusal({"IAcmhandler", "enableAcm", 1, 0x8000, 1});
    EXPECT_EQ(text.find("unknown collaborator \"IAcmhandler\"; known are: "), 0U) << text;
    EXPECT_NE(text.find("IAcmHandler, IAlarmHandlerTopApi"), std::string::npos) << text;
}

TEST_F(FaultInjectorTest, unknownOperationIsRefusedWithTheKnownOnes)
{
    const auto text = refusal({"IAlarmHandlerTopApi", "getAlarm", 0, 0x8000, 1});
    EXPECT_EQ(text,
              "unknown operation \"getAlarm\" of IAlarmHandlerTopApi; known are: getAlarms, getFastAlarms, "
              "releaseFastAlarmRequests, getAlarmsByOption, setAlarmEvents");
}

TEST_F(FaultInjectorTest, channelThatTheCollaboratorLacksIsRefused)
{
    EXPECT_EQ(refusal({"IAcmHandler", "enableAcm", 3, 0x8000, 1}),
              "IAcmHandler has no channel 3; give 1 to 2, or 0 for any");
    EXPECT_EQ(refusal({"IAlarmHandlerTopApi", "getAlarms", 1, 0x8000, 1}),
              "IAlarmHandlerTopApi has no channel 1; it serves the whole node, give 0");
}

TEST_F(FaultInjectorTest, orderBeyondTheTwoHundredAndFiftySixthIsRefused)
{
    for (int order = 1; order <= 256; ++order) {
        EXPECT_EQ(refusal({"IAcmHandler", "enableAcm", 1, 0x8000, 1}), "") << order;
    }
    EXPECT_EQ(refusal({"IAcmHandler", "enableAcm", 1, 0x8000, 1}),
              "there are 256 orders to fail, no more can be kept");
    EXPECT_EQ(acm(1).enableAcm(true), 0x8000U);
    EXPECT_EQ(refusal({"IAcmHandler", "enableAcm", 1, 0x8000, 1}), "");
}

TEST_F(FaultInjectorTest, countZeroIsRefused)
{
    EXPECT_EQ(refusal({"IAcmHandler", "enableAcm", 1, 0x8000, 0}),
              "a fault must be given at least once, not 0 times");
    EXPECT_TRUE(node().faults().list().empty());
}

} // namespace
