#pragma once

#include <string>

namespace zyr_top_api
{

/// One entry of the catalogue of commands.
struct CmdDescription
{
    std::string name;        ///< The command's name.
    std::string description; ///< What it does, in free text.
};

} // namespace zyr_top_api
