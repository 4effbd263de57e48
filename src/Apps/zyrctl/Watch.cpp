#include "Watch.h"

#include "Limits.h"
#include "Rendering.h"
#include "Text.h"
#include "ValuePath.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <thread>
#include <utility>

namespace zyr_ctl
{

namespace
{

/// What is watched, as it is shown.
class Watched
{
  public:
    Watched(Session& session, const Render& render) : m_session(session), m_render(render) {}

    void show(const Value& value)
    {
        ++m_number;
        const std::set<std::string> changed =
            m_before ? changedPaths(*m_before, value) : std::set<std::string>();
        if (m_isGone && !isDrawn()) {
            m_session.console.remark("zyrctl: the node is back");
        }
        m_isGone = false;
        if (m_session.settings.json) {
            m_session.console.print({compactJson({{"changed", changed}, {"value", value}})});
        } else {
            m_lines = m_render(value, changed);
            draw("#" + std::to_string(m_number) + " " + timeOfDay());
        }
        m_session.console.flush();
        m_before = value;
    }

    void showGone(const Failure& failure)
    {
        if (isDrawn()) {
            for (Line& line : m_lines) {
                line.isChanged = false;
            }
            draw("#" + std::to_string(m_number) + " " + timeOfDay() + "  " + printable(failure.what()));
            m_session.console.flush();
        } else if (!m_isGone) {
            m_session.console.remark("zyrctl: " + printable(failure.what()) + "; trying again");
        }
        m_isGone = true;
    }

  private:
    bool isDrawn() const { return !m_session.settings.json && m_session.console.canRedraw(); }

    void draw(const std::string& heading)
    {
        if (!isDrawn()) {
            m_session.console.print({heading});
            m_session.console.printMarked(m_lines);
            return;
        }
        std::vector<Line> all{{heading}};
        all.insert(all.end(), m_lines.begin(), m_lines.end());
        m_session.console.redraw(all);
    }

    Session& m_session;
    const Render& m_render;
    std::uint64_t m_number = 0;
    std::optional<Value> m_before;
    std::vector<Line> m_lines;
    bool m_isGone = false;
};

void markChanges(const std::vector<Line>& before, std::vector<Line>& lines)
{
    for (std::size_t index = 0; index < std::min(before.size(), lines.size()); ++index) {
        lines[index].isChanged = lines[index].text != before[index].text;
    }
}

} // namespace

void addWatchOptions(CLI::App& subcommand, WatchOptions& options)
{
    options.watch = subcommand
                        .add_flag("--watch{2}", options.seconds,
                                  "Call again and again, every 2 or --watch SECONDS (0.5), and mark what has "
                                  "changed; goes on when the node comes back")
                        ->check(secondsOfADay());
    subcommand.add_option("--count", options.count, "With --watch: stop behind N answers")
        ->check(oneOrMore())
        ->needs(options.watch);
}

void watch(Session& session, const WatchOptions& options, const std::function<Value()>& ask,
           const Render& render)
{
    Watched watched(session, render);
    const std::chrono::duration<double> interval(std::stod(options.seconds));
    for (std::uint64_t answers = 0;;) {
        try {
            watched.show(ask());
            ++answers;
        } catch (const Unreachable& failure) {
            if (answers == 0) {
                throw;
            }
            watched.showGone(failure);
        }
        if (answers == options.count && options.count != 0) {
            return;
        }
        std::this_thread::sleep_for(interval);
    }
}

void watchPicture(Session& session, const WatchOptions& options, const std::function<Value()>& ask,
                  const std::function<std::vector<Line>(const Value& answer)>& picture)
{
    std::vector<Line> before;
    watch(session, options, ask, [&](const Value& answer, const std::set<std::string>&) {
        std::vector<Line> lines = picture(answer);
        markChanges(before, lines);
        before = lines;
        return lines;
    });
}

} // namespace zyr_ctl
