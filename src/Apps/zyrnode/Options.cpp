#include "Options.h"

#include "TraceService.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <iostream>
#include <limits>
#include <map>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace zyr_node
{

namespace
{

using zyr_platform::TraceService;

template <class Number>
Number numberIn(const std::string& text, const std::string& digits, int base = 10)
{
    Number number{};
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, base);
    if (digits.empty() || error != std::errc{} || end != digits.data() + digits.size()) {
        throw std::invalid_argument(text + ": \"" + digits + "\" is no number from 0 to " +
                                    std::to_string(std::numeric_limits<Number>::max()));
    }
    return number;
}

std::uint32_t codeIn(const std::string& text, const std::string& digits)
{
    const bool isHexadecimal = digits.starts_with("0x");
    return isHexadecimal ? numberIn<std::uint32_t>(text, digits.substr(2), 16)
                         : numberIn<std::uint32_t>(text, digits);
}

constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kHexadecimalDigits = "0123456789abcdefABCDEF";
constexpr std::string_view kWordCharacters =
    "_0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";

bool isMadeOf(std::string_view text, std::string_view characters)
{
    return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

// What stands before a mark and behind it; nothing behind it without one.
std::pair<std::string, std::optional<std::string>> splitAt(const std::string& text, char mark,
                                                           std::size_t from = 0)
{
    const std::size_t at = text.find(mark, from);
    if (at == std::string::npos) {
        return {text, std::nullopt};
    }
    return {text.substr(0, at), text.substr(at + 1)};
}

// Turns what is wrong with a text into CLI11's complaint about its option.
template <class Parse>
auto forOption(const std::string& option, const std::string& text, const Parse& parse)
{
    try {
        return parse(text);
    } catch (const std::invalid_argument& error) {
        throw CLI::ValidationError(option, error.what());
    }
}

void addStart(CLI::App& app, Options& options)
{
    const std::map<std::string, Zyr::ZyrInitState> starts{{"cold", Zyr::ZyrInitState::ColdRestart},
                                                          {"warm", Zyr::ZyrInitState::WarmRestart},
                                                          {"normal", Zyr::ZyrInitState::NormalOperation}};
    app.add_option_function<std::string>(
           "--start", [&options, starts](const std::string& text) { options.node.startUp = starts.at(text); },
           "What the node starts behind: cold, a restart that left nothing configured; warm, one that left "
           "the channels to carry their traffic; CRI.WarmInitCompleted ends both. Default normal, no restart")
        ->check(CLI::IsMember(starts))
        ->type_name("cold|warm|normal");
}

void addOptions(CLI::App& app, Options& options)
{
    app.set_version_flag("--version", std::string(ZYR_VERSION));
    app.add_flag("--print-reference", options.printReference, "Print the reference of all methods, and end");
    app.add_flag("--print-schema", options.printSchema,
                 "Print the JSON Schema of all requests and responses, and end");
    app.add_option_function<std::string>(
           "--listen",
           [&](const std::string& text) {
               options.listen = forOption("--listen", text, &parseListenAddress);
           },
           "Where to serve; port 0 takes a free one. Default 127.0.0.1:8080")
        ->type_name("ADDRESS:PORT");
    app.add_option("--credentials", options.credentialsFile,
                   "Who may call: user:hash lines, mode 0600; necessary beyond loopback. Read anew at SIGHUP")
        ->type_name("FILE");
    auto* const certificate =
        app.add_option("--tls-cert", options.tlsCertificateFile, "Certificate, PEM")->type_name("FILE");
    auto* const key =
        app.add_option("--tls-key", options.tlsKeyFile, "Private key, PEM, mode 0600")->type_name("FILE");
    certificate->needs(key);
    key->needs(certificate);
    addStart(app, options);
    app.add_option("--channels", options.node.channels, "Radio channels, 1 or 2. Default 2")
        ->check(CLI::Range(1, 2));
    app.add_option("--radio-type", options.node.radioType,
                   "Radio units: 1 of the 15 GHz band, 2 of the 23 GHz band, 3 of the 6 GHz band. Default 1")
        ->check(CLI::Range(1, 3));
    app.add_flag("--two-transmitters", options.node.twoTransmitters,
                 "Radio units with two transmitters and two receivers");
    app.add_option("--fading", options.node.fading_dBTenths,
                   "Amplitude of the hop's slow fading, 0.1 dB, 0 for none. Default 5")
        ->check(CLI::Range(0, 1000));
    app.add_option("--hop-length", options.node.hopLength_m, "Distance to the far end, m. Default 5000")
        ->check(CLI::Range(0, 1'000'000));
    app.add_option("--seed", options.node.seed, "What is left to chance follows from it. Default 1");
    app.add_flag("--enable-ti", options.enableTi, "Open the test commands");
    app.add_flag("--host-clock", options.node.hostClock,
                 "Let TI.ManageRealTimeClock read and set this host's own clocks, the system's and /dev/rtc, "
                 "instead of the simulated node's; setting them takes the right to (CAP_SYS_TIME)");
    app.add_flag(
        "--no-sim", options.withoutSim,
        "Leave out the methods SIM., which show and change what is simulated; otherwise, whoever may "
        "call the commands may call them too");
    app.add_option("--state-dir", options.node.stateFolder,
                   "Where the node may write files: TI.ManageTaps dumps its log there. Default nowhere")
        ->type_name("DIR");
    app.add_option_function<std::vector<std::string>>(
           "--trace",
           [&](const std::vector<std::string>& texts) {
               for (const std::string& text : texts) {
                   options.traceLevels.push_back(forOption("--trace", text, &parseTraceLevel));
               }
           },
           "Highest level of a trace channel, 0 to 7; \"*\" stands for any text")
        ->type_name("CHANNEL=LEVEL")
        ->expected(1);
    app.add_option("--trace-to", options.traceTarget,
                   "stderr, or a file to append to, opened anew at SIGHUP. Default stderr")
        ->type_name("TARGET");
    app.add_option_function<std::vector<std::string>>(
           "--fault",
           [&](const std::vector<std::string>& texts) {
               for (const std::string& text : texts) {
                   options.faults.push_back(forOption("--fault", text, &parseFault));
               }
           },
           "Let an operation of the simulated node fail")
        ->type_name("COLLABORATOR.OPERATION[@CHANNEL]=CODE[xTIMES]")
        ->expected(1);
}

} // namespace

std::variant<Options, ExitStatus> readOptions(int argc, char** argv)
{
    Options options;
    CLI::App app("A simulated radio-link node that serves its commands by XML-RPC.", "zyrnode");
    addOptions(app, options);
    for (CLI::Option* const option : app.get_options()) {
        // The repeatable ones gather their values; the others may be given once.
        const bool isRepeatable = option->check_name("--trace") || option->check_name("--fault");
        option->multi_option_policy(isRepeatable ? CLI::MultiOptionPolicy::TakeAll
                                                 : CLI::MultiOptionPolicy::Throw);
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error, std::cout, std::cerr) == 0 ? Done : WrongUsage;
    }
    return options;
}

ListenAddress parseListenAddress(const std::string& text)
{
    const std::size_t colon = text.rfind(':');
    if (colon == std::string::npos || colon == 0) {
        throw std::invalid_argument(text + ": it takes ADDRESS:PORT, as in 127.0.0.1:8080 or [::1]:8080");
    }
    std::string address = text.substr(0, colon);
    if (address.front() == '[' && address.back() == ']') {
        address = address.substr(1, address.size() - 2);
    } else if (address.find(':') != std::string::npos) {
        throw std::invalid_argument(text + ": an IPv6 address stands in brackets, as in [::1]:8080");
    }
    return {address, numberIn<std::uint16_t>(text, text.substr(colon + 1))};
}

TraceLevel parseTraceLevel(const std::string& text)
{
    const std::size_t sign = text.rfind('=');
    if (sign == std::string::npos || sign == 0) {
        throw std::invalid_argument(text + ": it takes CHANNEL=LEVEL, as in ZYR.COMM=5");
    }
    const auto level = numberIn<TylTraceLevel>(text, text.substr(sign + 1));
    if (level < TraceService::kSilent || level > TraceService::kHighestLevel) {
        throw std::invalid_argument(text + ": levels go from 0 to 7");
    }
    return {text.substr(0, sign), level};
}

zyr_simulation::Fault parseFault(const std::string& text)
{
    const std::size_t sign = text.find('=');
    const auto [names, channel] = splitAt(text.substr(0, sign), '@');
    const auto [collaborator, operation] = splitAt(names, '.');
    const std::string outcome = sign == std::string::npos ? "" : text.substr(sign + 1);
    const bool isHexadecimal = outcome.starts_with("0x");
    const auto [code, times] = splitAt(outcome, 'x', isHexadecimal ? 2 : 0);
    const bool isRight = isMadeOf(collaborator, kWordCharacters) &&
                         isMadeOf(operation.value_or(""), kWordCharacters) &&
                         isMadeOf(channel.value_or("0"), kDigits) &&
                         isMadeOf(std::string_view(code).substr(isHexadecimal ? 2 : 0),
                                  isHexadecimal ? kHexadecimalDigits : kDigits) &&
                         isMadeOf(times.value_or("1"), kDigits);
    if (!isRight) {
        throw std::invalid_argument(text + ": it takes COLLABORATOR.OPERATION[@CHANNEL]=CODE[xTIMES], as in "
                                           "IAcmHandler.enableAcm@1=0x8000x3");
    }
    zyr_simulation::Fault fault;
    fault.collaborator = collaborator;
    fault.operation = operation.value_or("");
    fault.channel = numberIn<unsigned>(text, channel.value_or("0"));
    fault.code = codeIn(text, code);
    fault.count = numberIn<unsigned>(text, times.value_or("1"));
    return fault;
}

} // namespace zyr_node
