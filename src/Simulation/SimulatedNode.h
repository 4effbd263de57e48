#pragma once

#include "FaultInjector.h"
#include "HardwareVariables.h"
#include "IInterface.h"
#include "Interferer.h"
#include "NodeSnapshot.h"
#include "NodeState.h"
#include "Publication.h"
#include "Registration.h"
#include "SimulatedAlarmHandler.h"
#include "SimulatedClocks.h"
#include "SimulatedNodeOptions.h"
#include "StartUpState.h"
#include "TimeSource.h"

#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zyr_simulation
{

/// A radio-link node without hardware: it publishes every collaborator of the command layer, over one state,
/// so that what one command sets another command sees.
///
/// It simulates the collaborators' contracts, not radio physics. Under a virtual time source its behaviour
/// follows from the options and from what is called alone. All operations may be called from any thread; the
/// node must outlive all calls of its collaborators, and the time source must outlive the node.
///
/// Unless it has the host's clocks, its own ones are those of the process as long as it lives. Its start-up
/// state is that of the process too: the node begins with the one of its options, and the one before it comes
/// back at the end.
class SimulatedNode
{
  public:
    /// Builds the node and publishes its collaborators.
    /// @throws std::invalid_argument if the options can't be
    /// @throws std::runtime_error if a name is taken in the broker; nothing stays published then
    SimulatedNode(const SimulatedNodeOptions& options, zyr_platform::TimeSource& time);

    /// Releases the long polls and withdraws the collaborators.
    ~SimulatedNode();

    SimulatedNode(const SimulatedNode&) = delete;
    SimulatedNode& operator=(const SimulatedNode&) = delete;

    /// Lets operations of the collaborators fail.
    FaultInjector& faults() { return m_state->faults; }

    /// The orders to fail that aren't used up: those that were injected through `faults()`, oldest first, and
    /// behind them those that a test command has given to the DSP, of each channel with the operations that
    /// they strike.
    std::vector<Fault> faultsLeft() const;

    /// The node's alarm handler, for its count of hanging long polls.
    const SimulatedAlarmHandler& alarmHandler() const { return *m_alarmHandler; }

    /// The state of the whole node at this moment.
    NodeSnapshot snapshot() const;

    /// The state of one channel at this moment.
    /// @throws std::out_of_range if the node has no such channel
    ChannelState channel(unsigned number) const;

    /// Releases all long polls, and lets none hang any more.
    void shutdown();

    // Settings, in force at once.

    /// Lets both channels carry one signal together, on channel 1's transmitter.
    void setCarrierAggregation(bool active);

    /// Sets the distance between the two directions: 0 variable, 1 fixed; other numbers are invalid for
    /// commands.
    void setDuplexType(std::uint32_t duplexType);

    /// Makes the channels long haul ones, or ordinary ones.
    void setLongHaul(bool longHaul);

    /// Gives the radio units two transmitters and receivers, or one.
    void setTwoTransmitters(bool twoTransmitters);

    /// Lets the channels take no configuration, or take it again.
    void setConfigurationBypassed(bool bypassed);

    /// Sets the path loss between the ends, in tenths of a dB.
    void setPathLoss_dBTenths(std::int32_t pathLoss);

    /// Sets the path loss to the receivers' second antennas, in tenths of a dB. It shows where a combiner
    /// runs.
    void setDiversityPathLoss_dBTenths(std::int32_t pathLoss);

    /// Switches the far end's transmitters on or off.
    void setFarEndTransmits(bool transmits);

    /// Sets how much weaker a receiver gets the other polarisation than its own, in tenths of a dB. Two
    /// channels on the same frequencies disturb each other by it.
    /// @throws std::invalid_argument if it isn't within 0 and 600
    void setCrossPolarDiscrimination_dBTenths(std::int32_t discrimination);

    /// Adds a foreign transmitter, or replaces the one at its frequency.
    /// @throws std::invalid_argument if it can't be, or if there are `Interferer::kMost` already
    void addInterferer(const Interferer& interferer);

    /// Removes all foreign transmitters.
    void clearInterferers();

    /// Takes a channel's radio unit away, or brings it back.
    /// @throws std::out_of_range if the node has no such channel
    void setRadioAvailable(unsigned channel, bool available);

    /// Gives the far end of a channel's encryption a key of its own. With another key than this end has the
    /// link stays up and carries nothing. Without a key the far end does as this end does, as at the start.
    /// The key isn't kept.
    /// @throws std::out_of_range if the node has no such channel
    /// @throws std::invalid_argument if the key is longer than 64 bytes
    void setFarEndKey(unsigned channel, const std::string& key);

    /// Brings the signal at a channel's external inputs of the pulse per second, or takes it away.
    /// @throws std::out_of_range if the node has no such channel
    void setPpsSignalPresent(unsigned channel, bool present);

    /// Plugs a channel's cable to the other polarisation in or out.
    /// @throws std::out_of_range if the node has no such channel
    void setXpicCableConnected(unsigned channel, bool connected);

  private:
    void addCollaborators();
    void addChannel(unsigned number);
    void addDrivers(unsigned number);
    void addClosingPhase();
    template <class Collaborator>
    Collaborator& add(const std::string& name, unsigned channel = 0);
    template <class Value>
    void set(Value SimulatedNodeOptions::*setting, Value value);

    std::shared_ptr<NodeState> m_state;
    std::vector<std::unique_ptr<IInterface>> m_collaborators;
    // Withdrawn before the collaborators go.
    std::list<zyr_platform::Publication> m_publications;
    std::vector<zyr_platform::Registration> m_drivers;
    zyr_platform::Registration m_closingPhase;
    std::optional<HardwareVariables> m_hardwareVariables;
    std::optional<SimulatedClocks> m_clocks;
    std::optional<zyr_platform::StartUpState> m_startUp;
    SimulatedAlarmHandler* m_alarmHandler = nullptr;
};

} // namespace zyr_simulation
