#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace zyr_top_api
{

/// One receive path of a `RauLatencyRequest`: twelve bytes.
struct RauLatencyGroup
{
    std::int32_t value = 0;      ///< The path's latency, 0 if it isn't given.
    std::uint8_t hasValue = 0;   ///< 1 if `value` is given.
    std::uint8_t secondFlag = 1; ///< Always 1, also in groups that are never filled.
    std::array<std::uint8_t, 6> reserved = {};
};

/// The latencies of the receive paths as the calculator takes them.
///
/// The calculator is built apart from this library and takes the record by value, so that its layout is fixed
/// to the byte. Groups 1, 3 and 4 are never filled.
struct RauLatencyRequest
{
    std::array<std::uint8_t, 8> reserved = {};
    RauLatencyGroup group1;
    RauLatencyGroup group2; ///< XPIC slave.
    RauLatencyGroup group3;
    RauLatencyGroup group4;
    RauLatencyGroup group5; ///< MIMO spatial.
    RauLatencyGroup group6; ///< MIMO spatial slave.
};

// With pointers of either size.
static_assert(std::is_trivially_copyable_v<RauLatencyGroup> && std::is_standard_layout_v<RauLatencyGroup>);
static_assert(sizeof(RauLatencyGroup) == 12);
static_assert(alignof(RauLatencyGroup) == 4);
static_assert(offsetof(RauLatencyGroup, value) == 0);
static_assert(offsetof(RauLatencyGroup, hasValue) == 4);
static_assert(offsetof(RauLatencyGroup, secondFlag) == 5);
static_assert(offsetof(RauLatencyGroup, reserved) == 6);
static_assert(std::is_trivially_copyable_v<RauLatencyRequest> &&
              std::is_standard_layout_v<RauLatencyRequest>);
static_assert(sizeof(RauLatencyRequest) == 80);
static_assert(alignof(RauLatencyRequest) == 4);
static_assert(offsetof(RauLatencyRequest, reserved) == 0);
static_assert(offsetof(RauLatencyRequest, group1) == 8);
static_assert(offsetof(RauLatencyRequest, group2) == 20);
static_assert(offsetof(RauLatencyRequest, group3) == 32);
static_assert(offsetof(RauLatencyRequest, group4) == 44);
static_assert(offsetof(RauLatencyRequest, group5) == 56);
static_assert(offsetof(RauLatencyRequest, group6) == 68);

} // namespace zyr_top_api
