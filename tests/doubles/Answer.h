#pragma once

#include "Disturbance.h"

#include <concepts>
#include <functional>
#include <mutex>
#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace zyr_test
{

/// What an operation of a double answers: a result and its out-arguments. At first that is the result 0 and
/// zeroed out-arguments. A test sets it anew,
///
/// - the result alone, by which out-arguments are left as they are: `handler.onEnableAcm = 0x8000`
/// - the result and the out-arguments: `handler.onGetPhyMode = {eACMH_S_OK, 7U}`
/// - one a call, of which the last one stays: `controller.onGetStatus.inTurn({2, 3})`
/// - anything else: `handler.onGetAlarms.doInstead([](auto& alarms) { ... })`
///
/// From any thread.
template <class Result, class... Outs>
class Answer
{
  public:
    class Reply
    {
      public:
        Reply(Result result) : m_result(std::move(result)) {}
        Reply(Result result, Outs... outs) requires(sizeof...(Outs) > 0)
            : m_result(std::move(result)), m_outs(std::in_place, std::move(outs)...)
        {}

        /// Any number as a result code.
        template <std::integral Number>
        requires std::is_enum_v<Result> Reply(Number number) : m_result(static_cast<Result>(number)) {}
        template <std::integral Number>
        requires(std::is_enum_v<Result> && sizeof...(Outs) > 0) Reply(Number number, Outs... outs)
            : Reply(static_cast<Result>(number), std::move(outs)...)
        {}

      private:
        friend class Answer;
        Result m_result;
        std::optional<std::tuple<Outs...>> m_outs;
    };

    Answer() : Answer(Reply(Result{}, Outs{}...)) {}
    Answer(Reply reply) { m_replies.push_back(std::move(reply)); }

    Answer& operator=(Reply reply)
    {
        inTurn({std::move(reply)});
        return *this;
    }

    void inTurn(std::vector<Reply> replies)
    {
        const std::lock_guard lock(m_mutex);
        m_replies = std::move(replies);
        m_next = 0;
        m_function = nullptr;
    }

    /// The function gets the out-arguments and gives the result. It is called without a lock.
    void doInstead(std::function<Result(Outs&...)> function)
    {
        const std::lock_guard lock(m_mutex);
        m_function = std::move(function);
    }

    /// For the double: answers one call.
    Result next(Outs&... outs)
    {
        Result result = asSet(outs...);
        if (Disturbance* const disturbance = Disturbance::inForce()) {
            disturbance->disturb(result);
            (disturbance->disturb(outs), ...);
        }
        return result;
    }

  private:
    Result asSet(Outs&... outs)
    {
        std::unique_lock lock(m_mutex);
        if (m_function) {
            const auto function = m_function;
            lock.unlock();
            return function(outs...);
        }
        const Reply& reply = m_replies[m_next];
        if (m_next + 1 < m_replies.size()) {
            ++m_next;
        }
        if (reply.m_outs.has_value()) {
            std::tie(outs...) = *reply.m_outs;
        }
        return reply.m_result;
    }

    std::mutex m_mutex;
    std::vector<Reply> m_replies;
    std::size_t m_next = 0;
    std::function<Result(Outs&...)> m_function;
};

} // namespace zyr_test
