#pragma once

#include "Export.h"

#include <ctime>

namespace Util
{

/// The node's wall clock, as the C library gives it. The one in force can be replaced by the owner of the
/// process. May be called from any thread.
class ZYR_EXPORT SystemTimeApi
{
  public:
    virtual ~SystemTimeApi() = default;

    /// The wall clock in force.
    static SystemTimeApi& get();

    /// As `access` of the C library; asked whether the node has a device.
    /// @return 0 if so, -1 if not, with the reason in errno
    virtual int access(const char* path, int mode) = 0;

    /// As `time` of the C library: whole seconds since 1970.
    virtual std::time_t time() = 0;

    /// Sets the wall clock to a whole second. The host's refuses unless its owner has allowed it.
    /// @return 0 on success, -1 on failure with the reason in errno
    virtual int stime(const std::time_t* seconds) = 0;
};

} // namespace Util
