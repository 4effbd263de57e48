// Loads the shared libraries that are named, one behind the other, and prints how many microseconds that
// took.

#include <chrono>
#include <cstdio>

#include <dlfcn.h>

int main(int argc, char** argv)
{
    const auto start = std::chrono::steady_clock::now();
    for (int library = 1; library < argc; ++library) {
        if (dlopen(argv[library], RTLD_NOW | RTLD_GLOBAL) == nullptr) {
            std::fprintf(stderr, "%s\n", dlerror());
            return 1;
        }
    }
    const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
    std::printf("%.0f\n", taken.count());
    return 0;
}
