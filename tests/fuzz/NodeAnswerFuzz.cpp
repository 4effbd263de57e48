// What a node tells, as JSON: {"description": of a command, "answer": of it, "before": the answer before,
// "words": of a call, "path": of a part}. It goes the way over the wire and then into all that the client
// makes of it: no text that it shows can steer a terminal, and what it can't take it refuses as its callers
// know.

#include "Codec.h"
#include "Completion.h"
#include "Failure.h"
#include "FieldValue.h"
#include "Fuzz.h"
#include "HelpText.h"
#include "Pictures.h"
#include "Rendering.h"
#include "Request.h"
#include "SecondStream.h"
#include "Secrets.h"
#include "Spectrum.h"
#include "Text.h"
#include "UtcTime.h"
#include "ValuePath.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

using namespace zyr_ctl;
using zyr_fuzz::require;
using zyr_fuzz::takes;

namespace
{

// As it comes out of the wire, if it can go over it.
std::optional<Value> overTheWire(const Value& value)
{
    try {
        return zyr_gateway::parseMethodResponse(zyr_gateway::writeResponse(value)).value;
    } catch (const std::invalid_argument&) {
        return std::nullopt; // too deep
    } catch (const zyr_gateway::XmlRpcError&) {
        return std::nullopt; // too many
    }
}

std::vector<std::string> textsIn(const Value& list)
{
    std::vector<std::string> texts;
    for (const Value& element : list) {
        if (element.is_string()) {
            texts.push_back(element.get<std::string>());
        }
    }
    return texts;
}

// Texts of lines, and lines.
const std::string& textOf(const std::string& line)
{
    return line;
}
const std::string& textOf(const Line& line)
{
    return line.text;
}

template <class Lines>
void expectHarmless(const Lines& lines, std::string_view input)
{
    for (const auto& line : lines) {
        require(printable(textOf(line)) == textOf(line), "a line steers no terminal", input);
    }
}

void show(const CommandDescription& command, const Value& answer, const Value& before, std::string_view input)
{
    const Fields& fields = command.response;
    const DescribedAnswer described{answer, fields};
    for (const std::size_t room : {0UL, 1UL, 40UL, 200UL}) {
        expectHarmless(renderAnswer(answer, fields, changedPaths(before, answer), room), input);
        expectHarmless(helpLines(command, room), input);
    }
    require(changedPaths(answer, answer).empty(), "nothing has changed against itself", input);
    const std::vector<std::function<std::vector<Line>()>> pictures{
        [&] {
            return statusPicture(1, answer, fields, std::vector<std::int64_t>{-450, 0, INT64_MAX});
        },
        [&] { return framesPicture(answer, fields); },
        [&] { return capabilityPicture(1, answer, fields); },
        [&] { return eventsPicture(answer); },
        [&] { return loopsPicture(answer); },
        [&] {
            return acmPicture(1, {described, described, described});
        },
        [&] { return combinerPicture(1, answer, fields); },
        [&] {
            return ppsPicture(1, {described, described, described, ""}, "");
        },
        [&] { return spectrumPicture(1, answer, {.isAscii = true, .columns = 40}); },
        [&] { return spectrumPicture(1, answer, {.isAscii = false, .columns = 0}); },
        [&] { return spectrumCsv(answer); },
        [&] { return xpicPicture(1, described, described); },
        [&] { return mimoPicture(1, described, described); },
    };
    for (const auto& picture : pictures) {
        // The program makes a failure of the second as well.
        takes<Failure>([&] { takes<Value::exception>([&] { expectHarmless(picture(), input); }); });
    }
}

void callWith(const CommandDescription& command, const Value& data, const std::vector<std::string>& words,
              std::string_view input)
{
    for (const auto& given : {std::optional<Value>(data), std::optional<Value>()}) {
        takes<Failure>([&] {
            const std::vector<Value> params = checkedParams(command, given, words);
            require(checkedParams(command, params.empty() ? Value::object() : params.front(), {}) == params,
                    "what is taken is taken again", input);
        });
        takes<Failure>([&] { uncheckedParams(given, words); });
    }
}

void hide(const CommandDescription& command, const Value& answer, std::string_view input)
{
    SecretNames secrets;
    secrets.learn(command.request);
    secrets.learn(command.response);
    const Value hidden = secrets.hiddenIn(answer);
    require(secrets.hiddenIn(hidden) == hidden, "what is hidden stays as it is", input);
    const std::string document = zyr_gateway::writeResponse(hidden);
    require(secrets.hiddenInXml(document) == document, "nothing is left to hide in a document", input);
}

void complete(const CommandDescription& command, const std::vector<std::string>& words)
{
    CompletionSource source;
    source.subcommands = {"call", "list"};
    source.options = {"--json", "--url"};
    source.valueOptions = {"--url"};
    source.shells = {"bash"};
    source.nodes = [] { return std::vector<std::string>{"north"}; };
    source.commands = [&] { return std::vector<std::string>{command.name}; };
    source.describe = [&](const std::string&) { return std::optional<CommandDescription>(command); };
    std::string line;
    for (const std::string& word : words) {
        line += (line.empty() ? "" : " ") + word;
        (void)completions(completionWords(line), source);
        (void)fitsPattern(command.name, word);
        takes<Failure>([&] { (void)wireTime(std::string_view(word)); });
        (void)utcTime(word);
    }
}

} // namespace

void zyr_fuzz::consume(std::string_view input)
{
    const Value given = Value::parse(input, nullptr, false);
    if (!given.is_object()) {
        return;
    }
    const auto description = overTheWire(given.value("description", Value::object()));
    const auto answer = overTheWire(given.value("answer", Value()));
    const auto before = overTheWire(given.value("before", Value()));
    if (!description || !answer || !before) {
        return;
    }
    takes<Failure>([&] { (void)readCommands(*answer); });
    takes<Failure>([&] {
        const CommandDescription command = readCommand(*description);
        const std::vector<std::string> words = textsIn(given.value("words", Value()));
        show(command, *answer, *before, input);
        callWith(command, *answer, words, input);
        hide(command, *answer, input);
        complete(command, words);
        for (const std::string& path : words) {
            takes<Failure>([&] {
                const Picked picked = pick(*answer, command.response, path);
                expectHarmless(renderPicked(picked.value, picked.field), input);
            });
        }
    });
}
