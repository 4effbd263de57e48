#pragma once

#include "FaultInjector.h"
#include "NodeSnapshot.h"
#include "ValueType.h"

#include <span>
#include <vector>

namespace zyr_node
{

/// What "SIM.GetState" answers.
struct NodeReport
{
    unsigned hangingLongPolls = 0;
    std::vector<zyr_simulation::ChannelState> channels;
    std::vector<zyr_simulation::Interferer> interferers;
    std::vector<zyr_top_api::AlarmEvent> alarms;
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
