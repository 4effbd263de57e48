#include "NodeProcess.h"

#include "FileSink.h"
#include "RealTime.h"
#include "SimMethods.h"
#include "SimulatedNode.h"
#include "SystemClock.h"
#include "TraceService.h"
#include "XmlRpcServer.h"

#include <csignal>
#include <iostream>
#include <memory>
#include <optional>

namespace zyr_node
{

namespace
{

using zyr_gateway::Credentials;
using zyr_gateway::HttpOptions;
using zyr_gateway::XmlRpcServer;
using zyr_platform::TraceService;

// The signals that ask the node to stop. They are held back from all threads and fetched by the main thread.
class StopSignals
{
  public:
    StopSignals()
    {
        sigemptyset(&m_signals);
        sigaddset(&m_signals, SIGTERM);
        sigaddset(&m_signals, SIGINT);
        pthread_sigmask(SIG_BLOCK, &m_signals, nullptr);
    }

    // Waits for the first signal. The next one ends the process.
    void wait() const
    {
        int signal = 0;
        sigwait(&m_signals, &signal);
        pthread_sigmask(SIG_UNBLOCK, &m_signals, nullptr);
    }

  private:
    sigset_t m_signals{};
};

std::shared_ptr<zyr_platform::TraceSink> traceSink(const std::string& target)
{
    if (target == "stderr") {
        return std::make_shared<zyr_platform::StandardErrorSink>();
    }
    return std::make_shared<zyr_platform::FileSink>(target);
}

HttpOptions httpOptions(const Options& options)
{
    HttpOptions http;
    http.address = options.listen.address;
    http.port = options.listen.port;
    http.tlsCertificateFile = options.tlsCertificateFile;
    http.tlsKeyFile = options.tlsKeyFile;
    if (!options.credentialsFile.empty()) {
        http.credentials.emplace(Credentials::fromFile(options.credentialsFile));
    }
    return http;
}

std::string url(const Options& options, std::uint16_t port)
{
    const std::string& address = options.listen.address;
    const bool isIpv6 = address.find(':') != std::string::npos;
    return std::string(options.tlsCertificateFile.empty() ? "http" : "https") + "://" +
           (isIpv6 ? "[" + address + "]" : address) + ":" + std::to_string(port) + "/RPC2";
}

} // namespace

void runNode(const Options& options)
{
    const StopSignals stopSignals;
    const auto trace = TraceService::get().addSink(traceSink(options.traceTarget));
    for (const TraceLevel& setting : options.traceLevels) {
        TraceService::get().setLevel(setting.pattern, setting.level);
    }

    zyr_platform::allowSettingTheClock(options.node.hostClock);
    zyr_platform::RealTime time;
    zyr_simulation::SimulatedNode node(options.node, time);
    for (const zyr_simulation::Fault& fault : options.faults) {
        node.faults().inject(fault);
    }

    zyr_registration::RegisteringModule commands(
        {.numberOfChannels = options.node.channels, .enableTi = options.enableTi});
    XmlRpcServer server(httpOptions(options), commands);
    addSimMethods(server, node);
    server.start();
    std::cout << "listening on " << url(options, server.port()) << std::endl;

    stopSignals.wait();
    node.faults().clear(); // an order to fail must not keep long polls from being released
    server.stop();
}

} // namespace zyr_node
