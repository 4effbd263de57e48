#pragma once

/// Keeps a class, a function or an exception type visible outside the shared object.
///
/// The library is built with hidden visibility. A type that is found by `dynamic_cast` or caught as an
/// exception on the other side of a shared object's border needs one type information for the whole process,
/// and a function that another module calls needs an exported symbol. This is the one use of a macro: an
/// attribute can't be put behind a name in another way.
#define ZYR_EXPORT __attribute__((visibility("default")))
