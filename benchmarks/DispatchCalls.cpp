// Makes a number of calls of one kind and ends: what callgrind counts. See dispatch_instructions.py.

#include "DispatchTable.h"
#include "StatusCalls.h"
#include "TraceService.h"

#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <mutex>
#include <string>

namespace
{

using namespace zyr_top_api;

benchmark_table::QuietAcmHandler handler;
std::mutex mutex;

enum class Place
{
    First,
    Middle,
    Last,
};

void dispatchFrom(Place place, std::size_t length, long calls)
{
    const std::size_t others = place == Place::First ? 0 : place == Place::Middle ? length / 2 : length - 1;
    benchmark_table::fill(others, length, handler);
    CriEnableAcm::Command command;
    command.enable = true;
    for (long call = 0; call < calls; ++call) {
        criEnableAcm(command);
    }
}

void collaboratorCall(long calls)
{
    IAcmHandler* volatile collaborator = &handler;
    for (long call = 0; call < calls; ++call) {
        collaborator->enableAcm(true);
    }
}

void lock(long calls)
{
    for (long call = 0; call < calls; ++call) {
        const std::lock_guard guard(mutex);
    }
}

void response(long calls)
{
    for (long call = 0; call < calls; ++call) {
        StandardResponse built;
        // Keeps the response from being optimised away.
        asm volatile("" : : "g"(&built) : "memory");
    }
}

} // namespace

int main(int argc, char** argv)
{
    using benchmark_table::kBarLength;
    using benchmark_table::listedLength;
    if (argc == 2 && std::string(argv[1]) == "listed-length") {
        std::cout << listedLength() << "\n";
        return 0;
    }
    const std::map<std::string, std::function<void(long)>> kinds{
        {"lock", lock},
        {"response", response},
        {"collaborator", collaboratorCall},
        {"quiet-first", [](long calls) { dispatchFrom(Place::First, kBarLength, calls); }},
        {"quiet-middle", [](long calls) { dispatchFrom(Place::Middle, kBarLength, calls); }},
        {"quiet-last", [](long calls) { dispatchFrom(Place::Last, kBarLength, calls); }},
        {"listed-first", [](long calls) { dispatchFrom(Place::First, listedLength(), calls); }},
        {"listed-middle", [](long calls) { dispatchFrom(Place::Middle, listedLength(), calls); }},
        {"listed-last", [](long calls) { dispatchFrom(Place::Last, listedLength(), calls); }},
        {"status-collaborators", benchmark_status::collaboratorsAlone},
        {"status-dispatched", benchmark_status::dispatched},
        {"traced-first", [](long calls) { dispatchFrom(Place::First, kBarLength, calls); }},
        {"traced-all-levels-first", [](long calls) { dispatchFrom(Place::First, kBarLength, calls); }},
    };
    if (argc != 3 || !kinds.contains(argv[1])) {
        std::cerr << "usage: DispatchCalls KIND CALLS | DispatchCalls listed-length, KIND being one of";
        for (const auto& kind : kinds) {
            std::cerr << " " << kind.first;
        }
        std::cerr << "\n";
        return 2;
    }
    const std::string kind = argv[1];
    const TylTraceLevel level = kind == "traced-first" ? 3 : kind == "traced-all-levels-first" ? 7 : 2;
    zyr_platform::TraceService::get().setLevelForAll(level);
    kinds.at(kind)(std::atol(argv[2]));
    return 0;
}
