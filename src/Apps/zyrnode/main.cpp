#include "NodeProcess.h"
#include "Options.h"
#include "Reference.h"

#include <exception>
#include <iostream>
#include <variant>

int main(int argc, char** argv)
{
    try {
        const auto read = zyr_node::readOptions(argc, argv);
        if (const auto* const status = std::get_if<zyr_node::ExitStatus>(&read)) {
            return *status;
        }
        const auto& options = std::get<zyr_node::Options>(read);
        if (options.printReference) {
            std::cout << zyr_registration::referenceMarkdown();
            return zyr_node::Done;
        }
        zyr_node::runNode(options);
        return zyr_node::Done;
    } catch (const std::exception& error) {
        std::cerr << "zyrnode: " << error.what() << '\n';
        return zyr_node::CannotStart;
    }
}
