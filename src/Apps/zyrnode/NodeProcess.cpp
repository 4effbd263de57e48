#include "NodeProcess.h"

#include "FileSink.h"
#include "RealTime.h"
#include "Registration.h"
#include "RequestHead.h"
#include "SimMethods.h"
#include "SimulatedNode.h"
#include "SystemClock.h"
#include "TraceService.h"
#include "XmlRpcServer.h"

#include <csignal>
#include <exception>
#include <iostream>
#include <memory>
#include <string>

namespace zyr_node
{

namespace
{

using zyr_gateway::Credentials;
using zyr_gateway::HttpOptions;
using zyr_gateway::XmlRpcServer;
using zyr_platform::TraceService;

// The signals that the node answers. They are held back from all threads and fetched by the main thread.
class Signals
{
  public:
    Signals()
    {
        sigemptyset(&m_signals);
        sigaddset(&m_signals, SIGTERM);
        sigaddset(&m_signals, SIGINT);
        sigaddset(&m_signals, SIGHUP);
        pthread_sigmask(SIG_BLOCK, &m_signals, nullptr);
    }

    // Waits for the first signal that asks the node to stop. The next one ends the process.
    // @param onHangUp called for each SIGHUP that comes before
    template <class OnHangUp>
    void waitForStop(const OnHangUp& onHangUp) const
    {
        int signal = 0;
        while (sigwait(&m_signals, &signal) != 0 || signal == SIGHUP) {
            onHangUp();
        }
        // What hangs up now shall not end the node in the middle of its stop.
        std::signal(SIGHUP, SIG_IGN);
        pthread_sigmask(SIG_UNBLOCK, &m_signals, nullptr);
    }

  private:
    sigset_t m_signals{};
};

void warn(const std::string& text)
{
    std::cerr << "zyrnode: " + text + "\n" << std::flush;
}

// The node's trace: standard error, or a file, which can be opened anew.
class Trace
{
  public:
    explicit Trace(const std::string& target)
        : m_file(target == "stderr" ? nullptr : std::make_shared<zyr_platform::FileSink>(target)),
          m_added(TraceService::get().addSink(sink()))
    {}

    void reopen() const
    {
        if (m_file) {
            m_file->reopen();
        }
    }

  private:
    std::shared_ptr<zyr_platform::TraceSink> sink() const
    {
        if (m_file) {
            return m_file;
        }
        return std::make_shared<zyr_platform::StandardErrorSink>();
    }

    std::shared_ptr<zyr_platform::FileSink> m_file;
    zyr_platform::Registration m_added;
};

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

// What goes wrong leaves things as they were, and is told.
template <class Act>
void attempt(const Act& act)
{
    try {
        act();
    } catch (const std::exception& error) {
        warn(error.what());
    }
}

} // namespace

void runNode(const Options& options)
{
    const Signals signals;
    const Trace trace(options.traceTarget);
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
    if (!options.withoutSim) {
        addSimMethods(server, node);
    }
    server.start();
    if (!zyr_gateway::isLoopback(options.listen.address) && options.tlsCertificateFile.empty()) {
        warn("passwords and commands travel unencrypted to " + options.listen.address +
             "; use --tls-cert and --tls-key, or a TLS proxy on this machine");
    }
    std::cout << "listening on " << url(options, server.port()) << std::endl;

    signals.waitForStop([&] {
        attempt([&] { trace.reopen(); });
        attempt([&] {
            if (!options.credentialsFile.empty()) {
                server.setCredentials(Credentials::fromFile(options.credentialsFile));
            }
        });
    });
    node.faults().clear(); // an order to fail must not keep long polls from being released
    server.stop();
}

} // namespace zyr_node
