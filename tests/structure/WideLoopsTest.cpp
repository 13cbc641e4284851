// The sample loops for wider instruction sets are compiled from shared headers. An inline function
// of such a header that came out of their object under a common name could be the one the linker
// keeps for everybody, and would stop an older processor at its first wide instruction.

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace {

/// What a shell command prints, line by line.
std::vector<std::string> linesOf(const std::string& command) {
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::vector<std::string> lines;
    std::array<char, 4096> line{};
    while (pipe && std::fgets(line.data(), int(line.size()), pipe.get())) {
        lines.emplace_back(line.data());
    }
    return lines;
}

TEST(WideLoops, ShareNoFunctionWithTheRestOfTheProgram) {
    struct Object {
        const char* set;
        const char* file;
    };
    constexpr Object kObjects[] = {{"avx2", TESSEL8_AVX2_OBJECT},
                                   {"avx512", TESSEL8_AVX512_OBJECT}};
    for (const Object& object : kObjects) {
        const auto symbols = linesOf(std::string("nm -C --defined-only ") + object.file);
        EXPECT_FALSE(symbols.empty()) << object.file;
        for (const std::string& symbol : symbols) {
            const bool shared = symbol.find(" W ") != std::string::npos ||
                                symbol.find(" V ") != std::string::npos ||
                                symbol.find(" T ") != std::string::npos;
            EXPECT_TRUE(!shared || symbol.find(object.set) != std::string::npos) << symbol;
        }
    }
}

}  // namespace
