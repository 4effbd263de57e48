#include "Suggestion.h"

#include "Text.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace zyr_ctl
{

namespace
{

constexpr std::size_t kMostSuggestions = 3;

// How far a candidate is from what was typed; a candidate that contains it is nearer than one with a slip.
struct Ranked
{
    std::size_t distance;
    const std::string* candidate;
};

bool isNear(std::size_t distance, std::size_t length)
{
    return distance <= (length + 1) / 3;
}

std::vector<Ranked> ranked(std::string_view word, const std::vector<std::string>& candidates)
{
    const std::string wanted = lowerCase(word);
    std::vector<Ranked> near;
    for (const std::string& candidate : candidates) {
        const std::string offered = lowerCase(candidate);
        const std::size_t distance = editDistance(wanted, offered);
        if (wanted.size() >= 3 && offered.find(wanted) != std::string::npos) {
            near.push_back({0, &candidate});
        } else if (isNear(distance, wanted.size())) {
            near.push_back({distance, &candidate});
        }
    }
    std::ranges::stable_sort(near, {}, &Ranked::distance);
    return near;
}

} // namespace

std::size_t editDistance(std::string_view one, std::string_view other)
{
    const std::string a = lowerCase(one);
    const std::string b = lowerCase(other);
    std::vector<std::size_t> older(b.size() + 1);
    std::vector<std::size_t> previous(b.size() + 1);
    std::vector<std::size_t> current(b.size() + 1);
    std::iota(previous.begin(), previous.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        current[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = previous[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            current[j] = std::min({replaced, previous[j] + 1, current[j - 1] + 1});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                current[j] = std::min(current[j], older[j - 2] + 1);
            }
        }
        std::swap(older, previous);
        std::swap(previous, current);
    }
    return previous.back();
}

std::vector<std::string> suggestions(std::string_view word, const std::vector<std::string>& candidates)
{
    std::vector<std::string> chosen;
    for (const Ranked& near : ranked(word, candidates)) {
        if (chosen.size() < kMostSuggestions) {
            chosen.push_back(*near.candidate);
        }
    }
    return chosen;
}

std::string didYouMean(std::string_view word, const std::vector<std::string>& candidates)
{
    std::vector<std::string> near;
    for (const std::string& candidate : suggestions(word, candidates)) {
        near.push_back(inQuotes(candidate));
    }
    return near.empty() ? "" : "; did you mean " + alternatives(near) + "?";
}

} // namespace zyr_ctl
