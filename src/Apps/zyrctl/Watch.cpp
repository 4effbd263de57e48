#include "Watch.h"

#include "Rendering.h"
#include "Text.h"
#include "ValuePath.h"

#include <array>
#include <chrono>
#include <ctime>
#include <optional>
#include <thread>

namespace zyr_ctl
{

namespace
{

std::string timeOfDay()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    std::array<char, 16> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%H:%M:%S", &local)};
}

using Render = std::function<std::vector<Line>(const Value& answer, const std::set<std::string>& changed)>;

void showRound(Session& session, std::uint64_t number, const Render& render, const Value& value,
               const std::set<std::string>& changed)
{
    if (session.settings.json) {
        session.console.print({compactJson({{"changed", changed}, {"value", value}})});
    } else {
        session.console.print({"#" + std::to_string(number) + " " + timeOfDay()});
        session.console.printMarked(render(value, changed));
    }
    session.console.flush();
}

} // namespace

void addWatchOptions(CLI::App& subcommand, WatchOptions& options)
{
    options.watch =
        subcommand
            .add_flag("--watch{2}", options.seconds,
                      "Call again and again, every 2 or --watch=SECONDS, and mark what has changed")
            ->check(CLI::Range(0.0, 86400.0));
    subcommand.add_option("--count", options.count, "With --watch: stop behind N calls")
        ->check(CLI::PositiveNumber)
        ->needs(options.watch);
}

void watch(Session& session, const WatchOptions& options, const std::function<Value()>& ask,
           const Render& render)
{
    std::optional<Value> before;
    for (std::uint64_t number = 1;; ++number) {
        Value value = ask();
        showRound(session, number, render, value,
                  before ? changedPaths(*before, value) : std::set<std::string>());
        if (number == options.count) {
            return;
        }
        before = std::move(value);
        std::this_thread::sleep_for(std::chrono::duration<double>(options.seconds));
    }
}

} // namespace zyr_ctl
