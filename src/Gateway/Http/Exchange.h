#pragma once

#include "HttpServer.h"

#include <mutex>
#include <optional>

struct MHD_Connection;

namespace zyr_gateway
{

/// One request and its answer, shared between the connection and whoever answers.
///
/// The connection sleeps while the answer is due. The side that comes second finds what the first has left.
class Exchange
{
  public:
    /// Leaves the answer and wakes the connection when it sleeps. Only the first answer counts. Any thread.
    void answer(HttpResponse response);

    /// The answer when it is there, otherwise puts the connection to sleep. Input and output thread.
    [[nodiscard]] std::optional<HttpResponse> takeOrSleep(MHD_Connection* connection);

  private:
    std::mutex m_mutex;
    bool m_answered = false;
    std::optional<HttpResponse> m_response;
    MHD_Connection* m_sleeping = nullptr;
};

} // namespace zyr_gateway
