// Without libFuzzer: reads the files of a folder as they are, and then as many mutations of them as are asked
// for, made of them and of the words of a dictionary. The same numbers give the same inputs. With a file in
// the place of the folder, that file alone.

#include "Fuzz.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace
{

std::string contentOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "cannot read %s\n", path.c_str());
        std::exit(2);
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string> seedsIn(const std::filesystem::path& path)
{
    std::vector<std::filesystem::path> files{path};
    if (std::filesystem::is_directory(path)) {
        files.assign(std::filesystem::directory_iterator(path), {});
        std::ranges::sort(files);
    }
    std::vector<std::string> seeds;
    std::ranges::transform(files, std::back_inserter(seeds), &contentOf);
    return seeds;
}

// What stands between the quotes of a line of the dictionary, as libFuzzer reads it: name="a\x20\\\"b".
std::string wordIn(std::string_view line)
{
    const std::size_t begin = line.find('"') + 1;
    line = line.substr(begin, line.rfind('"') - begin);
    std::string word;
    while (!line.empty()) {
        std::size_t length = 1;
        char c = line.front();
        if (line.starts_with("\\x")) {
            unsigned char code = 0;
            std::from_chars(line.data() + 2, line.data() + 4, code, 16);
            c = static_cast<char>(code);
            length = 4;
        } else if (c == '\\') {
            c = line[1];
            length = 2;
        }
        word += c;
        line.remove_prefix(length);
    }
    return word;
}

std::vector<std::string> wordsOf(const std::string& dictionary)
{
    std::vector<std::string> words;
    for (const std::string_view line : zyr_fuzz::linesOf(dictionary)) {
        if (!line.empty() && !line.starts_with('#')) {
            words.push_back(wordIn(line));
        }
    }
    return words;
}

class Mutations
{
  public:
    Mutations(const std::vector<std::string>& seeds, const std::vector<std::string>& words,
              unsigned long seed)
        : m_seeds(seeds), m_words(words), m_random(seed)
    {}

    std::string next()
    {
        std::string input = oneOf(m_seeds);
        for (std::size_t rounds = 1 + below(6); rounds > 0; --rounds) {
            mutate(input);
        }
        return input;
    }

  private:
    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(m_random() % limit); }

    const std::string& oneOf(const std::vector<std::string>& texts) { return texts[below(texts.size())]; }

    void mutate(std::string& input)
    {
        const std::size_t at = below(input.size() + 1);
        const std::size_t length = below(24);
        switch (below(6)) {
        case 0:
            input.insert(at, oneOf(m_words));
            break;
        case 1:
            input.erase(at, length);
            break;
        case 2:
            input.replace(at, std::min<std::size_t>(1, input.size() - at), 1, static_cast<char>(below(256)));
            break;
        case 3:
            input.insert(below(input.size() + 1), std::string(input, at, length * 4));
            break;
        case 4:
            input.insert(at, std::string(oneOf(m_seeds)).substr(0, length * 4));
            break;
        default:
            input.replace(at, std::min(length, input.size() - at), oneOf(m_words));
        }
    }

    const std::vector<std::string>& m_seeds;
    const std::vector<std::string>& m_words;
    std::mt19937_64 m_random;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc < 4) {
        std::fprintf(stderr, "usage: %s SEEDS DICTIONARY COUNT [NUMBER]\n", argv[0]);
        return 2;
    }
    const std::vector<std::string> seeds = seedsIn(argv[1]);
    const std::vector<std::string> words = wordsOf(contentOf(argv[2]));
    const unsigned long count = std::strtoul(argv[3], nullptr, 10);
    const unsigned long number = argc > 4 ? std::strtoul(argv[4], nullptr, 10) : 1;
    for (const std::string& seed : seeds) {
        zyr_fuzz::consume(seed);
    }
    Mutations mutations(seeds, words, number);
    for (unsigned long i = 0; i < count; ++i) {
        zyr_fuzz::consume(mutations.next());
    }
    std::printf("%zu seeds and %lu mutations, number %lu: no property broken\n", seeds.size(), count, number);
    return 0;
}
