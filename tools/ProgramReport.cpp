// A report on the factory's programs: every one is played with a drum loop and a chord, measured,
// and flagged where it is silent, loud, unstable or the same as another.
//
//   program_report [FIRST LAST]    Markdown on standard output; 1 where a flag was raised, 2 where
//                                  the command line is wrong

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "tools/Measures.h"
#include "tools/Renderer.h"

namespace tessel8::tools {
namespace {

constexpr double kSilentBelow = -60.0;  ///< dBFS, RMS
constexpr double kLoudAbove = 6.0;      ///< dB, peak over the input's peak
constexpr double kComparedSeconds = 6.0;

struct Row {
    int32_t program;
    std::string name;
    Measures drums, chord;
    Sound start;         ///< the first seconds of the drums, to be compared with other programs'
    int32_t alike = -1;  ///< a program that sounds the same
};

/// The neutral program's ten places in the bank are the same by design.
bool isNeutral(const Row& row) {
    return row.program < 2 || row.program >= 132;
}

Row rowOf(int32_t program, const Sound& drums, const Sound& sustained) {
    const Rendering played = render(program, drums);
    const auto compared = played.sound.begin() + int64_t(framesOf(kComparedSeconds));
    return {program, played.name, measure(played.sound, drums.size()),
            measure(render(program, sustained).sound, sustained.size()),
            Sound(played.sound.begin(), compared)};
}

/// Each row that sounds like others gets the number of the first of them.
void findAlike(std::vector<Row>& rows) {
    for (auto row = rows.begin(); row != rows.end(); ++row) {
        const auto first = std::find_if(rows.begin(), row, [&](const Row& other) {
            return !isNeutral(*row) && !isNeutral(other) && areAlike(row->start, other.start);
        });
        if (first != row) {
            row->alike = first->program;
            first->alike = first->alike < 0 ? row->program : first->alike;
        }
    }
}

std::string flagsOf(const Row& row) {
    std::string flags;
    const auto add = [&](bool raised, const std::string& flag) {
        if (raised) {
            flags += (flags.empty() ? "" : ", ") + flag;
        }
    };
    for (const auto& [m, signal] : {std::pair(row.drums, " drums"), {row.chord, " chord"}}) {
        add(!m.finite, std::string("NOTFINITE") + signal);
        add(decibels(m.rms) < kSilentBelow, std::string("SILENT") + signal);
        add(decibels(m.peak / kSignalPeak) > kLoudAbove, std::string("LOUD") + signal);
        add(m.grows, std::string("GROWS") + signal);
    }
    add(row.alike >= 0, "ALIKE " + std::to_string(row.alike));
    return flags;
}

void printHead() {
    std::printf(
        "# The factory programs, measured\n\n"
        "Each program was played on a new effect at %.0f Hz in blocks of %d frames, with a host at "
        "%.0f BPM: %.2f s of silence, a drum loop or a sustained chord of %.0f s with a peak of "
        "%.1f dBFS, and %.0f s of silence. Peaks are those of the whole output, RMS, width (side "
        "over middle) and centroid those of the signal's time; the decay ends where windows of "
        "50 ms stay 60 dB below the last beat of the signal.\n\n| # | Program |",
        kSampleRate, kBlockFrames, kTempo, kPreRollSeconds, kSignalSeconds, decibels(kSignalPeak),
        kTailSeconds);
    for (const char* signal : {"Drums", "Chord"}) {
        std::printf(" %s: peak dBFS | over input dB | RMS dBFS | decay s | width | centroid Hz |",
                    signal);
    }
    std::printf(" Flags |\n|--:|:--|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|:--|\n");
}

void printRow(const Row& row, const std::string& flags) {
    std::printf("| %3d | %-23s |", row.program, row.name.c_str());
    for (const Measures& m : {row.drums, row.chord}) {
        char decay[16];
        std::snprintf(decay, sizeof decay, m.decay < 0.0 ? "> %.0f" : "%.2f",
                      m.decay < 0.0 ? kTailSeconds : m.decay);
        std::printf(" %5.1f | %+5.1f | %5.1f | %5s | %4.2f | %5.0f |", decibels(m.peak),
                    decibels(m.peak / kSignalPeak), decibels(m.rms), decay, m.width, m.centroid);
    }
    std::printf(" %s |\n", flags.c_str());
}

/// Gives the number of programs that are flagged.
int report(int32_t first, int32_t last) {
    const Sound drums = drumLoop(), sustained = chord();
    std::vector<Row> rows;
    for (int32_t program = first; program <= last; ++program) {
        rows.push_back(rowOf(program, drums, sustained));
    }
    findAlike(rows);
    printHead();
    int flagged = 0;
    for (const Row& row : rows) {
        const std::string flags = flagsOf(row);
        flagged += !flags.empty();
        printRow(row, flags);
    }
    return flagged;
}

/// The number of a program, -1 where the text is none.
int32_t programNumber(const char* text) {
    char* end = nullptr;
    const long number = std::strtol(text, &end, 10);
    return end != text && !*end && number >= 0 && number < kProgramCount ? int32_t(number) : -1;
}

}  // namespace
}  // namespace tessel8::tools

int main(int argc, char** argv) {
    using namespace tessel8::tools;
    const int32_t first = argc == 3 ? programNumber(argv[1]) : 0;
    const int32_t last = argc == 3 ? programNumber(argv[2]) : tessel8::kProgramCount - 1;
    if ((argc != 1 && argc != 3) || first < 0 || last < first) {
        std::fprintf(stderr, "usage: program_report [FIRST LAST]    programs from 0 to %d\n",
                     tessel8::kProgramCount - 1);
        return 2;
    }
    const auto start = std::chrono::steady_clock::now();
    const int flagged = report(first, last);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    std::fprintf(stderr, "%d programs, %d with flags, %.1f s\n", last - first + 1, flagged,
                 taken.count());
    return flagged > 0 ? 1 : 0;
}
