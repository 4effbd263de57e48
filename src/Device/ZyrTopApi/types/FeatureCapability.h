#pragma once

namespace zyr_top_api
{

/// What a radio can do.
struct FeatureCapability
{
    bool RfLoopAvailable = false;
    bool CarrierAggregationCapable = false;
    bool SpaceDiversityCombinerCapable = false;
    bool LongHaulBoosterCapable = false;
    bool PathLatencyCapable = false;
    bool Is2T2R = false; ///< Two transmitters and two receivers in one unit.
};

} // namespace zyr_top_api
