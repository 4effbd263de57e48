#pragma once

#include "Export.h"
#include "RadioChannel.h"

#include <string>

/// The root of all collaborators: what the interface broker holds under a name.
///
/// The module that publishes an interface owns the object and keeps it alive as long as commands may run.
/// Unless an interface says otherwise, its operations are called on the thread of a command, one command at a
/// time.
class ZYR_EXPORT IInterface
{
  public:
    virtual ~IInterface() = default;

    /// The name under which an interface is published: `base` alone for channel 0, else `base`, "_" and the
    /// decimal channel.
    static std::string interfaceName(const std::string& base, unsigned channel)
    {
        return channel == 0 ? base : base + "_" + std::to_string(channel);
    }

    /// The name under which a channel's interface is published: `base`, "_" and the decimal channel, also for
    /// channel 0.
    static std::string interfaceName(const std::string& base, const zyr_top_api::RadioChannel& channel)
    {
        return base + "_" + std::to_string(channel);
    }
};
