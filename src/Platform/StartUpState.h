#pragma once

#include "Zyr.h"

namespace zyr_platform
{

/// Puts the node into a state of its start-up as long as this lives, and then into the one before it. A
/// process starts in normal operation. Commands and others may go on to another state in the meantime.
class [[nodiscard]] StartUpState
{
  public:
    explicit StartUpState(Zyr::ZyrInitState state);
    ~StartUpState();
    StartUpState(const StartUpState&) = delete;
    StartUpState& operator=(const StartUpState&) = delete;

    /// The state that the node is in.
    static Zyr::ZyrInitState current();

  private:
    Zyr::ZyrInitState m_previous;
};

} // namespace zyr_platform
