#pragma once

#include "AcmHandlerDouble.h"
#include "AlarmHandlerTopApiDouble.h"
#include "AtpcControllerDouble.h"
#include "BasebandSdcControllerDouble.h"
#include "CapabilityHandlerDouble.h"
#include "CcdpControllerDouble.h"
#include "DspApiDouble.h"
#include "FrequencyControllerDouble.h"
#include "HardwareConfigurationHandlerDouble.h"
#include "IfLoopDriverDouble.h"
#include "LoopControllerDouble.h"
#include "MimoControllerDouble.h"
#include "OutputPowerCalculatorDouble.h"
#include "OutputPowerControllerDouble.h"
#include "OutputPowerHandlerDouble.h"
#include "PpsControllerDouble.h"
#include "RadioCapabilityDouble.h"
#include "RadioDouble.h"
#include "RauHandlerDouble.h"
#include "RauLatencyCalculatorDouble.h"
#include "RecoveryControllerDouble.h"
#include "RouteUpdaterDouble.h"
#include "RssiHandlerDouble.h"
#include "SpaceDiversityCombinerControllerDouble.h"
#include "SpcSimulatorDouble.h"
#include "SpectrumDiagnosticsControllerDouble.h"
#include "SystemPowerControllerDouble.h"
#include "TapsControllerDouble.h"
#include "TapsControllerLogDouble.h"
#include "TxIQImbalanceHandlerDouble.h"
#include "ZyrRleHandlerDouble.h"

#include <string>

namespace zyr_test
{

/// The doubles of one radio channel, under their names.
struct ChannelDoubles
{
    ChannelDoubles(Transcript& transcript, const std::string& channel);
    ~ChannelDoubles();
    ChannelDoubles(const ChannelDoubles&) = delete;
    ChannelDoubles& operator=(const ChannelDoubles&) = delete;

    /// Calls the function with each double.
    template <class Function>
    void forEach(Function function)
    {
        const auto each = [&](auto&... doubles) { (function(doubles), ...); };
        each(acmHandler, atpcController, basebandSdcController, capabilityHandler, ccdpController, dspApi,
             frequencyController, ifLoopDriver, mimoController, outputPowerCalculator, outputPowerController,
             ppsController, radioCapability, radio, rauHandler, rauLatencyCalculator, rssiHandler,
             spaceDiversityCombinerController, spcSimulator, spectrumDiagnosticsController,
             systemPowerController, tapsController, tapsControllerLog, txIqImbalanceHandler, rleHandler);
    }

    AcmHandlerDouble acmHandler;
    AtpcControllerDouble atpcController;
    BasebandSdcControllerDouble basebandSdcController;
    CapabilityHandlerDouble capabilityHandler;
    CcdpControllerDouble ccdpController;
    DspApiDouble dspApi;
    FrequencyControllerDouble frequencyController;
    IfLoopDriverDouble ifLoopDriver;
    MimoControllerDouble mimoController;
    OutputPowerCalculatorDouble outputPowerCalculator;
    OutputPowerControllerDouble outputPowerController;
    PpsControllerDouble ppsController;
    RadioCapabilityDouble radioCapability;
    RadioDouble radio;
    RauHandlerDouble rauHandler;
    RauLatencyCalculatorDouble rauLatencyCalculator;
    RssiHandlerDouble rssiHandler;
    SpaceDiversityCombinerControllerDouble spaceDiversityCombinerController;
    SpcSimulatorDouble spcSimulator;
    SpectrumDiagnosticsControllerDouble spectrumDiagnosticsController;
    SystemPowerControllerDouble systemPowerController;
    TapsControllerDouble tapsController;
    TapsControllerLogDouble tapsControllerLog;
    TxIQImbalanceHandlerDouble txIqImbalanceHandler;
    ZyrRleHandlerDouble rleHandler;
};

/// Doubles of all collaborators of a node with two channels.
struct NodeDoubles
{
    explicit NodeDoubles(Transcript& transcript);
    ~NodeDoubles();
    NodeDoubles(const NodeDoubles&) = delete;
    NodeDoubles& operator=(const NodeDoubles&) = delete;

    /// Calls the function with each double of the node and of its first channels.
    template <class Function>
    void forEach(unsigned numberOfChannels, Function function)
    {
        const auto each = [&](auto&... doubles) { (function(doubles), ...); };
        each(alarmHandler, hardwareConfigurationHandler, loopController, outputPowerHandler,
             recoveryController, routeUpdater);
        if (numberOfChannels >= 1) {
            channel1.forEach(function);
        }
        if (numberOfChannels >= 2) {
            channel2.forEach(function);
        }
    }

    AlarmHandlerTopApiDouble alarmHandler;
    HardwareConfigurationHandlerDouble hardwareConfigurationHandler;
    LoopControllerDouble loopController;
    OutputPowerHandlerDouble outputPowerHandler;
    RecoveryControllerDouble recoveryController;
    RouteUpdaterDouble routeUpdater;
    ChannelDoubles channel1;
    ChannelDoubles channel2;
};

} // namespace zyr_test
