#pragma once

#include <string_view>

// What shells have to load: the files of the folder completion.

namespace zyr_ctl
{

std::string_view bashCompletionScript();
std::string_view zshCompletionScript();
std::string_view fishCompletionScript();

} // namespace zyr_ctl
