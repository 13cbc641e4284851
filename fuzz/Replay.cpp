// Drives a fuzz target without the fuzzer's engine: every file of a corpus as it is, and then as
// many seeded changes of each. Deterministic, for the test run.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size);

namespace {

using Bytes = std::vector<uint8_t>;

Bytes changed(Bytes bytes, std::minstd_rand& random) {
    constexpr uint8_t kTelling[] = {0x00, 0x01, 0x7F, 0x80, 0xFF};
    for (int count = int(random() % 4) + 1; count > 0 && !bytes.empty(); --count) {
        const size_t at = random() % bytes.size();
        switch (random() % 5) {
            case 0:
                bytes[at] = uint8_t(random());
                break;
            case 1:
                bytes[at] = kTelling[random() % std::size(kTelling)];
                break;
            case 2:
                bytes[at] = uint8_t(bytes[at] ^ 1 << random() % 8);
                break;
            case 3:
                bytes.resize(at);
                break;
            default: {
                const Bytes part(bytes.begin() + int64_t(at), bytes.end());
                bytes.insert(bytes.end(), part.begin(), part.end());
            }
        }
    }
    return bytes;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s CORPUS CHANGES\n", argv[0]);
        return 2;
    }
    std::set<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
        files.insert(entry.path());
    }
    const int changes = std::atoi(argv[2]);
    for (const auto& file : files) {
        std::ifstream stream(file, std::ios::binary);
        const Bytes seed{std::istreambuf_iterator<char>(stream), {}};
        LLVMFuzzerTestOneInput(seed.data(), seed.size());
        std::minstd_rand random(1);
        for (int i = 0; i < changes; ++i) {
            const Bytes bytes = changed(seed, random);
            LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
        }
    }
    std::printf("%zu files, %d changes each\n", files.size(), changes);
    return files.empty();
}
