#include "AlarmEvent.h"

namespace zyr_top_api
{

std::string AlarmEvent::toString() const
{
    return "eventName: " + eventName + ", isActive: " + (isActive ? "true" : "false") +
           ", numberOfTimesEventHasBeenActive: " + std::to_string(numberOfTimesEventHasBeenActive) +
           ", radioChannelId: " + std::to_string(std::uint32_t{radioChannelId}) + "\n";
}

} // namespace zyr_top_api
