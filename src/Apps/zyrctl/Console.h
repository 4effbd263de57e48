#pragma once

#include "Failure.h"
#include "Rendering.h"

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace zyr_ctl
{

/// The terminal, or what stands in its place. Data goes to standard output, all else to standard error;
/// colours only to a terminal, and not with NO_COLOR in the environment.
class Console
{
  public:
    Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    /// Writes lines of data.
    void print(const std::vector<Line>& lines);
    void print(const std::vector<std::string>& lines);

    /// Writes lines of data with a mark before those that have changed.
    void printMarked(const std::vector<Line>& lines);

    /// Writes lines of data with marks in the place of those that it has written before; without a terminal
    /// below them. Lines that the terminal has no room for are left out.
    void redraw(const std::vector<Line>& lines);

    /// Whether `redraw` finds the place of what it has written before.
    bool canRedraw() const { return m_canRedraw; }

    /// The columns of the terminal that gets the data; 0: it is none, all lengths are fine.
    std::size_t room() const;

    /// Writes text as it is, as data.
    void write(std::string_view text);

    /// Writes a remark to standard error.
    void remark(const std::string& text);

    /// Shows how something goes on, in one line that the next one replaces; on a terminal only.
    void progress(const std::string& text);

    /// Takes the line of progress away.
    void endProgress();

    /// Writes a failure to standard error.
    void report(const Failure& failure, bool asJson);

    /// Whether there is somebody to ask: standard input and standard error are a terminal.
    bool canAsk() const { return m_canAsk; }

    /// Asks a question that is answered with yes or no; everything but y and yes is no.
    bool isConfirmed(const std::string& question);

    /// Asks for a text that isn't shown as it is typed.
    std::string askSecretly(const std::string& question);

    /// Brings all data out.
    /// @throws Failure (usage) if standard output did not take it
    void flush();

  private:
    void printMarked(const Line& line, std::string_view end);

    std::ostream& m_out;
    std::ostream& m_error;
    bool m_colourOut;
    bool m_colourError;
    bool m_canAsk;
    bool m_canRedraw;
    bool m_showsProgress;
    std::size_t m_drawn = 0; ///< lines above the cursor that `redraw` has written
};

} // namespace zyr_ctl
