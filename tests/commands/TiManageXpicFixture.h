#pragma once

#include "CommandTest.h"
#include "DriverDouble.h"
#include "NodeDoubles.h"
#include "TiManageXpicImpl.h"

#include <cstdint>
#include <memory>
#include <string>

namespace zyr_test
{

/// The two hardware drivers of a channel.
struct XpicDrivers
{
    XpicDrivers(Transcript& transcript, const std::string& channel)
        : cable(transcript, "channel." + channel + ".xpic.connected"),
          txEnable(transcript, "channel." + channel + ".xpic.tx.enable")
    {}

    DriverDouble cable;
    DriverDouble txEnable;
};

/// Doubles for "TI.ManageXPIC", whose readings are others on each channel.
class TiManageXpicFixture : public CommandTest
{
  protected:
    TiManageXpicFixture()
    {
        publishNode(node);
        setReadings(node.channel1, *drivers1, 1);
        setReadings(node.channel2, *drivers2, 2);
        transcript.clear();
    }

    static void setReadings(ChannelDoubles& channel, XpicDrivers& drivers, std::int16_t number)
    {
        using namespace zyr_top_api;
        const auto at = [number](int value) { return static_cast<std::int16_t>(value * number); };
        channel.ccdpController.onGetBar = number == 1 ? 1U : 0U;
        channel.ccdpController.onGetLinkType = {eTI_S_OK, static_cast<LinkType>(number)};
        channel.ccdpController.onGetPreamble = {eTI_S_OK, static_cast<XpicMimoPreamble>(number)};
        channel.ccdpController.onGetXpicStatusStruct = {
            eTI_S_OK, XpicStatusStruct{at(301), at(-4002), static_cast<std::uint8_t>('a' + number),
                                       static_cast<std::uint8_t>('p' + number)}};
        channel.dspApi.statusApi.onGetSlaveAgc = {eTI_S_OK, at(-31), at(32)};
        channel.dspApi.statusApi.onGetIqSlaveImbalance = {eTI_S_OK, at(1), at(-17), at(3), at(4), at(5)};
        drivers.cable.onRead = {0, number == 1 ? 1U : 0U};
        drivers.txEnable.onRead = {0, number == 1 ? 0U : 4294967295U};
    }

    /// All fields but those that are refused.
    static zyr_top_api::TiManageXpic::Command allThatIsTaken(std::uint32_t channel)
    {
        using namespace zyr_top_api;
        TiManageXpic::Command command;
        command.radioChannelId = channel;
        command.xpicControlBarOn = true;
        command.xpicEnableExt = LinkType::Enable_C;
        command.txMessage = std::string();
        command.xpicTxEnable = true;
        command.xpicMute = true;
        command.xpicAcquireStart = true;
        command.xpicAcquireMode = static_cast<XpicAcquireMode>(7);
        command.xpicSpectralInversionMode = static_cast<XpicSpectralInversionMode>(8);
        command.xpicPreambleGet = true;
        command.xpicPreambleSet = XpicMimoPreamble::Preamble_D;
        command.xpicStatusGet = true;
        return command;
    }

    /// As on a product without the hardware drivers.
    void removeDrivers()
    {
        drivers1.reset();
        drivers2.reset();
    }

    NodeDoubles node{transcript};
    std::unique_ptr<XpicDrivers> drivers1 = std::make_unique<XpicDrivers>(transcript, "1");
    std::unique_ptr<XpicDrivers> drivers2 = std::make_unique<XpicDrivers>(transcript, "2");
    zyr_top_api::TiManageXpicImpl impl;
};

} // namespace zyr_test
