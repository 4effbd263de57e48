#include "Publication.h"

#include <stdexcept>
#include <utility>

namespace zyr_platform
{

Publication::Publication(std::string name, IInterface& interface)
    : m_name(std::move(name)), m_interface(&interface)
{
    if (!InterfaceBroker::getInstance().registerInterface(m_name, m_interface)) {
        throw std::runtime_error("an interface is already published under the name \"" + m_name + "\"");
    }
}

Publication::~Publication()
{
    InterfaceBroker& broker = InterfaceBroker::getInstance();
    const auto entry = broker.interfaces().find(m_name);
    if (entry != broker.interfaces().end() && entry->second == m_interface) {
        broker.unregisterInterface(m_name);
    }
}

} // namespace zyr_platform
