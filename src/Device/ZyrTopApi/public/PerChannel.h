#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace zyr_top_api
{

/// One collaborator for each radio channel, 1 and 2. There is no access by raw index, so that what is meant
/// for one channel can't reach the other's collaborator. Owns nothing; all empty after construction.
template <class Interface>
class PerChannel
{
  public:
    /// The collaborator of the channel; null if it was not found or if there is no such channel.
    Interface* find(std::uint32_t channel) const
    {
        return isChannel(channel) ? m_collaborators[channel - 1] : nullptr;
    }

    /// The collaborator of the channel.
    /// @throws std::out_of_range naming the channel, if there is no such channel or no collaborator
    Interface& operator[](std::uint32_t channel) const
    {
        Interface* const collaborator = find(channel);
        if (collaborator == nullptr) {
            throw std::out_of_range("no collaborator for radio channel " + std::to_string(channel));
        }
        return *collaborator;
    }

    /// Stores what was found for a channel, null included. @throws std::out_of_range as above
    void set(std::uint32_t channel, Interface* collaborator)
    {
        if (!isChannel(channel)) {
            throw std::out_of_range("no radio channel " + std::to_string(channel));
        }
        m_collaborators[channel - 1] = collaborator;
    }

  private:
    static constexpr bool isChannel(std::uint32_t channel) { return channel - 1 < kChannels; }

    static constexpr std::size_t kChannels = 2;
    std::array<Interface*, kChannels> m_collaborators = {};
};

} // namespace zyr_top_api
