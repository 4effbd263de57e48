#include "NodeDoubles.h"

#include <utility>

// The doubles are built here once: in every test they would be most of its compilation.

namespace zyr_test
{

AcmHandlerDouble::AcmHandlerDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
AcmHandlerDouble::~AcmHandlerDouble() = default;

AlarmHandlerTopApiDouble::AlarmHandlerTopApiDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
AlarmHandlerTopApiDouble::~AlarmHandlerTopApiDouble() = default;

AtpcControllerDouble::AtpcControllerDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
AtpcControllerDouble::~AtpcControllerDouble() = default;

BasebandSdcControllerDouble::BasebandSdcControllerDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
BasebandSdcControllerDouble::~BasebandSdcControllerDouble() = default;

CapabilityHandlerDouble::CapabilityHandlerDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
CapabilityHandlerDouble::~CapabilityHandlerDouble() = default;

CcdpControllerDouble::CcdpControllerDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
CcdpControllerDouble::~CcdpControllerDouble() = default;

DspAcmApiDouble::DspAcmApiDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
DspAcmApiDouble::~DspAcmApiDouble() = default;

DspChannelApiDouble::DspChannelApiDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
DspChannelApiDouble::~DspChannelApiDouble() = default;

DspControlApiDouble::DspControlApiDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
DspControlApiDouble::~DspControlApiDouble() = default;

DspStatusApiDouble::DspStatusApiDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
DspStatusApiDouble::~DspStatusApiDouble() = default;

FrequencyControllerDouble::FrequencyControllerDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
FrequencyControllerDouble::~FrequencyControllerDouble() = default;

HardwareConfigurationHandlerDouble::HardwareConfigurationHandlerDouble(Transcript& transcript,
                                                                       std::string name)
    : Recorder(transcript, std::move(name))
{}
HardwareConfigurationHandlerDouble::~HardwareConfigurationHandlerDouble() = default;

IfLoopDriverDouble::IfLoopDriverDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
IfLoopDriverDouble::~IfLoopDriverDouble() = default;

LoopControllerDouble::LoopControllerDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
LoopControllerDouble::~LoopControllerDouble() = default;

MimoControllerDouble::MimoControllerDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
MimoControllerDouble::~MimoControllerDouble() = default;

OutputPowerCalculatorDouble::OutputPowerCalculatorDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
OutputPowerCalculatorDouble::~OutputPowerCalculatorDouble() = default;

OutputPowerControllerDouble::OutputPowerControllerDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
OutputPowerControllerDouble::~OutputPowerControllerDouble() = default;

OutputPowerHandlerDouble::OutputPowerHandlerDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
OutputPowerHandlerDouble::~OutputPowerHandlerDouble() = default;

PpsControllerDouble::PpsControllerDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
PpsControllerDouble::~PpsControllerDouble() = default;

RadioCapabilityDouble::RadioCapabilityDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
RadioCapabilityDouble::~RadioCapabilityDouble() = default;

RadioDouble::RadioDouble(Transcript& transcript, std::string name) : Recorder(transcript, std::move(name)) {}
RadioDouble::~RadioDouble() = default;

RauHandlerDouble::RauHandlerDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
RauHandlerDouble::~RauHandlerDouble() = default;

RauLatencyCalculatorDouble::RauLatencyCalculatorDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
RauLatencyCalculatorDouble::~RauLatencyCalculatorDouble() = default;

RecoveryControllerDouble::RecoveryControllerDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
RecoveryControllerDouble::~RecoveryControllerDouble() = default;

RouteUpdaterDouble::RouteUpdaterDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
RouteUpdaterDouble::~RouteUpdaterDouble() = default;

RssiHandlerDouble::RssiHandlerDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
RssiHandlerDouble::~RssiHandlerDouble() = default;

SpaceDiversityCombinerControllerDouble::SpaceDiversityCombinerControllerDouble(Transcript& transcript,
                                                                               std::string name)
    : Recorder(transcript, std::move(name))
{}
SpaceDiversityCombinerControllerDouble::~SpaceDiversityCombinerControllerDouble() = default;

SpcSimulatorDouble::SpcSimulatorDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
SpcSimulatorDouble::~SpcSimulatorDouble() = default;

SpectrumDiagnosticsControllerDouble::SpectrumDiagnosticsControllerDouble(Transcript& transcript,
                                                                         std::string name)
    : Recorder(transcript, std::move(name))
{}
SpectrumDiagnosticsControllerDouble::~SpectrumDiagnosticsControllerDouble() = default;

SystemPowerControllerDouble::SystemPowerControllerDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
SystemPowerControllerDouble::~SystemPowerControllerDouble() = default;

TapsControllerDouble::TapsControllerDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
TapsControllerDouble::~TapsControllerDouble() = default;

TapsControllerLogDouble::TapsControllerLogDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
TapsControllerLogDouble::~TapsControllerLogDouble() = default;

TxIQImbalanceHandlerDouble::TxIQImbalanceHandlerDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
TxIQImbalanceHandlerDouble::~TxIQImbalanceHandlerDouble() = default;

ZyrRleHandlerDouble::ZyrRleHandlerDouble(Transcript& transcript, std::string name)
    : Recorder(transcript, std::move(name))
{}
ZyrRleHandlerDouble::~ZyrRleHandlerDouble() = default;

namespace
{

std::string suffixOf(const std::string& name)
{
    return name.substr(name.find('_'));
}

} // namespace

DspApiDouble::DspApiDouble(Transcript& transcript, const std::string& name)
    : Recorder(transcript, name), channelApi(transcript, "IDspChannelApi" + suffixOf(name)),
      statusApi(transcript, "IDspStatusApi" + suffixOf(name)),
      controlApi(transcript, "IDspControlApi" + suffixOf(name)),
      acmApi(transcript, "IDspAcmApi" + suffixOf(name))
{}
DspApiDouble::~DspApiDouble() = default;

ChannelDoubles::ChannelDoubles(Transcript& transcript, const std::string& channel)
    : acmHandler(transcript, "IAcmHandler_" + channel),
      atpcController(transcript, "IAtpcController_" + channel),
      basebandSdcController(transcript, "IBasebandSdcController_" + channel),
      capabilityHandler(transcript, "ICapabilityHandler_" + channel),
      ccdpController(transcript, "ICcdpController_" + channel), dspApi(transcript, "IDspApi_" + channel),
      frequencyController(transcript, "IFrequencyController_" + channel),
      ifLoopDriver(transcript, "IIfLoopDriver_" + channel),
      mimoController(transcript, "IMimoController_" + channel),
      outputPowerCalculator(transcript, "IOutputPowerCalculator_" + channel),
      outputPowerController(transcript, "IOutputPowerController_" + channel),
      ppsController(transcript, "IPpsController" + channel),
      radioCapability(transcript, "IRadioCapability_" + channel), radio(transcript, "IRadio_" + channel),
      rauHandler(transcript, "IRauHandler_" + channel),
      rauLatencyCalculator(transcript, "IRauLatencyCalculator_" + channel),
      rssiHandler(transcript, "IRssiHandler_" + channel),
      spaceDiversityCombinerController(transcript, "ISpaceDiversityCombinerController_" + channel),
      spcSimulator(transcript, "ISpcSimulator_" + channel),
      spectrumDiagnosticsController(transcript, "ISpectrumDiagnosticsController_" + channel),
      systemPowerController(transcript, "ISystemPowerController_" + channel),
      tapsController(transcript, "ITapsController_" + channel),
      tapsControllerLog(transcript, "ITapsControllerLog_" + channel),
      txIqImbalanceHandler(transcript, "ITxIQImbalanceHandler_" + channel),
      rleHandler(transcript, "IZyrRleHandler_" + channel)
{}
ChannelDoubles::~ChannelDoubles() = default;

NodeDoubles::NodeDoubles(Transcript& transcript)
    : alarmHandler(transcript, "IAlarmHandlerTopApi"),
      hardwareConfigurationHandler(transcript, "IHardwareConfigurationHandler"),
      loopController(transcript, "ILoopController"), outputPowerHandler(transcript, "IOutputPowerHandler.1"),
      recoveryController(transcript, "RecoveryController"), routeUpdater(transcript, "IRouteUpdater"),
      channel1(transcript, "1"), channel2(transcript, "2")
{}
NodeDoubles::~NodeDoubles() = default;

} // namespace zyr_test
