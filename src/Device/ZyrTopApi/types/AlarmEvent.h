#pragma once

#include "Export.h"
#include "RadioChannel.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// One alarm as the alarm handler reports it.
struct ZYR_EXPORT AlarmEvent
{
    std::string eventName;                            ///< The alarm's name.
    bool isActive = false;                            ///< Whether the alarm is raised now.
    std::int32_t numberOfTimesEventHasBeenActive = 0; ///< How many times it has been raised.
    MutableRadioChannel radioChannelId;               ///< The channel that it concerns.

    /// One line with all four fields under their names, the flag as a word; ends in a line feed.
    std::string toString() const;
};

} // namespace zyr_top_api
