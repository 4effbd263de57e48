#pragma once

#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <string>

namespace benchmark_kinds
{

/// Kinds of calls by name; each makes so many calls.
using Kinds = std::map<std::string, std::function<void(long calls)>>;

/// What a program does whose instructions are counted: `PROGRAM KIND CALLS` makes so many calls of one kind
/// and ends.
inline int run(const Kinds& kinds, int argc, char** argv)
{
    if (argc != 3 || !kinds.contains(argv[1])) {
        std::cerr << "usage: " << argv[0] << " KIND CALLS, KIND being one of";
        for (const auto& kind : kinds) {
            std::cerr << " " << kind.first;
        }
        std::cerr << "\n";
        return 2;
    }
    kinds.at(argv[1])(std::atol(argv[2]));
    return 0;
}

} // namespace benchmark_kinds
