#pragma once

#include "RegisteringModule.h"
#include "SimMethods.h"
#include "SimulatedNode.h"
#include "VirtualTime.h"
#include "XmlRpcServer.h"

namespace zyr_fuzz
{

/// The whole node, as it is served: all commands, the test ones too, on a simulated node under virtual time,
/// with the methods that change what is simulated.
class ServedNode
{
  public:
    explicit ServedNode(zyr_gateway::HttpOptions options) : m_server(std::move(options), m_commands)
    {
        zyr_node::addSimMethods(m_server, m_node);
        m_server.start();
    }
    ~ServedNode() { m_node.shutdown(); }
    ServedNode(const ServedNode&) = delete;
    ServedNode& operator=(const ServedNode&) = delete;

    std::uint16_t port() const { return m_server.port(); }

  private:
    zyr_platform::VirtualTime m_time;
    zyr_simulation::SimulatedNode m_node{{}, m_time};
    zyr_registration::RegisteringModule m_commands{{.numberOfChannels = 2, .enableTi = true}};
    zyr_gateway::XmlRpcServer m_server;
};

} // namespace zyr_fuzz
