#pragma once

#include "Export.h"

#include <cstdint>

namespace Util
{

/// Pause of the calling thread. The sleeper in force can be replaced by the owner of the process, so that
/// waits can run on virtual time. May be called from any thread.
class ZYR_EXPORT DefaultSleepApi
{
  public:
    virtual ~DefaultSleepApi() = default;

    /// The sleeper in force.
    static DefaultSleepApi& get();

    /// Pauses the calling thread for so many milliseconds.
    virtual void sleep(std::uint32_t milliSec) = 0;
};

} // namespace Util
