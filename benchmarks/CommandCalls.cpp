#include "CommandCalls.h"

#include "CriGetRadioChannelStatusImpl.h"
#include "CriGetSpectrumDiagnosticsImpl.h"
#include "CriSetRadioChannelNearEndImpl.h"
#include "CriSetRfPowerImpl.h"
#include "TrivialCollaborators.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iostream>

namespace benchmark_commands
{

namespace
{

using namespace zyr_top_api;

// A finished scan.
class FinishedScan final : public ISpectrumDiagnosticsController
{
  public:
    ETIResult scanControl(unsigned /*mode*/, unsigned /*dmSleep*/) override { return eTI_S_OK; }
    ETIResult getResult(int& count, SpectrumDiagnosticsResult* buffer) override
    {
        count = std::min(count, 500);
        for (int index = 0; index < count; ++index) {
            buffer[index] = {static_cast<std::uint32_t>(index), -900};
        }
        return eTI_S_OK;
    }
    std::int32_t getStatus() override { return 4; }
    std::int32_t getProgress() override { return 100; }
    SpectrumDiagnosticsProperties getProperties() override { return {}; }
};

template <class Impl>
void execute(const typename Impl::Command& command, long calls)
{
    const benchmark_trivial::Collaborators collaborators;
    const benchmark_trivial::Published<FinishedScan> scan("ISpectrumDiagnosticsController_1");
    Impl impl;
    impl.initialize(1);
    for (long call = 0; call < calls; ++call) {
        const auto response = impl.execute(command);
        if (response.faultCode != 0) {
            std::cerr << response.faultString << "\n";
            std::exit(1);
        }
    }
}

} // namespace

void nearEnd(long calls)
{
    CriSetRadioChannelNearEnd::Command command;
    command.radioFrameId = 102;
    command.minModulation = ModulationAndCoding::QAM_4;
    command.maxModulation = ModulationAndCoding::QAM_256;
    command.txFrequency_kHz = 14'500'000;
    command.rxFrequency_kHz = 14'920'000;
    execute<CriSetRadioChannelNearEndImpl>(command, calls);
}

void rfPower(long calls)
{
    CriSetRfPower::Command command;
    command.txRequestedStatus = TxRequestedStatus::On;
    command.minRfOutputPower = -10;
    command.maxRfOutputPower = 20;
    execute<CriSetRfPowerImpl>(command, calls);
}

void status(long calls)
{
    execute<CriGetRadioChannelStatusImpl>({}, calls);
}

void spectrumOf500Points(long calls)
{
    CriGetSpectrumDiagnostics::Command command;
    command.RadioChannelID = 1;
    command.RequestOption = "get-result";
    execute<CriGetSpectrumDiagnosticsImpl>(command, calls);
}

} // namespace benchmark_commands
