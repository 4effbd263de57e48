// Each line is a word of the node's command line. It is taken or refused, with complaints for people alone.

#include "Caught.h"
#include "Fuzz.h"
#include "Options.h"

#include <iostream>
#include <string>
#include <variant>
#include <vector>

void zyr_fuzz::consume(std::string_view input)
{
    std::vector<std::string> words{"zyrnode"};
    for (const std::string_view line : linesOf(input)) {
        words.emplace_back(line.substr(0, line.find('\0')));
    }
    std::vector<char*> argv;
    for (std::string& word : words) {
        argv.push_back(word.data());
    }
    const Caught output(std::cout);
    const Caught errors(std::cerr);
    const auto read = zyr_node::readOptions(static_cast<int>(argv.size()), argv.data());
    if (const auto* const options = std::get_if<zyr_node::Options>(&read)) {
        require(output.text().empty() && errors.text().empty(), "what is taken is taken in silence", input);
        require(options->node.channels == 1 || options->node.channels == 2, "there are channels 1 and 2",
                input);
        require(options->node.radioType >= 1 && options->node.radioType <= 3, "radio types are 1 to 3",
                input);
        for (const auto& level : options->traceLevels) {
            require(!level.pattern.empty() && level.level >= 0 && level.level <= 7, "levels are 0 to 7",
                    input);
        }
        return;
    }
    const bool isRefused = std::get<zyr_node::ExitStatus>(read) == zyr_node::WrongUsage;
    require(isRefused || std::get<zyr_node::ExitStatus>(read) == zyr_node::Done, "it is help or a refusal",
            input);
    require(output.text().empty() == isRefused && errors.text().empty() != isRefused,
            "help is data, a complaint is none", input);
}
