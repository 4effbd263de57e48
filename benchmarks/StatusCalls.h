#pragma once

/// "CRI.GetRadioChannelStatus" on a simulated node, so many times: dispatched, or only the calls that it
/// makes on its collaborators, in its order.
namespace benchmark_status
{

void dispatched(long calls);
void collaboratorsAlone(long calls);

} // namespace benchmark_status
