#pragma once

#include "Export.h"

#include <cstdint>
#include <string>

/// Start-up state of the node. May be called from any thread.
class ZYR_EXPORT Zyr
{
  public:
    /// States of the node's start-up. Commands set `NormalOperation` only.
    enum class ZyrInitState : std::uint32_t
    {
        ColdRestart = 0,
        WarmRestart = 1,
        NormalOperation = 2,
    };

    /// True while the node comes up without interrupting traffic: transmitters and frames are left alone.
    static bool isWarmRestartInProgress();

    /// True while the node comes up from nothing.
    static bool isColdRestartInProgress();

    /// True when start-up is complete.
    static bool isZyrInNormalOperation();

    static void setInitState(const ZyrInitState& state);

    /// The state as text: "ColdRestart", "WarmRestart" or "NormalOperation".
    static std::string getInitState();
};
