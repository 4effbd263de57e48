#include "EDspChannelState.h"
#include "SimulationFixture.h"
#include "Zyr.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace
{

using namespace std::chrono_literals;
using zyr_top_api::EDspChannelState;
using zyr_top_api::ETxPowerActualStatus;

class WarmRestartTest : public SimulationFixture
{
  protected:
    void startBehind(Zyr::ZyrInitState state, unsigned radioType = 1)
    {
        startNode({.startUp = state, .radioType = radioType, .fading_dBTenths = 0});
    }
};

TEST_F(WarmRestartTest, channelsCarryTheirTrafficBehindAWarmRestartWithoutAnAlarm)
{
    for (const unsigned radioType : {1U, 2U, 3U}) {
        startBehind(Zyr::ZyrInitState::WarmRestart, radioType);
        EXPECT_EQ(Zyr::getInitState(), "WarmRestart");
        for (const unsigned number : {1U, 2U}) {
            EXPECT_TRUE(dspStatus(number).isLinkUp());
            const auto channel = node().channel(number);
            EXPECT_EQ(channel.configuration(), EDspChannelState::Configured);
            EXPECT_EQ(channel.radioFrameId, 102U);
            EXPECT_EQ(channel.transmitter.status, ETxPowerActualStatus::On);
            EXPECT_EQ(channel.transmitter.power, 150);
            EXPECT_EQ(channel.receiver.rxModulation, ModulationAndCoding::QAM_256);
            EXPECT_EQ(channel.receiver.txModulation, ModulationAndCoding::QAM_256);
            EXPECT_EQ(channel.transmitter.warmRestartSyncs, 0U);
        }
        time().advance(60s);
        EXPECT_EQ(alarms(), "");
        EXPECT_TRUE(dspStatus(1).isLinkUp());
    }
    EXPECT_EQ(node().channel(1).txFrequency_kHz, 5'930'000U);
    EXPECT_EQ(node().channel(1).rxFrequency_kHz, 6'182'000U);
    EXPECT_EQ(node().channel(2).txFrequency_kHz, 5'986'000U);
    EXPECT_EQ(node().channel(2).rxFrequency_kHz, 6'238'000U);
}

TEST_F(WarmRestartTest, nothingIsConfiguredBehindAColdRestart)
{
    startBehind(Zyr::ZyrInitState::ColdRestart);
    EXPECT_EQ(Zyr::getInitState(), "ColdRestart");
    EXPECT_EQ(node().channel(1).configuration(), EDspChannelState::Blocked);
    EXPECT_EQ(node().channel(1).transmitter.status, ETxPowerActualStatus::Off);
}

TEST_F(WarmRestartTest, startUpStateIsTheProcessesAsLongAsTheNodeLives)
{
    startBehind(Zyr::ZyrInitState::WarmRestart);
    endNode();
    EXPECT_EQ(Zyr::getInitState(), "NormalOperation");
    startBehind(Zyr::ZyrInitState::NormalOperation);
    EXPECT_EQ(Zyr::getInitState(), "NormalOperation");
    EXPECT_EQ(node().channel(1).configuration(), EDspChannelState::Blocked);
}

TEST_F(WarmRestartTest, synchronisationsAreCountedByChannel)
{
    startBehind(Zyr::ZyrInitState::WarmRestart);
    EXPECT_EQ(power(2).syncAfterWarmRestart(), 0U);
    EXPECT_EQ(power(2).syncAfterWarmRestart(), 0U);
    EXPECT_EQ(acm(1).syncAfterWarmRestart(), 0U);
    EXPECT_EQ(node().channel(1).transmitter.warmRestartSyncs, 0U);
    EXPECT_EQ(node().channel(1).acmSyncs, 1U);
    EXPECT_EQ(node().channel(2).transmitter.warmRestartSyncs, 2U);
    EXPECT_EQ(node().channel(2).acmSyncs, 0U);
}

} // namespace
