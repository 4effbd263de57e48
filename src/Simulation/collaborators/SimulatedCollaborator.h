#pragma once

#include "NodeState.h"

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>

namespace zyr_simulation
{

/// A collaborator's short name and its operations that can be made to fail. Each simulated collaborator
/// states its own once, beside its class.
template <std::size_t Count>
struct CollaboratorOperations
{
    std::string_view collaborator;
    std::array<std::string_view, Count> operations;

    consteval CollaboratorOperations(std::string_view name,
                                     std::convertible_to<std::string_view> auto... names)
        : collaborator(name), operations{std::string_view(names)...}
    {}
};

template <class... Names>
CollaboratorOperations(const char*, Names...) -> CollaboratorOperations<sizeof...(Names)>;

/// What all simulated collaborators have in common: the node's state, the channel, and faults on request.
/// @tparam Interface  the interface that the collaborator simulates
/// @tparam Operations  a `CollaboratorOperations` at namespace scope
template <class Interface, const auto& Operations>
class SimulatedCollaborator : public Interface
{
  public:
    /// @param channel  the number of the channel, 0 for a collaborator of the whole node
    explicit SimulatedCollaborator(NodeState& node, unsigned channel = 0) : m_node(node), m_channel(channel)
    {
        node.faults.registerCollaborator(Operations.collaborator, Operations.operations, channel != 0);
    }

  protected:
    /// The name of an operation that can be made to fail. A name that `Operations` lacks doesn't compile.
    struct Operation
    {
        std::string_view name;

        consteval Operation(const char* text) : name(text)
        {
            for (const auto known : Operations.operations) {
                if (known == name) {
                    return;
                }
            }
            throw "the operation is missing in the collaborator's list";
        }
    };

    /// The code that the operation has to answer instead of working, if it was told to fail.
    std::optional<std::uint32_t> fault(Operation operation) const
    {
        return m_node.faults.take(Operations.collaborator, operation.name, m_channel);
    }

    /// Answers the fault that was ordered for the operation, else does the work with the node's mutex held
    /// and the node's state up to date before and after it. Work without an answer of its own always
    /// succeeds.
    template <class Result, class Work>
    Result perform(Operation operation, Work&& work) const
    {
        return unlessFaulty<Result>(operation, [&] { return locked(work); });
    }

    /// As `perform`, for work that changes nothing from which anything else follows.
    template <class Result, class Work>
    Result ask(Operation operation, Work&& work) const
    {
        return unlessFaulty<Result>(operation, [&] { return read(work); });
    }

    /// Does work that can't fail in the same way as `perform`.
    template <class Work>
    auto locked(Work&& work) const
    {
        const std::scoped_lock lock(m_node.mutex);
        m_node.settle();
        if constexpr (std::is_void_v<std::invoke_result_t<Work>>) {
            std::forward<Work>(work)();
            m_node.settleAnew();
        } else {
            auto answer = std::forward<Work>(work)();
            m_node.settleAnew();
            return answer;
        }
    }

    /// Does work that can't fail in the same way as `ask`.
    template <class Work>
    auto read(Work&& work) const
    {
        const std::scoped_lock lock(m_node.mutex);
        m_node.settle();
        return std::forward<Work>(work)();
    }

    NodeState& node() const { return m_node; }
    ChannelState& channel() const { return m_node.channel(m_channel); }

  private:
    template <class Result, class Work>
    Result unlessFaulty(Operation operation, const Work& work) const
    {
        if (const auto code = fault(operation)) {
            if constexpr (std::is_same_v<Result, bool>) {
                return false;
            } else {
                return static_cast<Result>(*code);
            }
        }
        if constexpr (std::is_void_v<std::invoke_result_t<Work>>) {
            work();
            return std::is_same_v<Result, bool> ? static_cast<Result>(true) : Result{};
        } else {
            return work();
        }
    }

    NodeState& m_node;
    const unsigned m_channel;
};

} // namespace zyr_simulation
