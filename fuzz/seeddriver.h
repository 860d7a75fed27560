#pragma once

// The built-in driver of the cloud targets: without libFuzzer, each input is a
// few of the target's seeds joined and then damaged, from a fixed random seed,
// so a run can be repeated exactly.
//   <target> [RUNS [SEED]]

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace seeddriver {

inline std::string makeInput(std::mt19937 &rng, const std::vector<std::string> &seeds, const std::string &alphabet)
{
    std::string s;
    for (int i = int(rng() % 4); i >= 0; --i)
        s += seeds[rng() % seeds.size()];
    for (int e = int(rng() % 8); e > 0; --e) {
        const size_t pos = s.empty() ? 0 : rng() % (s.size() + 1);
        switch (rng() % 6) {
        case 0:
            if (!s.empty())
                s[pos % s.size()] = char(rng() % 256);
            break;
        case 1:
            s.insert(pos, 1, alphabet[rng() % alphabet.size()]);
            break;
        case 2:
            if (!s.empty())
                s.erase(pos % s.size(), rng() % 16);
            break;
        case 3:
            s.insert(pos, seeds[rng() % seeds.size()]);
            break;
        case 4:
            s.insert(pos, std::string(rng() % 300, alphabet[rng() % alphabet.size()]));
            break;
        default:
            s.resize(pos);
            break;
        }
    }
    return s;
}

inline int run(int argc, char **argv, const std::vector<std::string> &seeds, const std::string &alphabet)
{
    const unsigned long runs = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 100000UL;
    const unsigned long seed = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 20240101UL;
    std::mt19937 rng(seed);
    unsigned long bytes = 0;
    for (unsigned long i = 0; i < runs; ++i) {
        const std::string input = makeInput(rng, seeds, alphabet);
        bytes += input.size();
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(input.data()), input.size());
    }
    std::printf("read %lu inputs (%lu bytes, seed %lu) without a finding\n", runs, bytes, seed);
    return 0;
}

// Ends the run with the input that broke a rule, for a test to be made of it.
inline void finding(const char *rule, const uint8_t *data, size_t size)
{
    std::fprintf(stderr, "finding: %s\ninput (%zu bytes):\n", rule, size);
    std::fwrite(data, 1, size, stderr);
    std::fputc('\n', stderr);
    std::abort();
}

} // namespace seeddriver
