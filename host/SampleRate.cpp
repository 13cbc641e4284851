#include "SampleRate.h"

#include "UserError.h"

namespace tessel8::host {

namespace {

constexpr int kLowestRate = 44100;  // Hz, both of the effect
constexpr int kHighestRate = 192000;

}  // namespace

void checkSampleRate(int rate, const std::string& subject) {
    if (rate < kLowestRate || rate > kHighestRate) {
        throw UserError(subject + " has a sample rate of " + std::to_string(rate) +
                        " Hz; the effect takes " + std::to_string(kLowestRate) + " to " +
                        std::to_string(kHighestRate) + " Hz");
    }
}

}  // namespace tessel8::host
