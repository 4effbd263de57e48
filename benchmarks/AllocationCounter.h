#pragma once

/// Allocations of this process so far, by operator new.
long allocationCount();
