#pragma once

#include "Failure.h"

#include <gtest/gtest.h>

#include <string>

namespace zyr_ctl::test
{

/// The text with which something is refused as wrong usage.
template <class Action>
std::string refusalOf(Action action)
{
    try {
        action();
    } catch (const Failure& failure) {
        EXPECT_EQ(static_cast<int>(failure.status()), 2);
        return failure.what();
    }
    ADD_FAILURE() << "it was not refused";
    return {};
}

} // namespace zyr_ctl::test
