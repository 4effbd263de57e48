#pragma once

#include <atomic>
#include <cstddef>

namespace zyr_gateway
{

/// Counts the bytes of all that is held, and refuses what would be too much. Any thread.
class MemoryBudget
{
  public:
    explicit MemoryBudget(std::size_t limit) : m_limit(limit) {}

    /// What is held now.
    [[nodiscard]] std::size_t held() const { return m_held.load(std::memory_order_relaxed); }

    /// Whether much was held since this was last true, and hardly anything is now.
    bool isBurstOver()
    {
        constexpr std::size_t hardlyAnything = 64UL * 1024UL;
        return m_isBurst.load(std::memory_order_relaxed) && held() < hardlyAnything &&
               m_isBurst.exchange(false);
    }

    /// Bytes held by somebody, given back with the object.
    class Share
    {
      public:
        explicit Share(MemoryBudget& budget) : m_budget(&budget) {}
        ~Share() { set(0); }
        Share(const Share&) = delete;
        Share& operator=(const Share&) = delete;

        /// Holds so many bytes from now on. False, with nothing changed, if that is more than can be had.
        bool set(std::size_t size)
        {
            if (size > m_size && !m_budget->take(size - m_size)) {
                return false;
            }
            if (size < m_size) {
                m_budget->m_held.fetch_sub(m_size - size, std::memory_order_relaxed);
            }
            m_size = size;
            return true;
        }

      private:
        MemoryBudget* m_budget;
        std::size_t m_size = 0;
    };

  private:
    bool take(std::size_t size)
    {
        constexpr std::size_t much = 4UL * 1024UL * 1024UL;
        const std::size_t held = m_held.fetch_add(size, std::memory_order_relaxed) + size;
        if (held <= m_limit) {
            if (held > much) {
                m_isBurst.store(true, std::memory_order_relaxed);
            }
            return true;
        }
        m_held.fetch_sub(size, std::memory_order_relaxed);
        return false;
    }

    const std::size_t m_limit;
    std::atomic<std::size_t> m_held = 0;
    std::atomic<bool> m_isBurst = false;
};

} // namespace zyr_gateway
