#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

/// What a server did under a load.
struct LoadResult
{
    double requestsPerSecond = 0;
    std::vector<std::uint32_t> nanoseconds; ///< of each request, sorted

    /// The time in microseconds within which this share of the requests was answered.
    [[nodiscard]] double quantile(double share) const;
};

/// Keep-alive clients, all on one thread, that send the same document again and again, each as soon as it has
/// its answer.
/// @throws std::runtime_error when an answer is no 200
LoadResult load(std::uint16_t port, unsigned clients, const std::string& body,
                std::chrono::milliseconds time);
