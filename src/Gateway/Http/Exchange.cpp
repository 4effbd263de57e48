#include "Exchange.h"

#include <microhttpd.h>

#include <utility>

namespace zyr_gateway
{

void Exchange::answer(HttpResponse response)
{
    const std::lock_guard lock(m_mutex);
    if (m_answered) {
        return;
    }
    m_answered = true;
    m_response = std::move(response);
    if (m_sleeping != nullptr) {
        // Under the lock: once answered, the connection may end, and a stop may follow, at any time.
        MHD_resume_connection(std::exchange(m_sleeping, nullptr));
    }
}

std::optional<HttpResponse> Exchange::takeOrSleep(MHD_Connection* connection)
{
    const std::lock_guard lock(m_mutex);
    if (!m_answered) {
        MHD_suspend_connection(connection);
        m_sleeping = connection;
        return std::nullopt;
    }
    return std::exchange(m_response, std::nullopt);
}

} // namespace zyr_gateway
