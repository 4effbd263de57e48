#pragma once

#include <string>
#include <string_view>

namespace zyr_simulation
{

/// Writes a file into the folder that the node may write to, in the place of one that is there already. It is
/// there whole or not at all.
/// @param folder  empty: the node may not write
/// @param name    without a path: one that is empty or holds a slash or two dots in a row is refused
/// @return whether the file was written
bool writeStateFile(const std::string& folder, std::string_view name, std::string_view text);

} // namespace zyr_simulation
