#include "Render.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "AudioReader.h"
#include "AudioWriter.h"
#include "Chain.h"
#include "Interruption.h"
#include "Levels.h"
#include "MidiFile.h"
#include "MidiPlayer.h"
#include "Plugin.h"
#include "PluginLocation.h"
#include "Progress.h"
#include "Texts.h"

namespace tessel8::host {

namespace {

/// The song beside the sound: its messages and its tempo.
struct Song {
    std::optional<TempoMap> tempo;
    MidiPlayer midi;
};

Song songOf(const RenderOptions& options, int sampleRate) {
    constexpr double kUntoldTempo = 120;  // BPM; so a MIDI file means it that tells none
    if (options.midi.empty()) {
        return {options.tempo ? std::optional(TempoMap(*options.tempo)) : std::nullopt, {}};
    }
    const MidiFile file = readMidiFile(options.midi);
    const TempoMap tempo = tempoMapOf(file, options.tempo.value_or(kUntoldTempo));
    return {tempo, MidiPlayer(file, tempo, sampleRate)};
}

/// Takes what becomes the output.
struct Output {
    AudioWriter writer;
    Levels levels;
    int64_t frames = 0;

    void add(const float* left, const float* right, size_t count) {
        writer.write(left, right, count);
        levels.add(left, right, count);
        frames += int64_t(count);
    }
};

/// The input and the tail as one stream of blocks: where the input ends within a block, the rest
/// of that block is tail already.
void renderAudio(AudioReader& reader, Chain& chain, Output& output, TailLength tailLength) {
    const int rate = reader.sampleRate();
    Tail tail(tailLength, rate, [&](const float* left, const float* right, size_t frames) {
        output.add(left, right, frames);
    });
    Progress progress(
        reader.frames() + (tailLength.untilSilent ? 0 : longestTail(tailLength, rate)), rate);
    Block& in = chain.in;
    Block& out = chain.out;
    bool inputEnded = false;
    for (;;) {
        Interruption::check();
        const size_t read =
            inputEnded ? 0 : reader.read(in.left.data(), in.right.data(), chain.blockFrames());
        inputEnded = read < chain.blockFrames();
        const size_t frames = read + (inputEnded ? tail.take(chain.blockFrames() - read) : 0);
        if (frames == 0) {
            break;
        }
        std::fill(in.left.begin() + ptrdiff_t(read), in.left.end(), 0.0F);
        std::fill(in.right.begin() + ptrdiff_t(read), in.right.end(), 0.0F);
        chain.process(frames);
        output.add(out.left.data(), out.right.data(), read);
        tail.add(out.left.data() + read, out.right.data() + read, frames - read);
        progress.show(chain.processedFrames());
    }
    tail.finish();
}

void printSummary(const std::filesystem::path& file, const Output& output, const Chain& chain,
                  int sampleRate) {
    std::printf("%s: %.3f s, peak %s, RMS %s, %.0f times real time",
                printable(file.string()).c_str(), double(output.frames) / sampleRate,
                decibelText(output.levels.peakDb()).c_str(),
                decibelText(output.levels.rmsDb()).c_str(), chain.timesRealTime());
    if (const uint64_t count = output.levels.nonFinite(); count != 0) {
        std::printf(", %llu samples not finite", static_cast<unsigned long long>(count));
    }
    std::printf("\n");
}

}  // namespace

void render(const RenderOptions& options) {
    AudioReader reader(options.input);
    const int rate = reader.sampleRate();

    Song song = songOf(options, rate);
    Transport transport(std::move(song.tempo));
    Plugin plugin(pluginFile(options.plugin), transport);
    const std::vector<Setting> settings = choose(options.choice, plugin);

    const int format = outputFormat(options.output, options.format, reader.format(), rate);
    checkLength(options.output, format, reader.frames() + longestTail(options.tail, rate));
    const Interruption interruption;  // from before there is a file to tidy up
    Output output{AudioWriter(options.output, format, rate), {}, 0};

    Chain chain(plugin, transport, std::move(song.midi), rate, options.blockFrames);
    chain.startWith(settings);
    renderAudio(reader, chain, output, options.tail);
    output.writer.finish();
    printSummary(options.output, output, chain, rate);
}

}  // namespace tessel8::host
