// Makes a number of calls of one kind and ends: what callgrind counts. See dispatch_instructions.py.

#include "CountedKinds.h"
#include "DispatchTable.h"
#include "StatusCalls.h"
#include "TraceService.h"

#include <iostream>
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
    const auto traced = [](TylTraceLevel level, Place place) {
        return [level, place](long calls) {
            zyr_platform::TraceService::get().setLevelForAll(level);
            dispatchFrom(place, kBarLength, calls);
        };
    };
    zyr_platform::TraceService::get().setLevelForAll(2);
    return benchmark_kinds::run(
        {
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
            {"traced-first", traced(3, Place::First)},
            {"traced-all-levels-first", traced(7, Place::First)},
        },
        argc, argv);
}
