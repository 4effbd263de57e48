#pragma once

#include "CommandEntry.h"
#include "RandomCalls.h"
#include "SimulatedNode.h"
#include "VirtualTime.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zyr_test
{

/// All commands, in the dispatcher's table as far as they belong there, with the gate open.
class AllCommands
{
  public:
    /// An initialisation may fail: then the command stands as it is.
    explicit AllCommands(unsigned numberOfChannels);
    ~AllCommands();
    AllCommands(const AllCommands&) = delete;
    AllCommands& operator=(const AllCommands&) = delete;

    void* implementation(const zyr_registration::CommandEntry& command) const;

  private:
    std::vector<zyr_registration::LiveCommand> m_live;
};

/// Random requests to commands of a simulated node under virtual time, where anything fails.
class WalkOnNode
{
  public:
    explicit WalkOnNode(Chance& chance) : m_chance(chance), m_calls(chance) {}

    /// Another node, and new commands on it. To be called first.
    void renew();

    /// A call, behind whatever may fail or change before it.
    void step(const zyr_registration::CommandEntry& command);

    const RandomCalls& calls() const { return m_calls; }

  private:
    void configure();
    void injectFault();
    void changeCircumstances();

    Chance& m_chance;
    unsigned m_channels = 2;
    zyr_platform::VirtualTime m_time;
    std::optional<zyr_simulation::SimulatedNode> m_node;
    std::map<std::string, std::vector<std::string>, std::less<>> m_operations;
    std::optional<AllCommands> m_commands;
    RandomCalls m_calls;
};

/// Sets the level of all trace channels: any, silent most of the time.
void setAnyTraceLevel(Chance& chance);

} // namespace zyr_test
