#include "Subcommands.h"

namespace zyr_ctl
{

void addSubcommands(CLI::App& app, Session& session)
{
    addCallCommand(app, session);
    addHelpCommand(app, session);
    addListCommand(app, session);
    addEventsCommand(app, session);
    addPictureCommands(app, session);
    addTapsCommand(app, session);
    addSpectrumCommand(app, session);
    addSecondStreamCommands(app, session);
    addEncryptCommand(app, session);
    addRestartCommands(app, session);
    addTimingCommands(app, session);
    addCompletionCommand(app, session);
}

} // namespace zyr_ctl
