#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zyr_simulation
{

/// An order to let an operation of a collaborator fail.
struct Fault
{
    std::string collaborator; ///< The interface's short name, as in "IAcmHandler".
    std::string operation;    ///< The operation's name, as in "enableAcm".
    unsigned channel = 0;     ///< The channel whose collaborator fails, 0 for any.
    std::uint32_t code = 0;   ///< What the operation answers; one that answers a flag answers false instead.
    unsigned count = 1;       ///< How many times it fails, at least once.
};

/// Lets operations of the simulated collaborators fail on request.
///
/// An operation that is to fail does nothing but answer. All operations may be called from any thread.
class FaultInjector
{
  public:
    static constexpr std::size_t kMostFaults = 256; ///< orders that are kept

    /// @param channels  the number of channels of the node
    explicit FaultInjector(unsigned channels) : m_channels(channels) {}

    /// Makes a collaborator's operations known. Telling the same collaborator again changes nothing, and so
    /// does one that has no operation that can fail.
    /// @param perChannel  false for a collaborator of the whole node
    void registerCollaborator(std::string_view collaborator, std::span<const std::string_view> operations,
                              bool perChannel);

    /// Adds an order. Of several orders for one operation the oldest is used up first.
    /// @throws std::invalid_argument if the collaborator, the operation, the channel or the count can't be,
    /// the
    ///         text says what is known; or if there are `kMostFaults` orders already
    void inject(const Fault& fault);

    /// Drops all orders.
    void clear();

    /// The orders that aren't used up, oldest first, each with the count that is left.
    std::vector<Fault> list() const;

    /// What an operation that is called now has to answer, nothing if it shall work. Uses up one count.
    std::optional<std::uint32_t> take(std::string_view collaborator, std::string_view operation,
                                      unsigned channel);

    /// The operations of all known collaborators that can be made to fail, by the collaborator's name.
    std::map<std::string, std::vector<std::string>, std::less<>> operations() const;

  private:
    struct Known
    {
        std::vector<std::string> operations;
        bool perChannel;
    };

    void check(const Fault& fault) const;

    const unsigned m_channels;
    mutable std::mutex m_mutex;
    std::map<std::string, Known, std::less<>> m_known;
    std::vector<Fault> m_faults;
};

} // namespace zyr_simulation
