#include "TiManageSpcImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "TextWriter.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiManageSpc::identity.traceChannel, 3, TylTraceHdrOption_Default};

// How the collaborators number sweeps, loops and kinds of gains.
constexpr unsigned kSweepUp = 0;
constexpr unsigned kSweepDown = 1;
constexpr unsigned kSweepStop = 2;
constexpr int kNoLevel = -100000;
constexpr unsigned kClosedLoop = 0;
constexpr unsigned kOpenLoop = 1;
constexpr unsigned kAtpcAif3 = 3;
constexpr unsigned kTxRamping = 5;
constexpr unsigned kTxOn = 6;

// Gains are stored in hundredths.
constexpr double kStoredPerUnit = 100.0;

// The simulator's step for a rate.
double stepOf(std::int32_t rate)
{
    return rate * 100.0 / 166.66666666666666;
}

} // namespace

std::string TiManageSpc::Response::printResponse() const
{
    return printed(*this);
}

void TiManageSpc::Response::print(TextWriter& writer) const
{
    switch (Action) {
    case Action::OpcGainOpenLoop:
        writer << "OpcTxOnGainOpenLoop: " << OpcTxOnGainOpenLoop
               << ", OpcTxRampingGainOpenLoop: " << OpcTxRampingGainOpenLoop;
        break;
    case Action::OpcGainClosedLoop:
        writer << "OpcTxOnGainClosedLoop: " << OpcTxOnGainClosedLoop
               << ", OpcTxRampingGainClosedLoop: " << OpcTxRampingGainClosedLoop;
        break;
    case Action::AtpcGain:
        writer << "AtpcAif3Gain: " << AtpcAif3Gain;
        break;
    default:
        writer << "StandardResponse OK"; // sic: on a failure too
        break;
    }
}

ETIResult TiManageSpcImpl::initialize(unsigned numberOfChannels)
{
    constexpr MissingText kMissing = textAndName("Could not find ");
    return initialise(
        trace, family::classGuarded(SecondCallRule::Guard::AfterRange, "TiManageSpcImpl already initialized"),
        numberOfChannels, m_numberOfChannels,
        {
            perChannel("IOutputPowerController", m_outputPowerController, kMissing),
            perChannel("ISpcSimulator", m_spcSimulator, kMissing),
            perChannel("IAtpcController", m_atpcController, kMissing),
        });
}

TiManageSpc::Response TiManageSpcImpl::execute(const Command& command)
{
    logEnter(trace);
    Response response;
    response.Action = command.Action;
    if (m_numberOfChannels == 0) {
        setResult(response, eTI_E_FAILED, "TiManageSpcImpl has not been initialized");
        return response;
    }
    switch (command.Action) {
    case Action::StartSweepUp:
    case Action::StartSweepDown:
        startSweep(command, response);
        break;
    case Action::StopSweep:
        stopSweep(command);
        break;
    case Action::AtpcGain:
        manageAtpcGain(command, response);
        break;
    case Action::OpcGainOpenLoop:
        manageOpenLoopGains(command, response);
        break;
    case Action::OpcGainClosedLoop:
        manageClosedLoopGains(command, response);
        break;
    }
    return response;
}

void TiManageSpcImpl::startSweep(const Command& command, Response& response)
{
    if (!command.Min.hasValue() || !command.Max.hasValue() || !command.Rate.hasValue()) {
        fail(response, trace, failureText("Min, Max or Rate option missing for ", command.RadioChannelID),
             eTI_E_FAILED, within("execute"));
        return;
    }
    const std::int32_t min = command.Min.value();
    const std::int32_t max = command.Max.value();
    if (max < min) {
        // sic: two blanks
        fail(response, trace, failureText("Max < Min  for ", command.RadioChannelID), eTI_E_FAILED,
             within("execute"));
        return;
    }
    ISpcSimulator& simulator = m_spcSimulator[command.RadioChannelID];
    const double step = stepOf(command.Rate.value());
    if (command.Action == Action::StartSweepDown) {
        simulator.simulate(kSweepDown, min, max, max, step); // sic: the object isn't handed over
        return;
    }
    simulator.simulate(kSweepUp, min, max, min, step);
    simulator.setSimulated(m_atpcController[command.RadioChannelID].getSimulatedObject(), true);
}

void TiManageSpcImpl::stopSweep(const Command& command)
{
    ISpcSimulator& simulator = m_spcSimulator[command.RadioChannelID];
    simulator.simulate(kSweepStop, kNoLevel, kNoLevel, kNoLevel, kNoLevel);
    if (simulator.isSimulating()) {
        ISpcSimulatedObject* const object = simulator.getSimulatedObject();
        m_atpcController[command.RadioChannelID].release(object);
        simulator.setSimulated(object, false);
    }
}

void TiManageSpcImpl::manageAtpcGain(const Command& command, Response& response)
{
    IAtpcController& atpcController = m_atpcController[command.RadioChannelID];
    if (command.AtpcAif3Gain.hasValue()) {
        atpcController.setGain(kAtpcAif3, command.AtpcAif3Gain.value() * kStoredPerUnit);
    }
    response.AtpcAif3Gain = atpcController.getGain(kAtpcAif3); // sic: not divided, unlike the gains below
}

void TiManageSpcImpl::manageOpenLoopGains(const Command& command, Response& response)
{
    IOutputPowerController& controller = m_outputPowerController[command.RadioChannelID];
    if (command.OpcTxRampingGain.hasValue()) {
        controller.setGain(kOpenLoop, kTxRamping, command.OpcTxRampingGain.value() * kStoredPerUnit);
    }
    if (command.OpcTxOnGain.hasValue()) {
        controller.setGain(kOpenLoop, kTxOn, command.OpcTxOnGain.value() * kStoredPerUnit);
    }
    response.OpcTxOnGainOpenLoop = controller.getGain(kOpenLoop, kTxOn) / kStoredPerUnit;
    response.OpcTxRampingGainOpenLoop = controller.getGain(kOpenLoop, kTxRamping) / kStoredPerUnit;
}

void TiManageSpcImpl::manageClosedLoopGains(const Command& command, Response& response)
{
    IOutputPowerController& controller = m_outputPowerController[command.RadioChannelID];
    if (command.OpcTxRampingGain.hasValue()) {
        controller.setGain(kClosedLoop, kTxRamping, command.OpcTxRampingGain.value() * kStoredPerUnit);
    }
    if (command.OpcTxOnGain.hasValue()) {
        // sic: the kind of the ramping gain here too
        controller.setGain(kClosedLoop, kTxRamping, command.OpcTxOnGain.value() * kStoredPerUnit);
    }
    response.OpcTxOnGainClosedLoop = controller.getGain(kClosedLoop, kTxOn) / kStoredPerUnit;
    response.OpcTxRampingGainClosedLoop = controller.getGain(kClosedLoop, kTxRamping) / kStoredPerUnit;
}

} // namespace zyr_top_api
