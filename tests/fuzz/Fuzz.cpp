#include "Fuzz.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace zyr_fuzz
{

void require(bool holds, const char* property, std::string_view input)
{
    if (!holds) {
        std::fprintf(stderr, "broken: %s, with the input:\n%.*s\n", property, static_cast<int>(input.size()),
                     input.data());
        std::abort();
    }
}

std::vector<std::string_view> linesOf(std::string_view input)
{
    std::vector<std::string_view> lines;
    for (std::size_t end = 0; (end = input.find('\n')) != std::string_view::npos;) {
        lines.push_back(input.substr(0, end));
        input.remove_prefix(end + 1);
    }
    lines.push_back(input);
    return lines;
}

} // namespace zyr_fuzz

// The name is libFuzzer's.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) // NOLINT(readability-*)
{
    zyr_fuzz::consume({reinterpret_cast<const char*>(data), size});
    return 0;
}
