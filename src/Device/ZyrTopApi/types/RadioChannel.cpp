#include "RadioChannel.h"

namespace zyr_top_api
{

std::string RadioChannel::logString() const
{
    return "channel " + std::to_string(m_number) + ": ";
}

} // namespace zyr_top_api
