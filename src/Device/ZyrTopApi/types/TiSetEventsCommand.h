#pragma once

namespace zyr_top_api
{

/// The request of `TiSetEvents`. It is handed over whole to the alarm handler, which alone reads it; nothing
/// on this side has fields to fill.
struct TiSetEventsCommand
{};

} // namespace zyr_top_api
