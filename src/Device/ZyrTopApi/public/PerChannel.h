#pragma once

#include "CDriver.h"
#include "Missing.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace zyr_top_api
{

/// The slots of the radio channels 1 and 2. There is no access by raw index, so that what is meant for one
/// channel can't reach the other's.
template <class Content>
class ChannelSlots
{
  public:
    /// The slot of the channel; null if there is no such channel.
    Content* find(std::uint32_t channel) { return channel - 1 < kChannels ? &m_slots[channel - 1] : nullptr; }
    const Content* find(std::uint32_t channel) const
    {
        return channel - 1 < kChannels ? &m_slots[channel - 1] : nullptr;
    }

  private:
    static constexpr std::size_t kChannels = 2;
    std::array<Content, kChannels> m_slots = {};
};

/// One collaborator for each radio channel. Owns nothing; all empty after construction.
template <class Interface>
class PerChannel
{
  public:
    /// The collaborator of the channel; null if it was not found or if there is no such channel.
    Interface* find(std::uint32_t channel) const
    {
        Interface* const* const slot = m_slots.find(channel);
        return slot != nullptr ? *slot : nullptr;
    }

    /// The collaborator of the channel.
    /// @throws std::out_of_range naming the collaborator and the channel, if there is no such channel or no
    /// collaborator
    Interface& operator[](std::uint32_t channel) const
    {
        Interface* const collaborator = find(channel);
        if (collaborator == nullptr) {
            throwMissing(typeName<Interface>(), channel);
        }
        return *collaborator;
    }

    /// Stores what was found for a channel, null included. @throws std::out_of_range as above
    void set(std::uint32_t channel, Interface* collaborator)
    {
        Interface** const slot = m_slots.find(channel);
        if (slot == nullptr) {
            throwMissing(typeName<Interface>(), channel);
        }
        *slot = collaborator;
    }

  private:
    ChannelSlots<Interface*> m_slots;
};

/// The handles of one hardware driver for each radio channel; empty (all words null) where there is no
/// driver.
class DriverPerChannel
{
  public:
    /// The channel's handle. @throws std::out_of_range naming the channel, if there is no such channel
    const CDriverHandle& operator[](std::uint32_t channel) const
    {
        const CDriverHandle* const slot = m_slots.find(channel);
        if (slot == nullptr) {
            throwMissing("hardware driver", channel);
        }
        return *slot;
    }

    /// Stores a channel's handle. @throws std::out_of_range as above
    void set(std::uint32_t channel, const CDriverHandle& handle)
    {
        CDriverHandle* const slot = m_slots.find(channel);
        if (slot == nullptr) {
            throwMissing("hardware driver", channel);
        }
        *slot = handle;
    }

  private:
    ChannelSlots<CDriverHandle> m_slots;
};

} // namespace zyr_top_api
