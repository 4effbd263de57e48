#pragma once

#include <stdexcept>

namespace zyr_top_api
{

/// A collaborator of the whole node, or another single thing that `initialize` looks up. Owns nothing; empty
/// after construction.
template <class Interface>
class NodeWide
{
  public:
    /// What was found; null if nothing was.
    Interface* find() const { return m_found; }

    /// What was found. @throws std::out_of_range if nothing was
    Interface& operator*() const
    {
        if (m_found == nullptr) {
            throw std::out_of_range("a collaborator of the node was not found");
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
