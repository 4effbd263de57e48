#pragma once

#include <gtest/gtest.h>

/// Calls a command of a node with two channels, past the dispatcher. It has to succeed.
template <class XImpl>
typename XImpl::Response direct(const typename XImpl::Command& command)
{
    XImpl impl;
    EXPECT_EQ(impl.initialize(2), 0U);
    auto response = impl.execute(command);
    EXPECT_EQ(response.faultString, "");
    return response;
}
