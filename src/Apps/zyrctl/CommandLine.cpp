#include "CommandLine.h"

#include "Secrets.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace zyr_ctl
{

namespace
{

// The option may be the subcommand's own, since the short form leaves its name out.
const CLI::Option* findOption(const CLI::App& app, const std::string& word)
{
    const CLI::Option* const own = app.get_option_no_throw(word);
    return own != nullptr ? own : app.get_subcommand("call")->get_option_no_throw(word);
}

bool takesNextWord(const CLI::App& app, const std::string& word)
{
    const CLI::Option* const option = findOption(app, word);
    return option != nullptr && option->get_expected_max() != 0;
}

bool isSubcommand(const CLI::App& app, const std::string& word)
{
    const auto all =
        app.get_subcommands([&](const CLI::App* subcommand) { return subcommand->get_name() == word; });
    return !all.empty();
}

} // namespace

std::vector<std::string> withCallSubcommand(const CLI::App& app, std::vector<std::string> words)
{
    for (std::size_t index = 0; index < words.size(); ++index) {
        if (words[index].starts_with('-')) {
            index += takesNextWord(app, words[index]) ? 1 : 0;
        } else {
            if (!isSubcommand(app, words[index])) {
                words.insert(words.begin(), "call");
            }
            return words;
        }
    }
    return words;
}

bool asksForJson(const std::vector<std::string>& words)
{
    return std::ranges::find(words, "--json") != words.end();
}

void hideSecrets(int argc, char** argv)
{
    constexpr std::string_view joined = "--user=";
    for (int index = 1; index < argc; ++index) {
        const std::string_view word = argv[index];
        const bool isBehind = index > 1 && std::string_view(argv[index - 1]) == "--user";
        char* const equals = std::strchr(argv[index], '=');
        if (equals != nullptr && !word.starts_with('-') && isSecretName(word.substr(0, word.find('=')))) {
            std::memset(equals + 1, '*', std::strlen(equals + 1));
        }
        char* const colon = std::strchr(argv[index], ':');
        if (colon != nullptr && (isBehind || word.starts_with(joined))) {
            std::memset(colon + 1, '*', std::strlen(colon + 1));
        }
    }
}

} // namespace zyr_ctl
