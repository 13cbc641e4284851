#include "Info.h"

#include <array>
#include <bit>
#include <cstdio>
#include <string>

#include "Plugin.h"
#include "Texts.h"

namespace tessel8::host {

namespace {

struct FlagWord {
    int32_t flag;
    const char* word;
};
constexpr std::array<FlagWord, 6> kFlagWords = {{
    {effFlagsHasEditor, "editor"},
    {effFlagsCanReplacing, "replacing"},
    {effFlagsProgramChunks, "chunks"},
    {1 << 8, "synthesiser"},
    {1 << 9, "silent when stopped"},
    {effFlagsCanDoubleReplacing, "double precision"},
}};

constexpr std::array<const char*, 12> kCategories = {
    "unknown", "effect",   "synthesiser", "analysis", "mastering", "spatial",
    "room",    "surround", "restoration", "offline",  "shell",     "generator",
};

std::string flagWords(int32_t flags) {
    std::string words;
    const auto append = [&](const std::string& word) {
        words += (words.empty() ? "" : ", ") + word;
    };
    for (const FlagWord& entry : kFlagWords) {
        if ((flags & entry.flag) != 0) {
            append(entry.word);
            flags &= ~entry.flag;
        }
    }
    for (auto rest = uint32_t(flags); rest != 0; rest &= rest - 1) {
        append("bit " + std::to_string(std::countr_zero(rest)));
    }
    return words.empty() ? "none" : words;
}

std::string categoryName(intptr_t category) {
    const bool known = category >= 0 && size_t(category) < kCategories.size();
    return known ? kCategories[size_t(category)] : std::to_string(category);
}

std::string hex(int32_t number) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%08X", uint32_t(number));
    return text.data();
}

std::string fourCharacterText(int32_t id) {
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8) {
        text += char(uint32_t(id) >> shift & 0xFF);
    }
    return printable(text);
}

/// 2400 is written 2.4; hosts before 2.0 answer with a single digit or not at all.
std::string versionText(intptr_t version) {
    if (version < 1000) {
        return version == 0 ? "not told" : std::to_string(version);
    }
    return std::to_string(version / 1000) + "." + std::to_string(version % 1000 / 100);
}

std::string tailText(intptr_t frames) {
    switch (frames) {
        case 0:
            return "not told";
        case 1:
            return "none";
        default:
            return std::to_string(frames) + " frames";
    }
}

void row(const char* subject, const std::string& text) {
    std::printf("%-14s %s\n", subject, text.c_str());
}

}  // namespace

void printInfo(const std::filesystem::path& file) {
    Transport transport;
    const Plugin plugin(file, transport);
    const AEffect& record = plugin.record();
    const auto vendorVersion = int32_t(plugin.dispatch(effGetVendorVersion));
    row("name", plugin.text(effGetEffectName));
    row("vendor", plugin.text(effGetVendorString));
    row("product", plugin.text(effGetProductString));
    row("version", std::to_string(vendorVersion) + " (" + hex(vendorVersion) + ")");
    row("unique id", fourCharacterText(record.uniqueID) + " (" + hex(record.uniqueID) + ")");
    row("inputs", std::to_string(record.numInputs));
    row("outputs", std::to_string(record.numOutputs));
    row("parameters", std::to_string(record.numParams));
    row("programs", std::to_string(record.numPrograms));
    row("flags", flagWords(record.flags));
    row("category", categoryName(plugin.dispatch(effGetPlugCategory)));
    row("VST version", versionText(plugin.dispatch(effGetVstVersion)));
    row("initial delay", std::to_string(record.initialDelay) + " frames");
    row("tail", tailText(plugin.dispatch(effGetTailSize)));
}

}  // namespace tessel8::host
