#include "CommandEntry.h"
#include "NodeProcess.h"
#include "Options.h"
#include "Reference.h"
#include "Schema.h"
#include "SimMethods.h"
#include "SystemMethodNotes.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <exception>
#include <iostream>
#include <iterator>
#include <string>
#include <variant>
#include <vector>

#include <malloc.h>
#include <pthread.h>

namespace
{

// The schema of all methods that take a struct.
std::string schema(unsigned numberOfChannels)
{
    std::vector<zyr_registration::MethodNotes> methods;
    for (const auto& command : zyr_registration::allCommands()) {
        methods.push_back(command.notes);
    }
    std::ranges::copy(zyr_node::simMethodNotes(), std::back_inserter(methods));
    return zyr_registration::schemaOf(methods, numberOfChannels).dump(2) + "\n";
}

// Many threads, and bursts of big answers, shall take little memory, and none when they are over. To be
// called before there is a second thread.
void keepMemorySmall()
{
    constexpr std::size_t stackSize = 1024UL * 1024UL;
    pthread_attr_t attributes;
    if (pthread_attr_init(&attributes) == 0) {
        pthread_attr_setstacksize(&attributes, stackSize);
        pthread_setattr_default_np(&attributes);
        pthread_attr_destroy(&attributes);
    }
    mallopt(M_ARENA_MAX, 2);
    mallopt(M_MMAP_THRESHOLD, 128 * 1024);
    mallopt(M_TRIM_THRESHOLD, 512 * 1024);
}

} // namespace

int main(int argc, char** argv)
{
    keepMemorySmall();
    try {
        const auto read = zyr_node::readOptions(argc, argv);
        if (const auto* const status = std::get_if<zyr_node::ExitStatus>(&read)) {
            return *status;
        }
        const auto& options = std::get<zyr_node::Options>(read);
        if (options.printReference) {
            std::cout << zyr_registration::referenceMarkdown(zyr_node::simMethodNotes(),
                                                             zyr_gateway::systemMethodNotes());
            return zyr_node::Done;
        }
        if (options.printSchema) {
            std::cout << schema(options.node.channels);
            return zyr_node::Done;
        }
        zyr_node::runNode(options);
        return zyr_node::Done;
    } catch (const std::exception& error) {
        std::cerr << "zyrnode: " << error.what() << '\n';
        return zyr_node::CannotStart;
    }
}
