#pragma once

#include "Rendering.h"

#include <string>
#include <vector>

/// The texts of a picture's lines, each on a line of its own behind an empty one, as raw literals have them.
inline std::string joined(const std::vector<zyr_ctl::Line>& lines)
{
    std::string text = "\n";
    for (const zyr_ctl::Line& line : lines) {
        text += line.text + "\n";
    }
    return text;
}
