#pragma once

#include "CmdWrapper.h"
#include "CriGetRadioChannelStatusImpl.h"
#include "CriSetRadioChannelNearEndImpl.h"
#include "CriSetRfPower.h"
#include "SimulatedNode.h"
#include "VirtualTime.h"
#include "ZyrApiHandler.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

namespace zyr_test
{

/// A simulated node with two channels under virtual time, set and seen through the dispatcher; the gate of
/// the test commands is open. The commands that configure a channel and tell its status are enrolled.
class CommandsOnNode : public testing::Test
{
  protected:
    explicit CommandsOnNode(const zyr_simulation::SimulatedNodeOptions& options) : node(options, time)
    {
        enrol<zyr_top_api::CriGetRadioChannelStatusImpl, zyr_top_api::CriSetRadioChannelNearEndImpl>();
        zyr_top_api::ZyrApiHandler::setTiEnabled(true);
    }
    ~CommandsOnNode() override
    {
        zyr_top_api::ZyrApiHandler::setTiEnabled(false);
        zyr_top_api::ZyrApiHandler::m_cmds.clear();
    }

    /// Has the dispatcher find the commands, each ready for use.
    template <class... XImpls>
    static void enrol()
    {
        (enrolOne<XImpls>(), ...);
    }

    /// What configures a channel with a frame that goes from 4QAM to 4096QAM.
    static zyr_top_api::CriSetRadioChannelNearEnd::Command nearEnd()
    {
        zyr_top_api::CriSetRadioChannelNearEnd::Command command;
        command.RadioChannelID = zyr_top_api::RadioChannel(1);
        command.radioFrameId = 102;
        command.minModulation = zyr_top_api::ModulationAndCoding::QAM_4;
        command.maxModulation = zyr_top_api::ModulationAndCoding::QAM_4096;
        command.txFrequency_kHz = 14'500'000;
        command.rxFrequency_kHz = 14'920'000;
        return command;
    }

    /// @return the fault's text, empty if there is none
    static std::string configure(const zyr_top_api::CriSetRadioChannelNearEnd::Command& command = nearEnd())
    {
        return criSetRadioChannelNearEnd(command).faultString;
    }

    /// The status of channel 1.
    static zyr_top_api::CriGetRadioChannelStatus::Response status(bool resetErrorBlocks = false)
    {
        zyr_top_api::CriGetRadioChannelStatus::Command command;
        command.RadioChannelID = 1;
        command.ResetErrorBlocks = resetErrorBlocks;
        auto answer = criGetRadioChannelStatus(command);
        EXPECT_EQ(answer.faultString, "");
        return answer;
    }

    /// What switches the transmitter of channel 1 on with a window of power.
    static zyr_top_api::CriSetRfPower::Command power(std::int32_t least, std::int32_t most)
    {
        zyr_top_api::CriSetRfPower::Command command;
        command.RadioChannelID = 1;
        command.txRequestedStatus = zyr_top_api::TxRequestedStatus::On;
        command.minRfOutputPower = least;
        command.maxRfOutputPower = most;
        return command;
    }

    zyr_platform::VirtualTime time;
    zyr_simulation::SimulatedNode node;

  private:
    template <class XImpl>
    static void enrolOne()
    {
        auto wrapper =
            std::make_shared<zyr_top_api::CmdWrapper<XImpl>>(std::string(XImpl::identity.wireName));
        EXPECT_EQ(wrapper->impl().initialize(2), 0U);
        zyr_top_api::ZyrApiHandler::m_cmds.push_back(wrapper);
    }
};

} // namespace zyr_test
