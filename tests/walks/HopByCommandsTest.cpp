#include "CmdWrapper.h"
#include "CriGetRadioChannelStatusImpl.h"
#include "CriSetRadioChannelNearEndImpl.h"
#include "CriSetRfPowerImpl.h"
#include "SimulatedNode.h"
#include "VirtualTime.h"
#include "ZyrApiHandler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace
{

using namespace std::chrono_literals;
using namespace zyr_top_api;
using Status = CriGetRadioChannelStatus::Response;

// The road of a technician: configure a channel, raise its power, watch the hop through the commands alone.
class HopByCommandsTest : public testing::Test
{
  protected:
    HopByCommandsTest()
    {
        enrol<CriSetRadioChannelNearEndImpl>();
        enrol<CriSetRfPowerImpl>();
        enrol<CriGetRadioChannelStatusImpl>();
        node.setPathLoss_dBTenths(700);
    }
    ~HopByCommandsTest() override { ZyrApiHandler::m_cmds.clear(); }

    template <class XImpl>
    static void enrol()
    {
        auto wrapper = std::make_shared<CmdWrapper<XImpl>>(std::string(XImpl::identity.wireName));
        EXPECT_EQ(wrapper->impl().initialize(2), eTI_S_OK);
        ZyrApiHandler::m_cmds.push_back(wrapper);
    }

    static void configure()
    {
        CriSetRadioChannelNearEnd::Command command;
        command.RadioChannelID = RadioChannel(1);
        command.radioFrameId = 102;
        command.minModulation = ModulationAndCoding::QAM_4;
        command.maxModulation = ModulationAndCoding::QAM_4096;
        command.txFrequency_kHz = 14'500'000;
        command.rxFrequency_kHz = 14'920'000;
        ASSERT_EQ(criSetRadioChannelNearEnd(command).faultString, "");
    }

    static void setPower(std::int32_t power)
    {
        CriSetRfPower::Command command;
        command.RadioChannelID = 1;
        command.txRequestedStatus = TxRequestedStatus::On;
        command.minRfOutputPower = power;
        command.maxRfOutputPower = power;
        ASSERT_EQ(criSetRfPower(command).faultString, "");
    }

    static Status status(bool resetErrorBlocks = false)
    {
        CriGetRadioChannelStatus::Command command;
        command.RadioChannelID = 1;
        command.ResetErrorBlocks = resetErrorBlocks;
        Status answer = criGetRadioChannelStatus(command);
        EXPECT_EQ(answer.faultString, "");
        return answer;
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

    zyr_platform::VirtualTime time;
    zyr_simulation::SimulatedNode node{{.fading_dBTenths = 0}, time};
};

TEST_F(HopByCommandsTest, ModulationAndLevelFollowThePathLoss)
{
    configure();
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
    configure();
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
    configure();
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
    configure();
    setPower(150);
    EXPECT_EQ(settledStatus().RadioChannelStatus, "Up");
    node.setFarEndTransmits(false);
    time.advance(5s);
    EXPECT_EQ(status().RadioChannelStatus, "Down");
}

} // namespace
