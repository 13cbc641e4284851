#include "AudioFormat.h"

#include <sndfile.h>
#include <strings.h>

#include <array>
#include <string>

#include "UserError.h"

namespace tessel8::host {

namespace {

struct Container {
    const char* ending;
    int format;
};
constexpr std::array<Container, 12> kContainers = {{
    {".wav", SF_FORMAT_WAV},
    {".flac", SF_FORMAT_FLAC},
    {".aiff", SF_FORMAT_AIFF},
    {".aif", SF_FORMAT_AIFF},
    {".ogg", SF_FORMAT_OGG},
    {".oga", SF_FORMAT_OGG},
    {".opus", SF_FORMAT_OGG},
    {".mp3", SF_FORMAT_MPEG},
    {".au", SF_FORMAT_AU},
    {".caf", SF_FORMAT_CAF},
    {".w64", SF_FORMAT_W64},
    {".rf64", SF_FORMAT_RF64},
}};

/// Float first, then the nearest to it; the compressed ones for containers with nothing else.
constexpr std::array<int, 6> kBestSamples = {SF_FORMAT_FLOAT,  SF_FORMAT_PCM_24,
                                             SF_FORMAT_PCM_16, SF_FORMAT_VORBIS,
                                             SF_FORMAT_OPUS,   SF_FORMAT_MPEG_LAYER_III};

/// WAV and AIFF count their bytes in 32 bits; some of them are left for the header.
constexpr double kMostBytes = 4294967295.0 - 65536;

int containerOf(const std::filesystem::path& file) {
    const std::string ending = file.extension().string();
    if (ending.empty()) {
        return SF_FORMAT_WAV;
    }
    std::string known;
    for (const Container& container : kContainers) {
        if (strcasecmp(ending.c_str(), container.ending) == 0) {
            return container.format;
        }
        known += (known.empty() ? "" : ", ") + std::string(container.ending);
    }
    throw UserError(file.string() + ": unknown kind of audio file; known endings are " + known);
}

bool holds(int container, int samples, int sampleRate) {
    SF_INFO info{};
    info.channels = 2;
    info.samplerate = sampleRate;
    info.format = container | samples;
    return sf_format_check(&info) != 0;
}

std::string nameOf(int samples) {
    SF_FORMAT_INFO info{};
    info.format = samples;
    const bool found = sf_command(nullptr, SFC_GET_FORMAT_INFO, &info, sizeof info) == 0;
    return found && info.name != nullptr ? info.name : "samples of this kind";
}

}  // namespace

int outputFormat(const std::filesystem::path& file, SampleFormat wanted, int inputFormat,
                 int sampleRate) {
    const int container = containerOf(file);
    if (wanted == SampleFormat::asInput) {
        const int samples = inputFormat & SF_FORMAT_SUBMASK;
        if (!holds(container, samples, sampleRate)) {
            throw UserError(file.string() +
                            ": this kind of file cannot hold the input's samples (" +
                            nameOf(samples) + "); use --format float");
        }
        return container | samples;
    }
    if (strcasecmp(file.extension().c_str(), ".opus") == 0) {
        return container | SF_FORMAT_OPUS;
    }
    for (const int samples : kBestSamples) {
        if (holds(container, samples, sampleRate)) {
            return container | samples;
        }
    }
    throw UserError(file.string() + ": this system cannot write this kind of audio file");
}

void checkLength(const std::filesystem::path& file, int format, int64_t frames) {
    const int container = format & SF_FORMAT_TYPEMASK;
    if (container != SF_FORMAT_WAV && container != SF_FORMAT_AIFF) {
        return;
    }
    const int bits = integerBits(format);
    const int floatBytes = (format & SF_FORMAT_SUBMASK) == SF_FORMAT_DOUBLE ? 8 : 4;
    const int frameBytes = 2 * (bits != 0 ? bits / 8 : floatBytes);
    if (double(frames) * frameBytes > kMostBytes) {
        throw UserError(file.string() + ": this kind of file ends at 4 GiB; .w64 and .rf64 go on");
    }
}

int integerBits(int format) {
    switch (format & SF_FORMAT_SUBMASK) {
        case SF_FORMAT_PCM_S8:
        case SF_FORMAT_PCM_U8:
            return 8;
        case SF_FORMAT_PCM_16:
        case SF_FORMAT_ALAC_16:
            return 16;
        case SF_FORMAT_ALAC_20:
            return 20;
        case SF_FORMAT_PCM_24:
        case SF_FORMAT_ALAC_24:
            return 24;
        case SF_FORMAT_PCM_32:
        case SF_FORMAT_ALAC_32:
            return 32;
        default:
            return 0;
    }
}

bool isFloatingPoint(int format) {
    const int samples = format & SF_FORMAT_SUBMASK;
    return samples == SF_FORMAT_FLOAT || samples == SF_FORMAT_DOUBLE;
}

}  // namespace tessel8::host
