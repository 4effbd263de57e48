#pragma once

#include "Failure.h"

#include <gtest/gtest.h>

#include <string>

namespace zyr_ctl::test
{

/// The text with which something is refused.
template <class Action>
std::string refusalOf(Action action, ExitStatus expected = ExitStatus::Usage)
{
    try {
        action();
    } catch (const Failure& failure) {
        EXPECT_EQ(static_cast<int>(failure.status()), static_cast<int>(expected));
        return failure.what();
    }
    ADD_FAILURE() << "it was not refused";
    return {};
}

} // namespace zyr_ctl::test
