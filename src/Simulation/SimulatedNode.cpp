#include "SimulatedNode.h"

#include "Drivers.h"
#include "Hop.h"
#include "Mimo.h"
#include "ModuleManager.h"
#include "SimulatedAcmHandler.h"
#include "SimulatedAtpcController.h"
#include "SimulatedBasebandSdcController.h"
#include "SimulatedCapabilityHandler.h"
#include "SimulatedCcdpController.h"
#include "SimulatedDspApi.h"
#include "SimulatedFrequencyController.h"
#include "SimulatedHardwareConfigurationHandler.h"
#include "SimulatedIfLoopDriver.h"
#include "SimulatedLoopController.h"
#include "SimulatedMimoController.h"
#include "SimulatedOutputPowerCalculator.h"
#include "SimulatedOutputPowerController.h"
#include "SimulatedOutputPowerHandler.h"
#include "SimulatedPpsController.h"
#include "SimulatedRadioCapability.h"
#include "SimulatedRauHandler.h"
#include "SimulatedRauLatencyCalculator.h"
#include "SimulatedRecoveryController.h"
#include "SimulatedRouteUpdater.h"
#include "SimulatedRssiHandler.h"
#include "SimulatedSpaceDiversityCombinerController.h"
#include "SimulatedSpcSimulator.h"
#include "SimulatedSpectrumDiagnosticsController.h"
#include "SimulatedSystemPowerController.h"
#include "SimulatedTapsController.h"
#include "SimulatedTapsControllerLog.h"
#include "SimulatedTxIQImbalanceHandler.h"
#include "SimulatedZyrRleHandler.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace zyr_simulation
{

namespace
{

/// The phase that closes a configuration: the module manager's group, and its name among the faults.
constexpr std::uint32_t kClosingGroup = 5;
constexpr std::string_view kClosingPhaseOwner = "CModuleManager";
constexpr std::array<std::string_view, 1> kClosingPhaseOperations{"RunGroup"};

/// The drivers of cross-polar cancelling, as they are called among the faults.
constexpr std::string_view kCableDriver = "XpicConnectedDriver";
constexpr std::string_view kTxEnableDriver = "XpicTxEnableDriver";
constexpr std::array<std::string_view, 2> kDriverOperations{"read", "write"};

/// @throws std::invalid_argument if the interferer can't be
void check(const Interferer& interferer)
{
    constexpr std::uint32_t greatestWidth_kHz = 1'000'000;
    constexpr std::int32_t greatestLevel_dBmTenths = 0;
    if (interferer.frequency_kHz == 0) {
        throw std::invalid_argument("an interferer has a frequency");
    }
    if (interferer.width_kHz == 0 || interferer.width_kHz > greatestWidth_kHz) {
        throw std::invalid_argument("an interferer is 1 to 1000000 kHz wide, not " +
                                    std::to_string(interferer.width_kHz));
    }
    if (interferer.level_dBmTenths < kNoLevel_dBmTenths ||
        interferer.level_dBmTenths > greatestLevel_dBmTenths) {
        throw std::invalid_argument("an interferer has a level of -990 to 0 tenths of a dBm, not " +
                                    std::to_string(interferer.level_dBmTenths));
    }
}

/// All orders to fail, those of people and those of test commands. Called with the mutex held.
std::vector<Fault> allFaults(const NodeState& node)
{
    std::vector<Fault> faults = node.faults.list();
    for (const auto& channel : node.channels) {
        const auto add = [&](const char* collaborator, const char* operation,
                             const InjectedFailure& failure) {
            if (failure.count > 0) {
                faults.push_back({collaborator, operation, channel.number, failure.code, failure.count});
            }
        };
        add("IDspControlApi", "all", channel.dsp.controlFailure);
        add("IDspStatusApi", "all", channel.dsp.statusFailure);
        add("IDspAcmApi", "enable", channel.dsp.acmEnableFailure);
        add("IDspChannelApi", "I2C", channel.dsp.i2cFailure);
        add("IDspAcmApi", "thresholds", channel.dsp.acmThresholdFailure);
    }
    return faults;
}

} // namespace

SimulatedNode::SimulatedNode(const SimulatedNodeOptions& options, zyr_platform::TimeSource& time)
    : m_state(std::make_shared<NodeState>(options, time))
{
    addCollaborators();
    addClosingPhase();
    m_hardwareVariables.emplace();
    if (!options.hostClock) {
        m_clocks.emplace(*m_state);
    }
    m_startUp.emplace(options.startUp);
}

SimulatedNode::~SimulatedNode()
{
    shutdown();
}

void SimulatedNode::addCollaborators()
{
    m_alarmHandler = &add<SimulatedAlarmHandler>("IAlarmHandlerTopApi");
    add<SimulatedHardwareConfigurationHandler>("IHardwareConfigurationHandler");
    add<SimulatedRecoveryController>("RecoveryController");
    add<SimulatedLoopController>("ILoopController");
    add<SimulatedRouteUpdater>("IRouteUpdater");
    // sic: one handler, with a full stop in its name
    add<SimulatedOutputPowerHandler>("IOutputPowerHandler.1", 1);
    for (const auto& channel : m_state->channels) {
        addChannel(channel.number);
        addDrivers(channel.number);
        m_state->faults.registerCollaborator(kMimoCalibration, std::array{kMimoCorrelation}, true);
    }
}

void SimulatedNode::addChannel(unsigned number)
{
    const auto name = [number](const char* base) { return IInterface::interfaceName(base, number); };
    add<SimulatedAcmHandler>(name("IAcmHandler"), number);
    add<SimulatedDspApi>(name("IDspApi"), number);
    add<SimulatedSystemPowerController>(name("ISystemPowerController"), number);
    add<SimulatedOutputPowerController>(name("IOutputPowerController"), number);
    add<SimulatedOutputPowerCalculator>(name("IOutputPowerCalculator"), number);
    add<SimulatedTapsController>(name("ITapsController"), number);
    add<SimulatedFrequencyController>(name("IFrequencyController"), number);
    add<SimulatedTxIQImbalanceHandler>(name("ITxIQImbalanceHandler"), number);
    add<SimulatedRssiHandler>(name("IRssiHandler"), number);
    add<SimulatedCapabilityHandler>(name("ICapabilityHandler"), number);
    add<SimulatedRadioCapability>(name("IRadioCapability"), number);
    add<SimulatedCcdpController>(name("ICcdpController"), number);
    add<SimulatedMimoController>(name("IMimoController"), number);
    add<SimulatedBasebandSdcController>(name("IBasebandSdcController"), number);
    add<SimulatedZyrRleHandler>(name("IZyrRleHandler"), number);
    add<SimulatedAtpcController>(name("IAtpcController"), number);
    add<SimulatedSpcSimulator>(name("ISpcSimulator"), number);
    add<SimulatedTapsControllerLog>(name("ITapsControllerLog"), number);
    add<SimulatedRauLatencyCalculator>(name("IRauLatencyCalculator"), number);
    add<SimulatedSpaceDiversityCombinerController>(name("ISpaceDiversityCombinerController"), number);
    add<SimulatedSpectrumDiagnosticsController>(name("ISpectrumDiagnosticsController"), number);
    add<SimulatedIfLoopDriver>(name("IIfLoopDriver"), number);
    // sic: no "_" in this name
    add<SimulatedPpsController>("IPpsController" + std::to_string(number), number);
    auto& rauHandler = add<SimulatedRauHandler>(name("IRauHandler"), number);
    m_publications.emplace_back(name("IRadio"), rauHandler);
}

void SimulatedNode::addDrivers(unsigned number)
{
    auto& faults = m_state->faults;
    faults.registerCollaborator(kCableDriver, std::span(kDriverOperations).first(1), true);
    faults.registerCollaborator(kTxEnableDriver, kDriverOperations, true);
    // Answers the fault that was ordered, else lets `work` use the state.
    const auto operation = [state = m_state.get(), number](std::string_view driver, std::size_t index,
                                                           auto work) -> std::uint32_t {
        if (const auto code = state->faults.take(driver, kDriverOperations[index], number)) {
            return *code;
        }
        const std::scoped_lock lock(state->mutex);
        state->settle();
        work(state->channel(number).xpic);
        state->settleAnew();
        return 0;
    };
    const std::string start = "channel." + std::to_string(number) + ".xpic.";
    auto& drivers = zyr_platform::Drivers::get();
    const auto readCable = [operation](std::uint32_t& value) {
        return operation(kCableDriver, 0, [&](const XpicState& xpic) { value = xpic.isCableConnected; });
    };
    m_drivers.push_back(drivers.add(start + "connected", {.read = readCable, .write = {}}));
    m_drivers.push_back(drivers.add(start + "tx.enable",
                                    {.read =
                                         [operation](std::uint32_t& value) {
                                             return operation(kTxEnableDriver, 0, [&](const XpicState& xpic) {
                                                 value = xpic.isTxEnabled;
                                             });
                                         },
                                     .write =
                                         [operation](std::uint32_t value) {
                                             return operation(kTxEnableDriver, 1, [&](XpicState& xpic) {
                                                 xpic.isTxEnabled = value != 0;
                                             });
                                         }}));
}

template <class Collaborator>
Collaborator& SimulatedNode::add(const std::string& name, unsigned channel)
{
    auto owned = std::make_unique<Collaborator>(*m_state, channel);
    auto& collaborator = *owned;
    m_collaborators.push_back(std::move(owned));
    m_publications.emplace_back(name, collaborator);
    return collaborator;
}

void SimulatedNode::addClosingPhase()
{
    m_state->faults.registerCollaborator(kClosingPhaseOwner, kClosingPhaseOperations, true);
    auto phase = [state = m_state.get()](std::uint32_t channel) -> std::uint32_t {
        if (const auto code = state->faults.take(kClosingPhaseOwner, kClosingPhaseOperations[0], channel)) {
            return *code;
        }
        const std::scoped_lock lock(state->mutex);
        state->channel(channel).closingPhasesRun = true;
        state->settleAnew();
        return 0;
    };
    m_closingPhase = zyr_platform::ModuleManager::get().registerPhase(kClosingGroup, "simulated channel",
                                                                      std::move(phase));
}

std::vector<Fault> SimulatedNode::faultsLeft() const
{
    const std::scoped_lock lock(m_state->mutex);
    return allFaults(*m_state);
}

NodeSnapshot SimulatedNode::snapshot() const
{
    const std::scoped_lock lock(m_state->mutex);
    m_state->settle();
    return {.settings = m_state->settings,
            .dsp = m_state->dsp,
            .routes = m_state->routes,
            .interferers = m_state->interferers,
            .channels = m_state->channels,
            .alarms = m_state->alarms.reported(),
            .faults = allFaults(*m_state),
            .systemTime = m_state->systemTime(),
            .hardwareTime = m_state->hardwareTime(),
            .hopLatency_ns = hopLatency_ns(*m_state)};
}

ChannelState SimulatedNode::channel(unsigned number) const
{
    const std::scoped_lock lock(m_state->mutex);
    m_state->settle();
    return m_state->channel(number);
}

void SimulatedNode::shutdown()
{
    m_alarmHandler->shutdown();
}

template <class Value>
void SimulatedNode::set(Value SimulatedNodeOptions::*setting, Value value)
{
    const std::scoped_lock lock(m_state->mutex);
    m_state->settle();
    m_state->settings.*setting = value;
    m_state->settleAnew();
}

void SimulatedNode::setCarrierAggregation(bool active)
{
    set(&SimulatedNodeOptions::carrierAggregation, active);
}

void SimulatedNode::setDuplexType(std::uint32_t duplexType)
{
    set(&SimulatedNodeOptions::duplexType, duplexType);
}

void SimulatedNode::setLongHaul(bool longHaul)
{
    set(&SimulatedNodeOptions::longHaul, longHaul);
}

void SimulatedNode::setTwoTransmitters(bool twoTransmitters)
{
    set(&SimulatedNodeOptions::twoTransmitters, twoTransmitters);
}

void SimulatedNode::setConfigurationBypassed(bool bypassed)
{
    set(&SimulatedNodeOptions::configurationBypassed, bypassed);
}

void SimulatedNode::setPathLoss_dBTenths(std::int32_t pathLoss)
{
    set(&SimulatedNodeOptions::pathLoss_dBTenths, pathLoss);
}

void SimulatedNode::setDiversityPathLoss_dBTenths(std::int32_t pathLoss)
{
    set(&SimulatedNodeOptions::diversityPathLoss_dBTenths, pathLoss);
}

void SimulatedNode::setFarEndTransmits(bool transmits)
{
    set(&SimulatedNodeOptions::farEndTransmits, transmits);
}

void SimulatedNode::setCrossPolarDiscrimination_dBTenths(std::int32_t discrimination)
{
    constexpr std::int32_t greatest = 600;
    if (discrimination < 0 || discrimination > greatest) {
        throw std::invalid_argument("polarisations are 0 to 600 tenths of a dB apart, not " +
                                    std::to_string(discrimination));
    }
    set(&SimulatedNodeOptions::crossPolarDiscrimination_dBTenths, discrimination);
}

void SimulatedNode::addInterferer(const Interferer& interferer)
{
    check(interferer);
    const std::scoped_lock lock(m_state->mutex);
    m_state->settle();
    auto& known = m_state->interferers;
    const auto same = std::ranges::find(known, interferer.frequency_kHz, &Interferer::frequency_kHz);
    if (same != known.end()) {
        *same = interferer;
    } else if (known.size() < Interferer::kMost) {
        known.push_back(interferer);
    } else {
        throw std::invalid_argument("a node hears at most " + std::to_string(Interferer::kMost) +
                                    " interferers");
    }
    m_state->settleAnew();
}

void SimulatedNode::clearInterferers()
{
    const std::scoped_lock lock(m_state->mutex);
    m_state->settle();
    m_state->interferers.clear();
    m_state->settleAnew();
}

void SimulatedNode::setRadioAvailable(unsigned channel, bool available)
{
    const std::scoped_lock lock(m_state->mutex);
    m_state->settle();
    m_state->channel(channel).radio.isAvailable = available;
    m_state->settleAnew();
}

void SimulatedNode::setFarEndKey(unsigned channel, const std::string& key)
{
    const auto print = key.empty() ? std::nullopt : std::optional<KeyPrint>(key);
    const std::scoped_lock lock(m_state->mutex);
    m_state->settle();
    m_state->channel(channel).encryption.farEndKey = print;
    m_state->settleAnew();
}

void SimulatedNode::setPpsSignalPresent(unsigned channel, bool present)
{
    const std::scoped_lock lock(m_state->mutex);
    m_state->settle();
    m_state->channel(channel).pps.isSignalPresent = present;
    m_state->settleAnew();
}

void SimulatedNode::setXpicCableConnected(unsigned channel, bool connected)
{
    const std::scoped_lock lock(m_state->mutex);
    m_state->settle();
    m_state->channel(channel).xpic.isCableConnected = connected;
    m_state->settleAnew();
}

} // namespace zyr_simulation
