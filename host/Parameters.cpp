#include "Parameters.h"

#include <strings.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <numeric>

#include "NameDistance.h"
#include "Numbers.h"
#include "Texts.h"
#include "UserError.h"

namespace tessel8::host {

namespace {

constexpr Range kNormalised{0, 1};

/// Parameters whose value is a plain number in place of a fraction of their range.
struct PlainNumber {
    const char* name;
    Range range;
};
constexpr std::array<PlainNumber, 2> kPlainNumbers = {{
    {"ZoomDel", {0, 18}},
    {"ModeFB", {0, 2}},
}};

bool sameName(const std::string& a, const std::string& b) {
    return strcasecmp(a.c_str(), b.c_str()) == 0;
}

Range rangeOf(const std::string& name) {
    for (const PlainNumber& plain : kPlainNumbers) {
        if (sameName(name, plain.name)) {
            return plain.range;
        }
    }
    return kNormalised;
}

}  // namespace

Parameters::Parameters(const Plugin& plugin) {
    for (int32_t index = 0; index < plugin.record().numParams; ++index) {
        names_.push_back(plugin.text(effGetParamName, index));
    }
}

Setting Parameters::parse(std::string_view text) const {
    const size_t equals = text.find('=');
    if (equals == std::string_view::npos) {
        throw UserError("--set " + std::string(text) + ": expected Name=value");
    }
    const int32_t index = find(text.substr(0, equals));
    const std::string& name = names_[size_t(index)];
    const double value = parseNumber(text.substr(equals + 1), rangeOf(name), "--set " + name);
    return {index, float(value)};
}

int32_t Parameters::find(std::string_view name) const {
    if (name.starts_with('#')) {
        return findIndex(name.substr(1));
    }
    const auto found = std::find_if(names_.begin(), names_.end(), [&](const std::string& known) {
        return sameName(known, std::string(name));
    });
    if (found == names_.end()) {
        throw UserError("unknown parameter " + inQuotes(name) + suggestion(name));
    }
    return int32_t(found - names_.begin());
}

int32_t Parameters::findIndex(std::string_view digits) const {
    uint32_t index = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, index);
    if (error != std::errc() || stop != end || index >= names_.size()) {
        throw UserError("unknown parameter " + inQuotes("#" + std::string(digits)) +
                        ": the effect has " + std::to_string(names_.size()) + ", counted from #0");
    }
    return int32_t(index);
}

std::string Parameters::suggestion(std::string_view name) const {
    constexpr size_t kMostSuggestions = 3;
    // Two slips, or one in a short name: more would suggest names that have nothing to do with it.
    const size_t tolerance = name.size() < 4 ? 1 : 2;

    std::vector<std::pair<size_t, const std::string*>> near;
    for (const std::string& known : names_) {
        const size_t distance = nameDistance(name, known);
        if (distance <= tolerance) {
            near.emplace_back(distance, &known);
        }
    }
    // Stable: among equally near names the effect's own order stays.
    std::stable_sort(near.begin(), near.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    near.resize(std::min(near.size(), kMostSuggestions));

    std::string text =
        near.empty() ? "; \"tessel8 list --params\" shows them all" : "; did you mean ";
    for (size_t i = 0; i < near.size(); ++i) {
        text += (i == 0 ? "" : ", ") + *near[i].second;
    }
    return near.empty() ? text : text + "?";
}

}  // namespace tessel8::host
