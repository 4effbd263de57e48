#include "Exchange.h"

#include "RequestHead.h"

#include <microhttpd.h>

#include <new>
#include <utility>

namespace zyr_gateway
{

Exchange::Exchange(std::shared_ptr<MemoryBudget> budget) : m_budget(std::move(budget)), m_held(*m_budget) {}

bool Exchange::holdBody(std::size_t size)
{
    const std::lock_guard lock(m_mutex);
    return m_held.set(size);
}

void Exchange::answer(HttpResponse response)
{
    const std::lock_guard lock(m_mutex);
    if (!m_isAnswered) {
        answerLocked(std::move(response));
    }
}

void Exchange::letFall() noexcept
{
    const std::lock_guard lock(m_mutex);
    if (m_isAnswered) {
        return;
    }
    try {
        answerLocked(plainResponse(500, "The request was not answered."));
    } catch (const std::bad_alloc&) {
        answerLocked({.status = 503, .contentType = "text/plain", .body = {}});
    }
}

void Exchange::answerLocked(HttpResponse response)
{
    m_held.set(0);
    if (!m_held.set(response.body.size())) {
        response = tooMuchInWork();
    }
    m_isAnswered = true;
    m_response = std::move(response);
    m_whenClientLeaves = nullptr;
    if (m_sleeping != nullptr) {
        // Under the lock: once answered, the connection may end, and a stop may follow, at any time.
        MHD_resume_connection(std::exchange(m_sleeping, nullptr));
    }
}

std::optional<HttpResponse> Exchange::take()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_response, std::nullopt);
}

std::optional<HttpResponse> Exchange::takeOrSleep(MHD_Connection* connection)
{
    const std::lock_guard lock(m_mutex);
    if (!m_isAnswered) {
        MHD_suspend_connection(connection);
        m_sleeping = connection;
        return std::nullopt;
    }
    return std::exchange(m_response, std::nullopt);
}

void Exchange::release()
{
    const std::lock_guard lock(m_mutex);
    m_held.set(0);
}

void Exchange::whenClientLeaves(std::function<void()> function)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_isAnswered) {
            return;
        }
        if (!m_hasLeft) {
            m_whenClientLeaves = std::move(function);
            return;
        }
    }
    function();
}

void Exchange::clientHasLeft()
{
    std::function<void()> function;
    {
        const std::lock_guard lock(m_mutex);
        m_hasLeft = true;
        function = std::exchange(m_whenClientLeaves, nullptr);
    }
    if (function) {
        function();
    }
}

bool Exchange::hasClientLeft() const
{
    const std::lock_guard lock(m_mutex);
    return m_hasLeft;
}

} // namespace zyr_gateway
