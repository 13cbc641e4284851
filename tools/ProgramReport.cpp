// program_report [FIRST LAST]: a Markdown report on the factory's programs. Each is played with a
// drum loop and a chord, measured, and flagged where it is silent, loud, unstable or the same as
// another. Ends with 1 where a flag was raised, with 2 where the command line is wrong.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "presets/factory/FactoryBank.h"
#include "tools/Measures.h"
#include "tools/Renderer.h"

namespace tessel8::tools {
namespace {

constexpr double kSilentBelow = -60.0;  ///< dBFS, RMS
constexpr double kLoudAbove = 6.0;      ///< dB, peak over the input's peak
constexpr double kAlike = 0.01;         ///< RMS of the difference over the sound's
constexpr double kComparedSeconds = 6.0;

struct Row {
    int32_t program;
    Measures drums, chord;
    Sound start;  ///< the first seconds of the drums, to be compared with other programs'
};

double decibels(double level) {
    return 20.0 * std::log10(level);
}

std::vector<Row> rowsOf(int32_t first, int32_t last) {
    const Sound drums = drumLoop(), sustained = chord();
    std::vector<Row> rows;
    for (int32_t program = first; program <= last; ++program) {
        Sound played = render(program, drums);
        const Measures ofDrums = measure(played, drums.size());
        played.resize(framesOf(kComparedSeconds));
        played.shrink_to_fit();
        const Measures ofChord = measure(render(program, sustained), sustained.size());
        rows.push_back({program, ofDrums, ofChord, std::move(played)});
    }
    return rows;
}

/// The neutral program's ten places in the bank are the same by design.
bool areAlike(const Row& a, const Row& b) {
    const auto isNeutral = [](const Row& row) { return row.program < 2 || row.program >= 132; };
    return a.program != b.program && !isNeutral(a) && !isNeutral(b) &&
           areCloser(a.start, b.start, kAlike * std::max(a.drums.rms, b.drums.rms));
}

std::string flagsOf(const Row& row, const std::vector<Row>& rows) {
    std::string flags;
    const auto add = [&](bool raised, const std::string& flag) {
        flags += raised ? (flags.empty() ? "" : ", ") + flag : "";
    };
    for (const auto& [m, signal] : {std::pair(row.drums, " drums"), {row.chord, " chord"}}) {
        add(!m.finite, std::string("NOTFINITE") + signal);
        add(decibels(m.rms) < kSilentBelow, std::string("SILENT") + signal);
        add(decibels(m.peak / kSignalPeak) > kLoudAbove, std::string("LOUD") + signal);
        add(m.grows, std::string("GROWS") + signal);
    }
    const auto alike = std::find_if(rows.begin(), rows.end(),
                                    [&](const Row& other) { return areAlike(row, other); });
    add(alike != rows.end(), "ALIKE " + std::to_string(alike != rows.end() ? alike->program : 0));
    return flags;
}

void printHead() {
    std::printf(
        "# The factory programs, measured\n\nEach was played on a new effect at %.0f Hz and "
        "%.0f BPM: %.2f s of silence, a drum loop or a chord of %.0f s with a peak of %.1f dBFS, "
        "and %.0f s of silence. Peaks are those of the whole output, RMS, width (side over middle) "
        "and centroid those of the signal's time; the decay ends where windows of 50 ms stay 60 dB "
        "below the last beat of the signal.\n\n| # | Program |",
        kSampleRate, kTempo, kPreRollSeconds, kSignalSeconds, decibels(kSignalPeak), kTailSeconds);
    for (const char* signal : {"Drums", "Chord"}) {
        std::printf(" %s: peak dBFS | over input dB | RMS dBFS | decay s | width | centroid Hz |",
                    signal);
    }
    std::printf(" Flags |\n|--:|:--|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|:--|\n");
}

void printRow(const Row& row, const std::string& flags) {
    static const std::vector<ProgramRecord> kBank = [] {
        std::vector<ProgramRecord> bank(kProgramCount);
        writeFactoryBank(bank);
        return bank;
    }();
    std::printf("| %3d | %-23.*s |", row.program, int(kNameBytes),
                kBank[size_t(row.program)].name.data());
    for (const Measures& m : {row.drums, row.chord}) {
        std::printf(" %5.1f | %+5.1f | %5.1f |", decibels(m.peak), decibels(m.peak / kSignalPeak),
                    decibels(m.rms));
        std::printf(m.decay < 0.0 ? "  > %.0f |" : " %5.2f |",
                    m.decay < 0.0 ? kTailSeconds : m.decay);
        std::printf(" %4.2f | %5.0f |", m.width, m.centroid);
    }
    std::printf(" %s |\n", flags.c_str());
}

}  // namespace
}  // namespace tessel8::tools

int main(int argc, char** argv) {
    setenv("XDG_CONFIG_HOME", "/dev/null", 1);  // the factory's programs, not what the user keeps
    using namespace tessel8::tools;
    int32_t first = 0, last = tessel8::kProgramCount - 1;
    const auto read = [](const char* text, int32_t& number) {
        char* end = nullptr;
        const long value = std::strtol(text, &end, 10);
        number = int32_t(value);
        return end != text && !*end && value >= 0 && value < tessel8::kProgramCount;
    };
    const bool isRange = argc == 3 && read(argv[1], first) && read(argv[2], last) && first <= last;
    if (argc != 1 && !isRange) {
        std::fprintf(stderr, "usage: program_report [FIRST LAST], both from 0 to %d\n",
                     tessel8::kProgramCount - 1);
        return 2;
    }
    const std::vector<Row> rows = rowsOf(first, last);
    printHead();
    bool flagged = false;
    for (const Row& row : rows) {
        const std::string flags = flagsOf(row, rows);
        flagged |= !flags.empty();
        printRow(row, flags);
    }
    return flagged ? 1 : 0;
}
