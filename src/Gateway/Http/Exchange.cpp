#include "Exchange.h"

#include <microhttpd.h>
#include <utility>

namespace zyr_gateway
{

void Exchange::answer(HttpResponse response)
{
    const std::lock_guard lock(mutex_);
    if (answered_) {
        return;
    }
    answered_ = true;
    response_ = std::move(response);
    if (sleeping_ != nullptr) {
        // Under the lock: once answered, the connection may end, and a stop may follow, at any time.
        MHD_resume_connection(std::exchange(sleeping_, nullptr));
    }
}

std::optional<HttpResponse> Exchange::takeOrSleep(MHD_Connection* connection)
{
    const std::lock_guard lock(mutex_);
    if (!answered_) {
        MHD_suspend_connection(connection);
        sleeping_ = connection;
        return std::nullopt;
    }
    return std::exchange(response_, std::nullopt);
}

} // namespace zyr_gateway
