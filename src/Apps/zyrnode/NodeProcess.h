#pragma once

#include "Options.h"

namespace zyr_node
{

/// Runs the node until SIGTERM or SIGINT comes, and then stops it with grace; a second signal ends the
/// process at once. SIGHUP opens the trace file anew and reads the credentials anew; what cannot be read
/// leaves the old ones in force and is told on standard error. To be called on the main thread, before there
/// are others.
///
/// The first line on standard output tells where the node listens.
/// @throws std::exception of various kinds if the node can't start; the text says why
void runNode(const Options& options);

} // namespace zyr_node
