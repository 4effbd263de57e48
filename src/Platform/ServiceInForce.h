#pragma once

#include "DDevIo.h"
#include "DefaultSleepApi.h"
#include "Export.h"
#include "SteadyClockApi.h"

#include <atomic>

namespace zyr_platform
{

/// Where a replaceable service stands: null while the host's own one is in force. There is one for the
/// sleeper, the steady clock, the device factory and the wall clock (SystemClock.h).
template <class Service>
std::atomic<Service*>& serviceInForce();

template <>
ZYR_EXPORT std::atomic<Util::DefaultSleepApi*>& serviceInForce<Util::DefaultSleepApi>();
template <>
ZYR_EXPORT std::atomic<Util::SteadyClockApi*>& serviceInForce<Util::SteadyClockApi>();
template <>
ZYR_EXPORT std::atomic<DDevIo::Factory*>& serviceInForce<DDevIo::Factory>();

/// Puts a service in force as long as this lives, and then the one that was in force before.
///
/// Replacements are nested like blocks. The replacing service must outlive every call of it; the owner of the
/// process replaces services while no command runs.
template <class Service>
class [[nodiscard]] Replacement
{
  public:
    explicit Replacement(Service& service) : m_previous(serviceInForce<Service>().exchange(&service)) {}
    ~Replacement() { serviceInForce<Service>().store(m_previous); }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

  private:
    Service* m_previous;
};

} // namespace zyr_platform
