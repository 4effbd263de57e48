#pragma once

#include "Export.h"
#include "IInterface.h"

#include <map>
#include <string>

/// The node's directory of collaborators by name.
///
/// Modules publish their interfaces before commands are initialised and may withdraw them when they go away.
/// The map is changed on the start-up thread only; lookups afterwards may come from any thread.
class ZYR_EXPORT InterfaceBroker
{
  public:
    static InterfaceBroker& getInstance();

    /// The collaborator published under exactly this name (case counts) if it is an `I`; null if the name is
    /// unknown, if a null pointer was published, or if the object is of another type. Never throws.
    template <class I>
    I* getInterface(const std::string& name) const
    {
        const auto entry = m_interfaces.find(name);
        return entry == m_interfaces.end() ? nullptr : dynamic_cast<I*>(entry->second);
    }

    /// Publishes a collaborator, which stays the caller's. False, with nothing changed, if the name is taken.
    bool registerInterface(const std::string& name, IInterface* interface);

    /// Withdraws what was published under this name. False if nothing was.
    bool unregisterInterface(const std::string& name);

    /// Everything that is published, in the order of the names.
    const std::map<std::string, IInterface*>& interfaces() const { return m_interfaces; }

  private:
    InterfaceBroker() = default;

    std::map<std::string, IInterface*> m_interfaces;
};
