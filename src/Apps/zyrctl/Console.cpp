#include "Console.h"

#include "Text.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <span>

#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace zyr_ctl
{

namespace
{

constexpr const char* kBold = "\x1b[1m";
constexpr const char* kRed = "\x1b[31m";
constexpr const char* kPlain = "\x1b[0m";
constexpr const char* kStartOfLine = "\r\x1b[K"; ///< of an empty line

bool canSteer(int descriptor)
{
    const char* const terminal = std::getenv("TERM");
    const bool isDumb = terminal != nullptr && std::string_view(terminal) == "dumb";
    return !isDumb && isatty(descriptor) == 1;
}

bool mayColour(int descriptor)
{
    const char* const noColour = std::getenv("NO_COLOR");
    const bool isForbidden = noColour != nullptr && *noColour != '\0';
    return !isForbidden && canSteer(descriptor);
}

winsize sizeOfTerminal()
{
    winsize size{};
    if (isatty(STDOUT_FILENO) != 1 || ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0) {
        return {};
    }
    return size;
}

// Keeps a terminal from showing what is typed.
class Unseen
{
  public:
    Unseen()
    {
        m_isSet = tcgetattr(STDIN_FILENO, &m_before) == 0;
        termios unseen = m_before;
        unseen.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        m_isSet = m_isSet && tcsetattr(STDIN_FILENO, TCSAFLUSH, &unseen) == 0;
    }
    ~Unseen()
    {
        if (m_isSet) {
            tcsetattr(STDIN_FILENO, TCSADRAIN, &m_before);
        }
    }
    Unseen(const Unseen&) = delete;
    Unseen& operator=(const Unseen&) = delete;

  private:
    termios m_before{};
    bool m_isSet;
};

} // namespace

Console::Console()
    : m_out(std::cout), m_error(std::cerr), m_colourOut(mayColour(STDOUT_FILENO)),
      m_colourError(mayColour(STDERR_FILENO)),
      m_canAsk(isatty(STDIN_FILENO) == 1 && isatty(STDERR_FILENO) == 1), m_canRedraw(canSteer(STDOUT_FILENO)),
      m_showsProgress(canSteer(STDERR_FILENO))
{}

void Console::print(const std::vector<std::string>& lines)
{
    for (const std::string& line : lines) {
        m_out << line << '\n';
    }
}

void Console::print(const std::vector<Line>& lines)
{
    for (const Line& line : lines) {
        m_out << (line.mayBeCut ? shortened(line.text, room()) : line.text) << '\n';
    }
}

void Console::printMarked(const Line& line, std::string_view end)
{
    const bool isBold = line.isChanged && m_colourOut;
    m_out << (isBold ? kBold : "") << (line.isChanged ? "* " : "  ") << line.text << (isBold ? kPlain : "")
          << end;
}

void Console::printMarked(const std::vector<Line>& lines)
{
    for (const Line& line : lines) {
        printMarked(line, "\n");
    }
}

void Console::redraw(const std::vector<Line>& lines)
{
    if (!m_canRedraw) {
        printMarked(lines);
        return;
    }
    constexpr std::size_t markWidth = 2;
    const winsize size = sizeOfTerminal();
    const std::size_t columns = size.ws_col > markWidth ? size.ws_col - markWidth : 0;
    const std::size_t rows = size.ws_row > 1 ? size.ws_row - 1U : lines.size();
    if (m_drawn > 0) {
        m_out << "\x1b[" << m_drawn << "A\r";
    }
    m_drawn = std::min(lines.size(), rows);
    for (Line line : std::span(lines).first(m_drawn)) {
        line.text = shortened(line.text, columns);
        printMarked(line, "\x1b[K\n");
    }
    m_out << "\x1b[J";
}

std::size_t Console::room() const
{
    return sizeOfTerminal().ws_col;
}

void Console::write(std::string_view text)
{
    m_out << text;
}

void Console::remark(const std::string& text)
{
    m_error << text << '\n';
    m_drawn = 0; // what was drawn may no longer stand where it was
}

void Console::progress(const std::string& text)
{
    if (m_showsProgress) {
        m_error << kStartOfLine << text << std::flush;
    }
}

void Console::endProgress()
{
    if (m_showsProgress) {
        m_error << kStartOfLine << std::flush;
    }
}

void Console::report(const Failure& failure, bool asJson)
{
    if (asJson) {
        m_error << indentedJson(failure.json()) << '\n';
        return;
    }
    m_error << (m_colourError ? kRed : "") << "zyrctl:" << (m_colourError ? kPlain : "") << ' '
            << printable(failure.line()) << '\n';
}

bool Console::isConfirmed(const std::string& question)
{
    m_error << question << " [y/N] " << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    const std::string small = lowerCase(answer);
    return small == "y" || small == "yes";
}

std::string Console::askSecretly(const std::string& question)
{
    std::string answer;
    {
        // Before the question: what is typed at its sight must neither show nor be lost.
        const Unseen unseen;
        m_error << question << ' ' << std::flush;
        std::getline(std::cin, answer);
    }
    m_error << '\n';
    return answer;
}

void Console::flush()
{
    if (!m_out.flush()) {
        throw usageFailure("standard output does not take the data");
    }
}

} // namespace zyr_ctl
