#include "SimulatedAtpcController.h"

/// Stands for the input of power control; it is known by its address alone.
class ISpcSimulatedObject
{};

namespace zyr_simulation
{

SimulatedAtpcController::SimulatedAtpcController(NodeState& node, unsigned channel)
    : SimulatedCollaborator(node, channel), m_object(std::make_unique<ISpcSimulatedObject>())
{}

SimulatedAtpcController::~SimulatedAtpcController() = default;

std::int32_t SimulatedAtpcController::getTargetInputPower()
{
    return read([&] { return channel().transmitter.farEndTarget; });
}

ISpcSimulatedObject* SimulatedAtpcController::getSimulatedObject()
{
    return m_object.get();
}

void SimulatedAtpcController::release(ISpcSimulatedObject* object)
{
    locked([&] {
        auto& simulation = channel().spcSimulation;
        simulation.isObjectSimulated = simulation.isObjectSimulated && object != m_object.get();
    });
}

void SimulatedAtpcController::setGain(unsigned kind, double value)
{
    locked([&] { channel().spcSimulation.atpcGains[kind] = value; });
}

double SimulatedAtpcController::getGain(unsigned kind)
{
    return read([&] { return channel().spcSimulation.atpcGains[kind]; });
}

} // namespace zyr_simulation
