#pragma once

#include "HttpServer.h"
#include "MemoryBudget.h"

#include <cstddef>
#include <functional>
#include <memory>
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
    /// @param budget of all bodies and answers that are held
    explicit Exchange(std::shared_ptr<MemoryBudget> budget);

    /// Counts what the body takes. False, with nothing changed, if that is more than can be had. Input and
    /// output thread, before there is an answer.
    [[nodiscard]] bool holdBody(std::size_t size);

    /// Leaves the answer, which counts instead of the body from now on, and wakes the connection when it
    /// sleeps. Only the first answer counts. Any thread.
    void answer(HttpResponse response);
    /// Answers in the place of somebody who has let the answer fall. Any thread.
    void letFall() noexcept;

    /// The answer when it is there. Input and output thread.
    [[nodiscard]] std::optional<HttpResponse> take();
    /// As `take`, but puts the connection to sleep if there is none.
    [[nodiscard]] std::optional<HttpResponse> takeOrSleep(MHD_Connection* connection);
    /// The answer is not held any more. Input and output thread.
    void release();

    /// Has the function called, once, when the client leaves before the answer; at once if it has left
    /// already. Any thread.
    void whenClientLeaves(std::function<void()> function);
    /// The client has left, or at least will send nothing more. Any thread.
    void clientHasLeft();
    /// Whether that was called. Any thread.
    [[nodiscard]] bool hasClientLeft() const;

  private:
    void answerLocked(HttpResponse response);

    const std::shared_ptr<MemoryBudget> m_budget;
    mutable std::mutex m_mutex;
    MemoryBudget::Share m_held;
    bool m_isAnswered = false;
    bool m_hasLeft = false;
    std::optional<HttpResponse> m_response;
    std::function<void()> m_whenClientLeaves;
    MHD_Connection* m_sleeping = nullptr;
};

} // namespace zyr_gateway
