#pragma once

#include <filesystem>
#include <optional>

#include "AudioFormat.h"
#include "ProgramChoice.h"
#include "Tail.h"

namespace tessel8::host {

struct RenderOptions {
    std::filesystem::path input;
    std::filesystem::path output;
    std::filesystem::path plugin;  ///< empty: the effect's own file
    ProgramChoice choice;
    std::optional<double> tempo;  ///< BPM, until the MIDI file tells another one
    std::filesystem::path midi;   ///< empty: none
    TailLength tail;
    int blockFrames = 512;
    SampleFormat format = SampleFormat::floatingPoint;
};

/// Sends a file through the effect and prints one line about the result to stdout.
void render(const RenderOptions& options);

}  // namespace tessel8::host
