#pragma once

#include "SimulatedNode.h"
#include "XmlRpcServer.h"

namespace zyr_node
{

/// Adds the methods "SIM.": they show and change what lies behind the commands, the simulated node and its
/// trace. The node must outlive the server.
void addSimMethods(zyr_gateway::XmlRpcServer& server, zyr_simulation::SimulatedNode& node);

} // namespace zyr_node
