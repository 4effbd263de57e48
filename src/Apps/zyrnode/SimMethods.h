#pragma once

#include "Description.h"
#include "SimulatedNode.h"
#include "XmlRpcServer.h"

#include <vector>

namespace zyr_node
{

/// Adds the methods "SIM.": they show and change what lies behind the commands, the simulated node and its
/// trace. The node must outlive the server.
void addSimMethods(zyr_gateway::XmlRpcServer& server, zyr_simulation::SimulatedNode& node);

/// The notes of these methods, in the order of their names.
std::vector<zyr_registration::MethodNotes> simMethodNotes();

} // namespace zyr_node
