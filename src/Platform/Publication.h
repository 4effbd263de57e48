#pragma once

#include "InterfaceBroker.h"

#include <string>

namespace zyr_platform
{

/// Publishes a collaborator in the interface broker as long as this lives. To be made and destroyed on the
/// start-up thread.
class [[nodiscard]] Publication
{
  public:
    /// @param interface  stays the caller's, and must live at least as long as this
    /// @throws std::runtime_error that names the doubled name if something is published under it already
    Publication(std::string name, IInterface& interface);

    /// Withdraws the collaborator, unless another one has taken its name since.
    ~Publication();

    Publication(const Publication&) = delete;
    Publication& operator=(const Publication&) = delete;

    const std::string& name() const { return m_name; }

  private:
    std::string m_name;
    IInterface* m_interface;
};

} // namespace zyr_platform
