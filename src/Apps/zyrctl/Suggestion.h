#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zyr_ctl
{

/// How many letters have to be put in, taken out, replaced or swapped with their neighbour to make one word
/// of the other. Capitals and small letters are alike.
std::size_t editDistance(std::string_view one, std::string_view other);

/// The candidates that somebody who typed the word may have meant, the nearest first, three at most: those
/// that a few slips explain and those that contain the word.
std::vector<std::string> suggestions(std::string_view word, const std::vector<std::string>& candidates);

/// "; did you mean "EnableAcm"?", or nothing if no candidate is near.
std::string didYouMean(std::string_view word, const std::vector<std::string>& candidates);

} // namespace zyr_ctl
