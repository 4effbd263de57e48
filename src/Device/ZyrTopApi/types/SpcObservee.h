#pragma once

#include "Export.h"

/// Marks a power control object that others may observe. The observing itself is the power control module's
/// affair; here the class only gives such an object its second base.
template <class Observed>
class ZYR_EXPORT SpcObservee
{
  public:
    virtual ~SpcObservee() = default;
};
