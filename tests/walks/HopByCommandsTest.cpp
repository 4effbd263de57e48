#include "CommandsOnNode.h"
#include "CriSetRfPowerImpl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

namespace
{

using namespace std::chrono_literals;
using namespace zyr_top_api;
using Status = CriGetRadioChannelStatus::Response;

// The road of a technician: configure a channel, raise its power, watch the hop through the commands alone.
class HopByCommandsTest : public zyr_test::CommandsOnNode
{
  protected:
    HopByCommandsTest() : CommandsOnNode({.pathLoss_dBTenths = 700, .fading_dBTenths = 0})
    {
        enrol<CriSetRfPowerImpl>();
        EXPECT_EQ(configure(), "");
    }

    static void setPower(std::int32_t power_dBmTenths)
    {
        EXPECT_EQ(criSetRfPower(power(power_dBmTenths, power_dBmTenths)).faultString, "");
    }

    // The status when things have settled; what came before is forgotten.
    Status settledStatus()
    {
        time.advance(5s);
        status(true);
        time.advance(10s);
        return status();
    }

    static std::size_t step(const std::string& modulation)
    {
        const auto& rows = getModulationAndCodeVector();
        const auto row = std::ranges::find(rows, modulation, &ModulationAndCode::name);
        return static_cast<std::size_t>(row - rows.begin());
    }
};

TEST_F(HopByCommandsTest, ModulationAndLevelFollowThePathLoss)
{
    setPower(150);
    const Status far = settledStatus();
    EXPECT_EQ(far.RadioChannelStatus, "Up");

    node.setPathLoss_dBTenths(500);
    const Status near = settledStatus();
    EXPECT_EQ(near.ActualRFInputPower, far.ActualRFInputPower + 200);
    EXPECT_GT(near.ActualSNIR, far.ActualSNIR);
    EXPECT_GE(step(near.ActualRxModulation), step(far.ActualRxModulation));

    node.setPathLoss_dBTenths(950);
    const Status storm = settledStatus();
    EXPECT_LT(storm.ActualRFInputPower, far.ActualRFInputPower);
    EXPECT_LT(storm.ActualSNIR, far.ActualSNIR);
    EXPECT_LT(step(storm.ActualRxModulation), step(near.ActualRxModulation));
}

TEST_F(HopByCommandsTest, RaisedPowerIsReportedAndLiftsTheTransmitModulation)
{
    node.setPathLoss_dBTenths(950);
    setPower(0);
    const Status low = settledStatus();
    setPower(150);
    const Status high = settledStatus();
    EXPECT_EQ(low.ReportedRFOutputPower, 0);
    EXPECT_EQ(high.ReportedRFOutputPower, 150);
    EXPECT_GT(step(high.ActualTxModulation), step(low.ActualTxModulation));
    EXPECT_EQ(high.ActualRxModulation, low.ActualRxModulation);
}

TEST_F(HopByCommandsTest, BlockCountersGrowWithTimeAndStartAgainWhenReset)
{
    setPower(150);
    time.advance(5s);
    status(true);
    time.advance(10s);
    const Status first = status();
    time.advance(10s);
    const Status second = status(true);
    EXPECT_GT(first.BackgroundBlocks, 0);
    EXPECT_GT(second.BackgroundBlocks, first.BackgroundBlocks);
    EXPECT_LT(status().BackgroundBlocks, first.BackgroundBlocks);
}

TEST_F(HopByCommandsTest, LostFarEndTakesTheLinkDown)
{
    setPower(150);
    EXPECT_EQ(settledStatus().RadioChannelStatus, "Up");
    node.setFarEndTransmits(false);
    time.advance(5s);
    EXPECT_EQ(status().RadioChannelStatus, "Down");
}

} // namespace
