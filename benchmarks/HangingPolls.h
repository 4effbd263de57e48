#pragma once

#include "CiGetFastEventsImpl.h"
#include "CmdWrapper.h"
#include "IAlarmHandlerTopApi.h"
#include "Publication.h"
#include "ZyrApiHandler.h"

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace benchmark_table
{

/// Long polls that hang in the dispatcher as long as this lives. The command table must have been filled;
/// their command takes the place that its name has there.
class HangingPolls
{
  public:
    explicit HangingPolls(std::size_t count)
    {
        auto wrapper = std::make_shared<zyr_top_api::CmdWrapper<zyr_top_api::CiGetFastEventsImpl>>(
            std::string(zyr_top_api::CiGetFastEvents::identity.wireName));
        wrapper->impl().initialize(1);
        auto& table = zyr_top_api::ZyrApiHandler::m_cmds;
        *std::ranges::find(table, wrapper->name(), [](const auto& entry) { return entry->name(); }) = wrapper;
        for (std::size_t poll = 0; poll < count; ++poll) {
            m_threads.emplace_back([] { zyr_top_api::ciGetFastEvents({}); });
        }
        m_alarms.waitUntilHang(count);
    }
    ~HangingPolls()
    {
        m_alarms.releaseFastAlarmRequests();
        for (std::thread& thread : m_threads) {
            thread.join();
        }
    }
    HangingPolls(const HangingPolls&) = delete;
    HangingPolls& operator=(const HangingPolls&) = delete;

  private:
    class Alarms final : public IAlarmHandlerTopApi
    {
      public:
        using Events = std::vector<zyr_top_api::AlarmEvent>;

        ResultCode getAlarms(Events& /*alarms*/) override { return 0; }
        ResultCode getAlarmsByOption(std::int32_t /*option*/, Events& /*alarms*/) override { return 0; }
        ResultCode setAlarmEvents(const zyr_top_api::TiSetEventsCommand& /*command*/) override { return 0; }

        ResultCode getFastAlarms(Events& /*alarms*/) override
        {
            std::unique_lock lock(m_mutex);
            ++m_hanging;
            m_changed.notify_all();
            m_changed.wait(lock, [this] { return m_isReleased; });
            return 0;
        }

        ResultCode releaseFastAlarmRequests() override
        {
            const std::lock_guard guard(m_mutex);
            m_isReleased = true;
            m_changed.notify_all();
            return 0;
        }

        void waitUntilHang(std::size_t count)
        {
            std::unique_lock lock(m_mutex);
            m_changed.wait(lock, [&] { return m_hanging == count; });
        }

      private:
        std::mutex m_mutex;
        std::condition_variable m_changed;
        std::size_t m_hanging = 0;
        bool m_isReleased = false;
    };

    Alarms m_alarms;
    zyr_platform::Publication m_publication{"IAlarmHandlerTopApi", m_alarms};
    std::vector<std::thread> m_threads;
};

} // namespace benchmark_table
