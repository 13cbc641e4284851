// Cost of the engine in nanoseconds a frame and a tap, over settings, rates and block sizes.
// Compare figures of one run only: machines are shared and noisy.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <memory>
#include <random>
#include <vector>

#include "bench/Scenarios.h"
#include "engine/DenormalGuard.h"

namespace tessel8::bench {
namespace {

/// An engine with its parameters at a rate, two seconds into the sound.
class Bench {
  public:
    Bench(const Scenario& scenario, float rate, int32_t block, InstructionSet set)
        : engine(set),
          frames(block),
          left(size_t(block)),
          right(size_t(block)),
          out(2 * size_t(block)) {
        engine.allocateForRate(rate);
        engine.setSmoothingRate(rate);
        parameters.setSampleRate(rate);
        parameters.recalculateForRate();
        parameters.resetToDefaults();
        scenario.set(parameters);
        std::minstd_rand random(1);
        std::uniform_real_distribution<float> noise(-0.3f, 0.3f);
        for (int32_t i = 0; i < block; ++i) {
            left[size_t(i)] = noise(random);
            right[size_t(i)] = noise(random);
        }
        for (int32_t done = 0; done < int32_t(2 * rate); done += block) {
            run();
        }
    }

    void run() {
        const DenormalGuard guard;
        const float* const inputs[] = {left.data(), right.data()};
        float* const outputs[] = {out.data(), out.data() + frames};
        parameters.beginBlock();
        engine.beginBlock();
        engine.process(inputs, outputs, frames);
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }

  private:
    Engine engine;
    Parameters parameters{engine};
    int32_t frames;
    std::vector<float> left, right, out;
};

void measure(benchmark::State& state, const Scenario& scenario, float rate, int32_t block,
             InstructionSet set) {
    const auto bench = std::make_unique<Bench>(scenario, rate, block, set);
    while (state.KeepRunning()) {
        bench->run();
    }
    const auto perSecond = benchmark::Counter::kIsIterationInvariantRate;
    const auto inverted = perSecond | benchmark::Counter::kInvert;
    state.counters["s/frame"] = benchmark::Counter(double(block), inverted);
    state.counters["s/frame/tap"] = benchmark::Counter(double(block) * scenario.taps, inverted);
    state.counters["x_realtime"] = benchmark::Counter(double(block) / double(rate), perSecond);
}

void add(const Scenario& scenario, int32_t rate, int32_t block, InstructionSet set) {
    const std::string name = scenario.name + "/" + std::to_string(rate) + "/" +
                             std::to_string(block) + "/" + nameOf(set);
    benchmark::RegisterBenchmark(name.c_str(), measure, scenario, float(rate), block, set);
}

void registerAll() {
    for (const Scenario& scenario : scenarios()) {
        for (const int32_t rate : {44100, 192000}) {
            for (const int32_t block : {16, 64, 256, 1024, 4096}) {
                add(scenario, rate, block, bestInstructionSet());
            }
        }
        for (const InstructionSet set : kInstructionSets) {
            if (isSupported(set)) {
                add(scenario, 48000, 256, set);
            }
        }
    }
}

}  // namespace
}  // namespace tessel8::bench

int main(int argc, char** argv) {
    tessel8::bench::registerAll();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
