#include "Programs.h"

#include <strings.h>

#include <algorithm>
#include <cstdio>
#include <utility>

#include "NameDistance.h"
#include "Numbers.h"
#include "PluginLocation.h"
#include "Texts.h"
#include "UserError.h"

namespace tessel8::host {

namespace {

/// More than these are not asked for, in case an effect never says that there is no more.
constexpr int32_t kMostPrograms = 140;

constexpr intptr_t kAnyCategory = -1;

bool isNumber(std::string_view text) {
    const size_t sign = text.starts_with('-') ? 1 : 0;
    return text.size() > sign &&
           text.find_first_not_of("0123456789", sign) == std::string_view::npos;
}

/// Smaller is nearer. Names are long, so a text may well be a part of one; the rest of the name
/// counts only among equals.
std::pair<size_t, size_t> farness(std::string_view text, std::string_view name) {
    const size_t whole = nameDistance(text, name);
    size_t part = whole;
    for (size_t from = 0; from < name.size(); ++from) {
        part = std::min(part, nameDistance(text, name.substr(from, text.size())));
    }
    return {part, whole};
}

void printRow(const std::string& number, const std::string& name) {
    std::printf("%6s  %s\n", number.c_str(), name.c_str());
}

}  // namespace

Programs::Programs(const Plugin& plugin) {
    for (int32_t index = 0; index < kMostPrograms; ++index) {
        const auto name = plugin.textIfAny(effGetProgramNameIndexed, index, kAnyCategory);
        if (!name) {
            break;
        }
        names_.push_back(*name);
    }
    if (names_.empty()) {
        throw UserError("the plug-in names no programs");
    }
}

int32_t Programs::find(std::string_view text) const {
    if (isNumber(text)) {
        return parseWholeNumber(text, {0, double(names_.size() - 1)}, "--program");
    }
    const std::string wanted(text);
    auto found = std::find(names_.begin(), names_.end(), wanted);
    if (found == names_.end()) {
        found = std::find_if(names_.begin(), names_.end(), [&](const std::string& name) {
            return strcasecmp(name.c_str(), wanted.c_str()) == 0;
        });
    }
    if (found == names_.end()) {
        constexpr size_t kLongestCompared = 64;  // far beyond any name, and soon done
        const std::string_view compared = text.substr(0, kLongestCompared);
        const auto nearest = std::min_element(
            names_.begin(), names_.end(), [&](const std::string& a, const std::string& b) {
                return farness(compared, a) < farness(compared, b);
            });
        throw UserError("unknown program " + inQuotes(text) + "; did you mean " +
                        inQuotes(*nearest) + "? \"tessel8 list --programs\" shows them all");
    }
    return int32_t(found - names_.begin());
}

void listPrograms(const std::filesystem::path& file) {
    Transport transport;
    const Plugin plugin(pluginFile(file), transport);
    const Programs programs(plugin);
    printRow("number", "name");
    for (size_t index = 0; index < programs.names().size(); ++index) {
        printRow(std::to_string(index), programs.names()[index]);
    }
}

}  // namespace tessel8::host
