#pragma once

#include "Missing.h"

namespace zyr_top_api
{

/// A collaborator of the whole node. Owns nothing; empty after construction.
template <class Interface>
class NodeWide
{
  public:
    /// What was found; null if nothing was.
    Interface* find() const { return m_found; }

    /// What was found. @throws std::out_of_range naming the collaborator, if nothing was
    Interface& operator*() const
    {
        if (m_found == nullptr) {
            throwMissing(typeName<Interface>());
        }
        return *m_found;
    }
    Interface* operator->() const { return &**this; }

    /// Stores what was found, null included.
    void set(Interface* found) { m_found = found; }

  private:
    Interface* m_found = nullptr;
};

} // namespace zyr_top_api
