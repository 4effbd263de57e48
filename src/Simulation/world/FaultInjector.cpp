#include "FaultInjector.h"

#include <algorithm>
#include <stdexcept>

namespace zyr_simulation
{

namespace
{

/// The names, in order, with a comma between two.
template <class Range, class Name>
std::string listed(const Range& range, Name name)
{
    std::string text;
    for (const auto& entry : range) {
        text.append(text.empty() ? "" : ", ").append(name(entry));
    }
    return text;
}

} // namespace

void FaultInjector::registerCollaborator(std::string_view collaborator,
                                         std::span<const std::string_view> operations, bool perChannel)
{
    const std::scoped_lock lock(m_mutex);
    if (!operations.empty()) {
        m_known.try_emplace(std::string(collaborator),
                            Known{{operations.begin(), operations.end()}, perChannel});
    }
}

void FaultInjector::inject(const Fault& fault)
{
    const std::scoped_lock lock(m_mutex);
    check(fault);
    if (m_faults.size() >= kMostFaults) {
        throw std::invalid_argument("there are " + std::to_string(kMostFaults) +
                                    " orders to fail, no more can be kept");
    }
    m_faults.push_back(fault);
}

void FaultInjector::clear()
{
    const std::scoped_lock lock(m_mutex);
    m_faults.clear();
}

std::vector<Fault> FaultInjector::list() const
{
    const std::scoped_lock lock(m_mutex);
    return m_faults;
}

std::optional<std::uint32_t> FaultInjector::take(std::string_view collaborator, std::string_view operation,
                                                 unsigned channel)
{
    const std::scoped_lock lock(m_mutex);
    const auto fault = std::ranges::find_if(m_faults, [&](const Fault& candidate) {
        return candidate.operation == operation && candidate.collaborator == collaborator &&
               (candidate.channel == 0 || candidate.channel == channel);
    });
    if (fault == m_faults.end()) {
        return std::nullopt;
    }
    const auto code = fault->code;
    if (--fault->count == 0) {
        m_faults.erase(fault);
    }
    return code;
}

std::map<std::string, std::vector<std::string>, std::less<>> FaultInjector::operations() const
{
    const std::scoped_lock lock(m_mutex);
    std::map<std::string, std::vector<std::string>, std::less<>> result;
    for (const auto& [name, known] : m_known) {
        result.emplace(name, known.operations);
    }
    return result;
}

void FaultInjector::check(const Fault& fault) const
{
    const auto known = m_known.find(fault.collaborator);
    if (known == m_known.end()) {
        throw std::invalid_argument("unknown collaborator \"" + fault.collaborator + "\"; known are: " +
                                    listed(m_known, [](const auto& entry) { return entry.first; }));
    }
    const auto& operations = known->second.operations;
    if (std::ranges::find(operations, fault.operation) == operations.end()) {
        throw std::invalid_argument(
            "unknown operation \"" + fault.operation + "\" of " + fault.collaborator +
            "; known are: " + listed(operations, [](const std::string& name) { return name; }));
    }
    if (fault.channel > (known->second.perChannel ? m_channels : 0)) {
        throw std::invalid_argument(
            fault.collaborator + " has no channel " + std::to_string(fault.channel) + "; " +
            (known->second.perChannel ? "give 1 to " + std::to_string(m_channels) + ", or 0 for any"
                                      : "it serves the whole node, give 0"));
    }
    if (fault.count == 0) {
        throw std::invalid_argument("a fault must be given at least once, not 0 times");
    }
}

} // namespace zyr_simulation
