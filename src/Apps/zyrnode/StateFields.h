#pragma once

#include "AlarmEvent.h"
#include "FaultInjector.h"
#include "NodeSnapshot.h"
#include "RouteType.h"
#include "ValueType.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace zyr_node
{

/// A route of the node.
struct RouteReport
{
    zyr_top_api::RouteType type{};
    unsigned channel = 0;
    unsigned destination = 0;
};

/// An alarm with its time.
struct AlarmReport : zyr_top_api::AlarmEvent
{
    std::string changedAt; ///< When it was raised or cleared last, on the node's clock.
};

/// What "SIM.GetState" answers. Times have the form of "TI.ManageRealTimeClock".
struct NodeReport
{
    unsigned hangingLongPolls = 0;
    std::string systemTime;
    std::string hardwareTime; ///< Empty with the host's clocks.
    std::uint32_t hopLengthTime_ns = 0;
    bool isDspRecovering = false;
    unsigned dspRecoveries = 0;
    std::vector<zyr_simulation::ChannelState> channels;
    std::vector<RouteReport> routes;
    std::vector<zyr_simulation::Interferer> interferers;
    std::vector<AlarmReport> alarms;
    std::vector<zyr_simulation::Fault> faults;
};

/// The fields of a `NodeReport`.
std::span<const zyr_registration::Field> reportFields();

/// What "SIM.ListFaults" answers.
struct FaultList
{
    std::vector<zyr_simulation::Fault> faults;
};

/// The fields of a `FaultList`.
std::span<const zyr_registration::Field> faultListFields();

/// The fields of an interferer.
std::span<const zyr_registration::Field> interfererFields();

/// The fields of an order to fail.
std::span<const zyr_registration::Field> faultFields();

} // namespace zyr_node
