#pragma once

#include "Reference.h"

#include <span>

namespace zyr_gateway
{

/// The methods that every `XmlRpcServer` has, in the order of their names.
std::span<const zyr_registration::PlainMethodNotes> systemMethodNotes();

} // namespace zyr_gateway
