#pragma once

// The built-in driver the fuzz targets use when they are not linked with
// libFuzzer: inputs come from a fixed seed, so any finding replays exactly with
// the same two arguments (runs, seed).

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace fuzzdriver {

template <size_t N>
const char *pick(std::mt19937 &rng, const char *const (&items)[N])
{
    return items[rng() % N];
}

// The edits every target makes to its seeds: replace a byte, insert one of the
// target's own characters, erase a run, or cut the input short.
template <size_t N>
void edit(std::mt19937 &rng, std::string &s, const char (&alphabet)[N], size_t longestErase = 8)
{
    const size_t pos = s.empty() ? 0 : rng() % (s.size() + 1);
    switch (rng() % 4) {
    case 0:
        if (!s.empty())
            s[pos % s.size()] = char(rng() % 256);
        break;
    case 1:
        s.insert(pos, 1, alphabet[rng() % (N - 1)]);
        break;
    case 2:
        if (!s.empty())
            s.erase(pos % s.size(), rng() % longestErase);
        break;
    default:
        s.resize(pos);
        break;
    }
}

// Bytes with no shape at all, for the readers that take lines off a wire.
inline std::string noise(std::mt19937 &rng, size_t longest)
{
    std::string s(rng() % longest, '\0');
    for (char &c : s)
        c = char(rng() % 256);
    return s;
}

// Feeds `make`'s inputs to the target: argv[1] runs (default `runs`), argv[2]
// the seed (default `seed`). `what` names what was read, for the summary line.
inline int run(int argc, char **argv, unsigned long runs, unsigned long seed, const char *what,
               const std::function<std::string(std::mt19937 &)> &make)
{
    if (argc > 1)
        runs = std::strtoul(argv[1], nullptr, 10);
    if (argc > 2)
        seed = std::strtoul(argv[2], nullptr, 10);
    std::mt19937 rng(seed);
    unsigned long bytes = 0;
    for (unsigned long i = 0; i < runs; ++i) {
        const std::string input = make(rng);
        bytes += input.size();
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(input.data()), input.size());
    }
    std::printf("%lu %s (%lu bytes, seed %lu) without a finding\n", runs, what, bytes, seed);
    return 0;
}

} // namespace fuzzdriver
