#include "InterfaceBroker.h"

// Never destroyed: modules that live as long as the process withdraw what they published when they go.
InterfaceBroker& InterfaceBroker::getInstance()
{
    static auto* const broker = new InterfaceBroker;
    return *broker;
}

bool InterfaceBroker::registerInterface(const std::string& name, IInterface* interface)
{
    return m_interfaces.emplace(name, interface).second;
}

bool InterfaceBroker::unregisterInterface(const std::string& name)
{
    return m_interfaces.erase(name) != 0;
}
