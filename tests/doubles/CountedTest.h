#pragma once

#include "AllocationCounter.h"

#include <gtest/gtest.h>

namespace zyr_test
{

/// A fixture whose tests are skipped where allocations can't be counted.
template <class Fixture>
class CountedTest : public Fixture
{
  protected:
    void SetUp() override
    {
        Fixture::SetUp();
        if (!AllocationCounter::canCount()) {
            GTEST_SKIP() << "allocations can't be counted here: operator new is another's";
        }
    }
};

} // namespace zyr_test
