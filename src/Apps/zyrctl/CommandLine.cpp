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

bool isNumber(const std::string& word)
{
    double number = 0;
    return CLI::detail::lexical_cast(word, number);
}

bool isSubcommand(const CLI::App& app, const std::string& word)
{
    const auto all =
        app.get_subcommands([&](const CLI::App* subcommand) { return subcommand->get_name() == word; });
    return !all.empty();
}

} // namespace

std::vector<std::string> withJoinedNumbers(const CLI::App& app, std::vector<std::string> words)
{
    // "restart --wait 2" names the channel, which cannot be left out.
    const auto isItsOnlyArgument = [&](std::size_t place) {
        if (std::ranges::find(words, "restart") == words.end()) {
            return false;
        }
        for (std::size_t index = 0; index < words.size(); ++index) {
            const bool isOptions = index > 0 && takesNextWord(app, words[index - 1]);
            if (index != place && isNumber(words[index]) && !isOptions) {
                return false;
            }
        }
        return true;
    };
    for (std::size_t index = 0; index + 1 < words.size(); ++index) {
        const bool takes =
            words[index] == "--watch" || (words[index] == "--wait" && !isItsOnlyArgument(index + 1));
        if (takes && isNumber(words[index + 1])) {
            words[index] += "=" + words[index + 1];
            words.erase(words.begin() + static_cast<std::ptrdiff_t>(index) + 1);
        }
    }
    for (std::string& word : words) {
        if (word.starts_with("--watch=.") || word.starts_with("--wait=.")) {
            word.insert(word.find('.'), "0"); // ".5" is no number of an option
        }
    }
    return words;
}

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

std::vector<std::string> withWholeLists(const CLI::App& app, std::vector<std::string> words)
{
    for (std::size_t index = 0; index < words.size(); ++index) {
        const bool isList = words[index].starts_with('[') && words[index].ends_with(']');
        if (isList && (index == 0 || !takesNextWord(app, words[index - 1]))) {
            words[index].insert(0, " ");
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
    constexpr std::string_view joinedData = "--data=";
    for (int index = 1; index < argc; ++index) {
        const std::string_view word = argv[index];
        const bool isBehind = index > 1 && std::string_view(argv[index - 1]) == "--user";
        const bool isData = index > 1 && std::string_view(argv[index - 1]) == "--data";
        if ((isData || word.starts_with(joinedData)) && isSecretName(word)) {
            char* const data = argv[index] + (isData ? 0 : joinedData.size());
            std::memset(data, '*', std::strlen(data));
            continue;
        }
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
