#pragma once

#include "AlarmEvent.h"
#include "CModuleManager.h"
#include "IAcmHandler.h"
#include "IDspApi.h"
#include "IFrequencyController.h"
#include "IHardwareConfigurationHandler.h"
#include "IInterface.h"
#include "ISystemPowerController.h"
#include "InterfaceBroker.h"
#include "SimulatedNode.h"
#include "VirtualTime.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

/// A simulated node under virtual time, and its collaborators by name.
class SimulationFixture : public testing::Test
{
  protected:
    using ModulationAndCoding = zyr_top_api::ModulationAndCoding;

    SimulationFixture() { startNode(); }

    /// Builds the node anew.
    void startNode(const zyr_simulation::SimulatedNodeOptions& options = {})
    {
        endNode();
        m_node = std::make_unique<zyr_simulation::SimulatedNode>(options, m_time);
    }

    void endNode() { m_node.reset(); }

    zyr_simulation::SimulatedNode& node() { return *m_node; }
    zyr_platform::VirtualTime& time() { return m_time; }

    /// The collaborator with this name, null if there is none.
    template <class Interface>
    static Interface* find(const std::string& name)
    {
        return InterfaceBroker::getInstance().getInterface<Interface>(name);
    }

    /// The collaborator of a channel, or of the whole node.
    template <class Interface>
    static Interface& require(const std::string& name, unsigned channel = 0)
    {
        auto* const collaborator = find<Interface>(IInterface::interfaceName(name, channel));
        if (collaborator == nullptr) {
            throw std::logic_error(name + " isn't published");
        }
        return *collaborator;
    }

    static IAcmHandler& acm(unsigned channel) { return require<IAcmHandler>("IAcmHandler", channel); }
    static IDspApi& dsp(unsigned channel) { return require<IDspApi>("IDspApi", channel); }
    static IDspStatusApi& dspStatus(unsigned channel) { return *dsp(channel).getDspStatusApi(); }
    static IDspChannelApi& dspChannel(unsigned channel) { return *dsp(channel).getDspChannelApi(); }
    static IDspControlApi& dspControl(unsigned channel) { return *dsp(channel).getDspControlApi(); }
    static ISystemPowerController& power(unsigned channel)
    {
        return require<ISystemPowerController>("ISystemPowerController", channel);
    }
    static IFrequencyController& frequencies(unsigned channel)
    {
        return require<IFrequencyController>("IFrequencyController", channel);
    }
    static IHardwareConfigurationHandler& hardware()
    {
        return require<IHardwareConfigurationHandler>("IHardwareConfigurationHandler");
    }

    /// Configures a channel as the near-end command does, the transmitter left aside. The frequencies are
    /// those of a node with radio type 1 if no others are given.
    static void configure(unsigned channel, unsigned radioFrameId = 103,
                          ModulationAndCoding min = ModulationAndCoding::QAM_4_STRONG,
                          ModulationAndCoding max = ModulationAndCoding::QAM_4096_LIGHT,
                          unsigned txFrequency_kHz = 14'560'000, unsigned rxFrequency_kHz = 14'980'000)
    {
        EXPECT_EQ(acm(channel).muteAcm(), 0U);
        EXPECT_EQ(acm(channel).setMinMaxModulationAndCode(min, max), 0U);
        EXPECT_EQ(hardware().setRadioFrameId(zyr_top_api::RadioChannel(channel), radioFrameId, 1), 0U);
        EXPECT_EQ(frequencies(channel).setTxFrequency(txFrequency_kHz, 1), 0U);
        EXPECT_EQ(frequencies(channel).setRxFrequency(rxFrequency_kHz, 1), 0U);
        EXPECT_EQ(acm(channel).enableAcm(true), 0U);
        EXPECT_EQ(CModuleManager_RunGroup(5, channel), 0U);
    }

    /// Requests the transmitter to be on with this window of power, and waits until it is. The far end's
    /// target can't be reached, so that the greatest power of the window is sent.
    void transmit(unsigned channel, int minPower, int maxPower, int target = 500)
    {
        EXPECT_EQ(power(channel).configurePowerSettings(zyr_top_api::TxRequestedStatus::On, target, minPower,
                                                        maxPower, 0, 1),
                  0U);
        time().advance(std::chrono::milliseconds(300));
    }

    /// All known alarms, one in a line.
    std::string alarms()
    {
        std::string text;
        for (const auto& event : node().snapshot().alarms) {
            text += event.eventName + " " + std::to_string(event.radioChannelId) +
                    (event.isActive ? " active " : " inactive ") +
                    std::to_string(event.numberOfTimesEventHasBeenActive) + "\n";
        }
        return text;
    }

  private:
    zyr_platform::VirtualTime m_time;
    std::unique_ptr<zyr_simulation::SimulatedNode> m_node;
};
