// Each line is an order "COLLABORATOR.OPERATION[@CHANNEL]=CODE[xTIMES]" of the node's command line, or, with
// "!" before it, tells that the operation "COLLABORATOR.OPERATION[@CHANNEL]=..." is called. The node must
// fail as it was ordered: the oldest order that names the operation first, as many times as it says.

#include "FaultInjector.h"
#include "Fuzz.h"
#include "Options.h"

#include <algorithm>
#include <array>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

using zyr_simulation::Fault;
using zyr_simulation::FaultInjector;

namespace
{

constexpr unsigned kChannels = 2;
constexpr std::array<std::string_view, 2> kAcm{"enableAcm", "setMode"};
constexpr std::array<std::string_view, 1> kAlarms{"getAlarms"};

bool isKnown(const Fault& fault)
{
    const bool isAcm = fault.collaborator == "IAcmHandler" && std::ranges::count(kAcm, fault.operation) == 1;
    const bool isAlarm = fault.collaborator == "IAlarmHandlerTopApi" && fault.operation == kAlarms[0];
    return (isAcm && fault.channel <= kChannels) || (isAlarm && fault.channel == 0);
}

bool isSame(const Fault& one, const Fault& other)
{
    return one.collaborator == other.collaborator && one.operation == other.operation &&
           one.channel == other.channel && one.code == other.code && one.count == other.count;
}

// The code as a hexadecimal number: "0x3" means 3, not 0 three times.
std::string written(const Fault& fault)
{
    std::ostringstream text;
    text << fault.collaborator << '.' << fault.operation << '@' << fault.channel << "=0x" << std::hex
         << fault.code << 'x' << std::dec << fault.count;
    return text.str();
}

std::optional<std::uint32_t> expectedCode(std::vector<Fault>& orders, const Fault& call)
{
    for (auto order = orders.begin(); order != orders.end(); ++order) {
        if (order->collaborator != call.collaborator || order->operation != call.operation ||
            (order->channel != 0 && order->channel != call.channel)) {
            continue;
        }
        const std::uint32_t code = order->code;
        if (--order->count == 0) {
            orders.erase(order);
        }
        return code;
    }
    return std::nullopt;
}

} // namespace

void zyr_fuzz::consume(std::string_view input)
{
    FaultInjector injector(kChannels);
    injector.registerCollaborator("IAcmHandler", kAcm, true);
    injector.registerCollaborator("IAlarmHandlerTopApi", kAlarms, false);
    std::vector<Fault> orders;
    for (std::string_view line : linesOf(input)) {
        const bool isCall = line.starts_with('!');
        Fault fault;
        if (!takes<std::invalid_argument>(
                [&] { fault = zyr_node::parseFault(std::string(line.substr(isCall ? 1 : 0))); })) {
            continue;
        }
        require(isSame(zyr_node::parseFault(written(fault)), fault), "an order reads back the same", input);
        if (isCall) {
            const auto code = injector.take(fault.collaborator, fault.operation, fault.channel);
            require(code == expectedCode(orders, fault), "an operation fails as ordered", input);
            continue;
        }
        const bool isTaken = takes<std::invalid_argument>([&] { injector.inject(fault); });
        const bool mayBeTaken =
            isKnown(fault) && fault.count > 0 && orders.size() < FaultInjector::kMostFaults;
        require(isTaken == mayBeTaken, "an order is taken if it can be", input);
        if (isTaken) {
            orders.push_back(fault);
        }
        const std::vector<Fault> left = injector.list();
        require(std::ranges::equal(left, orders, &isSame), "the orders that are left are told", input);
    }
}
