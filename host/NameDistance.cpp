#include "NameDistance.h"

#include <algorithm>
#include <cctype>
#include <numeric>
#include <vector>

namespace tessel8::host {

namespace {

bool sameLetter(char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) ==
           std::tolower(static_cast<unsigned char>(b));
}

}  // namespace

size_t nameDistance(std::string_view a, std::string_view b) {
    // row[j]: distance between the letters of `a` seen so far and the first j letters of `b`.
    std::vector<size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), size_t(0));
    for (const char letter : a) {
        size_t diagonal = row[0]++;
        for (size_t j = 1; j < row.size(); ++j) {
            const size_t replaced = diagonal + (sameLetter(letter, b[j - 1]) ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
        }
    }
    return row.back();
}

}  // namespace tessel8::host
