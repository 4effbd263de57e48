#include "PasswordChecker.h"

#include <utility>

namespace zyr_gateway
{

namespace
{

/// Enough for a burst of new clients, few enough that the last of them is answered within seconds.
constexpr std::size_t maxWaiting = 64;

} // namespace

PasswordChecker::PasswordChecker() : thread_([this] { run(); }) {}

PasswordChecker::~PasswordChecker()
{
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_one();
    thread_.join();
}

bool PasswordChecker::submit(std::function<void()> check)
{
    {
        const std::lock_guard lock(mutex_);
        if (waiting_.size() >= maxWaiting) {
            return false;
        }
        waiting_.push_back(std::move(check));
    }
    changed_.notify_one();
    return true;
}

void PasswordChecker::run()
{
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return ending_ || !waiting_.empty(); });
        if (ending_) {
            return;
        }
        const std::function<void()> check = std::move(waiting_.front());
        waiting_.pop_front();
        lock.unlock();
        check();
        lock.lock();
    }
}

} // namespace zyr_gateway
