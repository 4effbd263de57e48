#pragma once

#include "BaseResponse.h"

#include <gtest/gtest.h>

#include <compare>
#include <mutex>
#include <set>
#include <string>

namespace zyr_test
{

/// A fault that a test has seen.
struct ToldFault
{
    std::string testFile;  ///< where the test stands
    std::string testSuite; ///< with the name of the instantiation in front, if the test has parameters
    zyr_top_api::ETIResult result;
    std::string text;

    std::strong_ordering operator<=>(const ToldFault&) const = default;
};

/// All faults of all tests of a run: `CommandTest` adds each response that a test tells. From any thread.
class ToldFaults
{
  public:
    static ToldFaults& get()
    {
        static ToldFaults faults;
        return faults;
    }

    /// Adds the response's fault, if it has one, to those of the running test.
    void add(const zyr_top_api::BaseResponse& response)
    {
        const ::testing::TestInfo* const test = ::testing::UnitTest::GetInstance()->current_test_info();
        if (test != nullptr && !zyr_top_api::isFaultless(response)) {
            const std::lock_guard lock(m_mutex);
            m_faults.insert({test->file(), test->test_suite_name(), response.tiResult, response.faultString});
        }
    }

    std::set<ToldFault> all() const
    {
        const std::lock_guard lock(m_mutex);
        return m_faults;
    }

  private:
    mutable std::mutex m_mutex;
    std::set<ToldFault> m_faults;
};

} // namespace zyr_test
