#include "ServiceInForce.h"

#include "HostDeviceFactory.h"
#include "HostSystemTime.h"
#include "SystemClock.h"

#include <chrono>
#include <thread>

namespace
{

class HostSleeper : public Util::DefaultSleepApi
{
  public:
    void sleep(std::uint32_t milliSec) override
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliSec));
    }
};

class HostClock : public Util::SteadyClockApi
{
  public:
    std::chrono::nanoseconds now() override { return std::chrono::steady_clock::now().time_since_epoch(); }
};

template <class Service>
constinit std::atomic<Service*> replacing{nullptr};

// The host's own services are never destroyed: a thread that still runs at the end of the process may be in
// one.
template <class Service, class Host>
Service& replacingOrHost()
{
    if (Service* const service = replacing<Service>.load()) {
        return *service;
    }
    static auto* const host = new Host;
    return *host;
}

} // namespace

namespace zyr_platform
{

template <>
std::atomic<Util::DefaultSleepApi*>& serviceInForce<Util::DefaultSleepApi>()
{
    return replacing<Util::DefaultSleepApi>;
}

template <>
std::atomic<Util::SteadyClockApi*>& serviceInForce<Util::SteadyClockApi>()
{
    return replacing<Util::SteadyClockApi>;
}

template <>
std::atomic<Util::SystemTimeApi*>& serviceInForce<Util::SystemTimeApi>()
{
    return replacing<Util::SystemTimeApi>;
}

template <>
std::atomic<DDevIo::Factory*>& serviceInForce<DDevIo::Factory>()
{
    return replacing<DDevIo::Factory>;
}

} // namespace zyr_platform

Util::DefaultSleepApi& Util::DefaultSleepApi::get()
{
    return replacingOrHost<DefaultSleepApi, HostSleeper>();
}

Util::SteadyClockApi& Util::SteadyClockApi::get()
{
    return replacingOrHost<SteadyClockApi, HostClock>();
}

Util::SystemTimeApi& Util::SystemTimeApi::get()
{
    return replacingOrHost<SystemTimeApi, zyr_platform::HostSystemTime>();
}

DDevIo::Factory& DDevIo::Factory::getInstance()
{
    return replacingOrHost<Factory, zyr_platform::HostDeviceFactory>();
}
