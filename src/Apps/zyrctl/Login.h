#pragma once

#include "Client.h"
#include "Console.h"

#include <optional>
#include <string>

namespace zyr_ctl
{

/// The content of a file that nobody but its owner may read or write.
/// @param what  what the file is, for the text of a failure: "credentials file"
/// @throws Failure (usage) if it can't be read, isn't a regular file, or is open to others
std::string contentOfPrivateFile(const std::string& what, const std::string& path);

using Login = zyr_gateway::ClientOptions::Login;

/// Takes a user's line out of a credentials file: lines of the form user:password, blank ones and those that
/// begin with # skipped.
/// @param user  empty: the first line's
/// @return none if the file doesn't name the user
std::optional<Login> loginIn(const std::string& content, const std::string& user);

/// Finds out who calls.
/// @param user  "name", "name:password", or empty
/// @param file  path of a credentials file that its owner alone can read, or empty
/// @return none if neither is given
/// @throws Failure (usage) if the file can't be used, or if a password is missing and there is nobody to ask
std::optional<Login> findLogin(const std::string& user, const std::string& file, Console& console);

} // namespace zyr_ctl
