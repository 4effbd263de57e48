#pragma once

#include <string>
#include <vector>

namespace zyr_ctl
{

/// A node as a file names it. What is empty isn't told.
struct NamedNode
{
    std::string name;
    std::string url;
    std::string user;
    std::string credentialsFile; ///< path
    std::string caFile;          ///< path
};

/// Where the named nodes stand: the file that ZYR_NODES names, else zyrctl/nodes.ini in the user's folder of
/// settings.
std::string nodesFile();

/// Reads named nodes, an INI file with a section for each: url, user, credentials, ca. Paths that don't begin
/// with a slash begin in the file's folder.
/// @throws Failure (usage) if the file can't be read or holds anything else
std::vector<NamedNode> readNodes(const std::string& path);

/// @throws Failure (usage) if the file doesn't name such a node
NamedNode findNode(const std::string& path, const std::string& name);

} // namespace zyr_ctl
