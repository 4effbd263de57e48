#include "Log.h"

namespace zyr_top_api::detail
{

void logBuilt(const TylTrace& trace, TylTraceLevel level, const TylTraceHeader& header, TextSource source)
{
    TextWriter text;
    source.write(source.callable, text);
    trace.logMsg(level, header, text.view());
}

void logEnterBuilt(const TylTrace& trace, const TylTraceHeader& header, TextSource source)
{
    TextWriter text;
    source.write(source.callable, text);
    trace.logEnterMsg(header, text.view());
}

} // namespace zyr_top_api::detail
