#pragma once

#include "IDspApi.h"
#include "SimulatedCollaborator.h"
#include "SimulatedDspAcmApi.h"
#include "SimulatedDspChannelApi.h"
#include "SimulatedDspControlApi.h"
#include "SimulatedDspStatusApi.h"

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kDspApiOperations{"IDspApi"};

/// The modem DSP of a channel. Its parts are there at all times, also during a recovery.
class SimulatedDspApi final : public SimulatedCollaborator<IDspApi, kDspApiOperations>
{
  public:
    SimulatedDspApi(NodeState& node, unsigned channel)
        : SimulatedCollaborator(node, channel), m_channel(node, channel), m_status(node, channel),
          m_control(node, channel), m_acm(node, channel)
    {}

    IDspChannelApi* getDspChannelApi() override { return &m_channel; }
    IDspStatusApi* getDspStatusApi() override { return &m_status; }
    IDspControlApi* getDspControlApi() override { return &m_control; }
    IDspAcmApi* getAcmApi() override { return &m_acm; }

  private:
    SimulatedDspChannelApi m_channel;
    SimulatedDspStatusApi m_status;
    SimulatedDspControlApi m_control;
    SimulatedDspAcmApi m_acm;
};

} // namespace zyr_simulation
