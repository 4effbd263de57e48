#pragma once

#include "Export.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// The number of a radio channel, 1 or 2 on a node: the form that goes to collaborators and into map keys.
///
/// Any number is kept as given, also 0 and 3, since the commands judge it themselves. It compares, orders and
/// prints as its number.
class ZYR_EXPORT RadioChannel
{
  public:
    /// Channel 1.
    constexpr RadioChannel() = default;

    /// The channel with this number. Explicit, so that a plain number never turns into a channel unasked.
    constexpr explicit RadioChannel(std::uint32_t number) : m_number(number) {}

    /// The channel's number.
    constexpr operator std::uint32_t() const noexcept { return m_number; }

    /// The prefix of log lines that concern one channel: "channel <n>: ", with the blank at its end.
    std::string logString() const;

  private:
    std::uint32_t m_number = 1;
};

/// The form of a channel in records: a `RadioChannel` that takes a plain number.
class ZYR_EXPORT MutableRadioChannel : public RadioChannel
{
  public:
    /// Channel 1.
    constexpr MutableRadioChannel() = default;

    /// The channel with this number; implicit, which also makes the object assignable from a number.
    constexpr MutableRadioChannel(std::uint32_t number) : RadioChannel(number) {}

    /// The same channel.
    constexpr MutableRadioChannel(RadioChannel channel) : RadioChannel(channel) {}
};

} // namespace zyr_top_api
