#pragma once

#include "Export.h"

#include <ctime>

namespace Util
{

/// Sets the node's wall clock to a whole second. The host platform refuses unless its owner has allowed it.
/// @return 0 on success, -1 on failure with the reason in errno
ZYR_EXPORT int stime(const std::time_t* seconds);

} // namespace Util
