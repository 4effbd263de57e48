#include "NamedNodes.h"

#include "Failure.h"
#include "Suggestion.h"
#include "Text.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <utility>

namespace zyr_ctl
{

namespace
{

constexpr std::array<std::pair<const char*, std::string NamedNode::*>, 4> kSettings{{
    {"url", &NamedNode::url},
    {"user", &NamedNode::user},
    {"credentials", &NamedNode::credentialsFile},
    {"ca", &NamedNode::caFile},
}};

std::vector<CLI::ConfigItem> itemsOf(const std::string& path)
{
    std::ifstream file(path);
    if (!file) {
        throw usageFailure("cannot read the file of named nodes " + path);
    }
    try {
        return CLI::ConfigINI().from_config(file);
    } catch (const std::exception& error) {
        throw usageFailure(path + " is no INI file: " + error.what());
    }
}

NamedNode& nodeOf(std::vector<NamedNode>& nodes, const std::string& name)
{
    const auto found = std::ranges::find(nodes, name, &NamedNode::name);
    if (found != nodes.end()) {
        return *found;
    }
    nodes.push_back({name, {}, {}, {}, {}});
    return nodes.back();
}

// The beginning and the end of a section are items of their own.
bool isMark(const CLI::ConfigItem& item)
{
    return item.name == "++" || item.name == "--";
}

void checkNode(const std::string& path, const NamedNode& node)
{
    if (node.url.empty()) {
        throw usageFailure(path + ": the node " + inQuotes(node.name) + " has no url");
    }
    if (node.user.find(':') != std::string::npos) {
        throw usageFailure(path + ": a password has no place here; name a file with it: credentials = FILE");
    }
}

} // namespace

std::string nodesFile()
{
    std::string named = environment("ZYR_NODES");
    if (!named.empty()) {
        return named;
    }
    const std::string settings = environment("XDG_CONFIG_HOME");
    return (settings.empty() ? environment("HOME") + "/.config" : settings) + "/zyrctl/nodes.ini";
}

std::vector<NamedNode> readNodes(const std::string& path)
{
    std::vector<NamedNode> nodes;
    for (const CLI::ConfigItem& item : itemsOf(path)) {
        if (isMark(item)) {
            continue;
        }
        const auto* const setting =
            std::ranges::find_if(kSettings, [&](const auto& row) { return row.first == item.name; });
        if (item.parents.size() != 1 || setting == kSettings.end() || item.inputs.size() != 1) {
            throw usageFailure(path + ": cannot take " + inQuotes(item.fullname()) +
                               "; it takes [NAME] and below it url, user, credentials and ca = VALUE");
        }
        nodeOf(nodes, item.parents.front()).*(setting->second) = item.inputs.front();
    }
    const auto folder = std::filesystem::path(path).parent_path();
    for (NamedNode& node : nodes) {
        checkNode(path, node);
        for (std::string* const file : {&node.credentialsFile, &node.caFile}) {
            *file = file->empty() ? "" : (folder / *file).string();
        }
    }
    return nodes;
}

NamedNode findNode(const std::string& path, const std::string& name)
{
    const std::vector<NamedNode> nodes = readNodes(path);
    const auto found = std::ranges::find(nodes, name, &NamedNode::name);
    if (found != nodes.end()) {
        return *found;
    }
    std::vector<std::string> names;
    std::ranges::transform(nodes, std::back_inserter(names), &NamedNode::name);
    const std::string hint = didYouMean(name, names);
    throw usageFailure(path + " names no node " + inQuotes(name) +
                       (hint.empty() && !names.empty() ? ", it names " + commaList(names) : hint));
}

} // namespace zyr_ctl
