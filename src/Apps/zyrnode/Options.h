#pragma once

#include "FaultInjector.h"
#include "RegisteringModule.h"
#include "SimulatedNodeOptions.h"
#include "TylTrace.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace zyr_node
{

/// A level that the trace shall have from the start.
struct TraceLevel
{
    std::string pattern;
    TylTraceLevel level;
};

/// Where the server listens.
struct ListenAddress
{
    std::string address = "127.0.0.1";
    std::uint16_t port = 8080;
};

/// How the node runs.
struct Options
{
    ListenAddress listen;
    std::string credentialsFile; ///< empty: nobody has to log in
    std::string tlsCertificateFile;
    std::string tlsKeyFile;
    zyr_simulation::SimulatedNodeOptions node;
    bool enableTi = false;
    bool withoutSim = false; ///< without the methods "SIM."
    std::vector<TraceLevel> traceLevels;
    std::string traceTarget = "stderr"; ///< or a file's path
    std::vector<zyr_simulation::Fault> faults;
    bool printReference = false;
    bool printSchema = false;
};

/// Status that the process ends with.
enum ExitStatus
{
    Done = 0,
    CannotStart = 1,
    WrongUsage = 2,
};

/// Reads the command line. Help, version and complaints are printed as they come up.
/// @return the options, or the status to end with at once
std::variant<Options, ExitStatus> readOptions(int argc, char** argv);

/// Reads "ADDRESS:PORT"; an IPv6 address stands in brackets.
/// @throws std::invalid_argument that says what is wrong
ListenAddress parseListenAddress(const std::string& text);

/// Reads "CHANNEL=LEVEL".
/// @throws std::invalid_argument that says what is wrong
TraceLevel parseTraceLevel(const std::string& text);

/// Reads "COLLABORATOR.OPERATION[@CHANNEL]=CODE[xTIMES]", the code decimal or hexadecimal with 0x.
/// @throws std::invalid_argument that says what is wrong
zyr_simulation::Fault parseFault(const std::string& text);

} // namespace zyr_node
