#include "CriGetSpectrumDiagnosticsImpl.h"

#include "EnumText.h"
#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriGetSpectrumDiagnostics::identity.traceChannel, 3, TylTraceHdrOption_Default};

// Modes of the scan control.
constexpr unsigned kChannelScan = 0;
constexpr unsigned kSubBandScan = 1;
constexpr unsigned kStop = 2;

// Everything is fetched by one call, without paging.
constexpr int kMaxResults = 500;

std::string_view statusText(std::int32_t status)
{
    static constexpr auto texts =
        std::to_array<std::string_view>({"scan-not-started", "sub-band-ongoing", "channel-scan-ongoing",
                                         "sub-band-scan-finished", "channel-scan-finished"});
    return textOf(texts, status, "unknown");
}

} // namespace

std::string CriGetSpectrumDiagnostics::Command::toString() const
{
    return printed(*this);
}

void CriGetSpectrumDiagnostics::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << RadioChannelID << ", RequestOption: " << RequestOption;
    if (DmSleep.hasValue()) {
        text << ", DmSleep: " << DmSleep.value();
    }
    text << "\n";
}

std::string CriGetSpectrumDiagnostics::Response::printResponse() const
{
    return printed(*this);
}

void CriGetSpectrumDiagnostics::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "Status: " << Status << ", Progress: " << Progress << ", Result: ";
    for (const SpectrumDiagnosticsResult& result : Result) {
        text << "Frequency: " << result.Frequency << ", Rssi: " << result.Rssi << "\n";
    }
    text << "SpectrumDiagnosticsProperties: isLongHaul: " << SpectrumDiagnosticsProperties.isLongHaul
         << ", hasAdjustableDiplexer: " << SpectrumDiagnosticsProperties.hasAdjustableDiplexer
         << ", isRadioCarrierAggrCapable: " << SpectrumDiagnosticsProperties.isRadioCarrierAggrCapable
         << ", isSdcSupported: " << SpectrumDiagnosticsProperties.isSdcSupported << "\n";
}

ETIResult CriGetSpectrumDiagnosticsImpl::initialize(unsigned numberOfChannels)
{
    InitialiseRules rules = family::kGuarded;
    rules.range.text = "Error numberOfChannels is out of range ("; // sic: no colon
    return initialise(trace, rules, numberOfChannels, m_numberOfChannels,
                      {perChannel("ISpectrumDiagnosticsController", m_controller,
                                  textAndName("Error getting interface to "))});
}

CriGetSpectrumDiagnostics::Response CriGetSpectrumDiagnosticsImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) {
        text << "command.toString()=";
        command.print(text);
    });

    Response response;
    const std::uint32_t channel = command.RadioChannelID;
    if (channel > m_numberOfChannels) {
        log(trace, 1, [&](TextWriter& text) { text << "RadioChannelID " << channel << " out of bounds"; });
        setResult(response, eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds");
        return response;
    }
    const std::string_view option = command.RequestOption;
    const bool isChannelScan = option == "channel-scan-start";
    const bool isStart = isChannelScan || option == "sub-band-scan-start";
    if (isStart && !command.DmSleep.hasValue()) {
        fail(response, trace, failureText("Missing argument for command ", option), eTI_E_INVALID_ARGUMENT);
        return response;
    }
    ETIResult result = eTI_S_OK;
    if (isStart) {
        result = m_controller[channel].scanControl(isChannelScan ? kChannelScan : kSubBandScan,
                                                   command.DmSleep.value());
    } else if (option == "scan-stop") {
        result = m_controller[channel].scanControl(kStop, command.DmSleep.value());
    } else if (option == "get-result") {
        result = readResults(channel, response);
    } else if (option != "get-status" && option != "get-scan-properties") {
        result = eTI_E_INVALID_ARGUMENT;
    }
    if (failed(result)) {
        fail(response, trace, failureText("Command failed ", option), eTI_E_INVALID_ARGUMENT);
        return response;
    }
    ISpectrumDiagnosticsController& controller = m_controller[channel];
    response.Status = statusText(controller.getStatus());
    response.Progress = controller.getProgress();
    response.SpectrumDiagnosticsProperties = controller.getProperties();
    log(trace, 5, [&](TextWriter& text) {
        text << "GetSpectrumDiagnostics channel " << channel << " status " << response.Status;
    });
    return response;
}

// Results count also if the read has failed.
ETIResult CriGetSpectrumDiagnosticsImpl::readResults(std::uint32_t channel, Response& response)
{
    std::array<SpectrumDiagnosticsResult, kMaxResults> buffer;
    int count = kMaxResults;
    const ETIResult result = m_controller[channel].getResult(count, buffer.data());
    const auto found = std::span(buffer).first(static_cast<std::size_t>(std::clamp(count, 0, kMaxResults)));
    response.Result.assign(found.begin(), found.end());
    for (const SpectrumDiagnosticsResult& each : found) {
        const auto level = [&](TextWriter& text) {
            text << "frequency " << each.Frequency << " rssi " << each.Rssi;
        };
        log(trace, 7, level, within("execute"));
    }
    return result;
}

CriGetSpectrumDiagnostics::Response
criGetSpectrumDiagnostics(const CriGetSpectrumDiagnostics::Command& command)
{
    return ZyrApiHandler::executeCommand(CriGetSpectrumDiagnosticsImpl(), command);
}

} // namespace zyr_top_api
