// The panel in the host's window, on a display that each test has for itself.

#include <png.h>

#include <chrono>
#include <sstream>

#include "HostTest.h"
#include "resources/PanelLayout.h"

namespace tessel8::host::test {
namespace {

using namespace std::chrono_literals;

class PanelTest : public HostTest {
  protected:
    HostRun show(Strings options, const Surroundings& surroundings = {}) const {
        options.insert(options.begin(), {"panel", "--plugin", plugin_});
        return runHost(options, surroundings);
    }
    /// The pixels of p.png as blue, green, red, 255; empty unless it has this size.
    std::vector<uint32_t> picture(int32_t width, int32_t height) const {
        png_image image{};
        image.version = PNG_IMAGE_VERSION;
        png_image_begin_read_from_file(&image, file("p.png").c_str());
        image.format = PNG_FORMAT_BGRA;
        std::vector<uint32_t> pixels(size_t(width) * size_t(height));
        const bool good = int32_t(image.width) == width && int32_t(image.height) == height &&
                          png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr) != 0;
        return good ? pixels : std::vector<uint32_t>();
    }
};

TEST_F(PanelTest, PictureShowsTheEffectsPanelAsAWhole) {
    EXPECT_TRUE(succeeded(show({"--screenshot", file("p.png")})));
    std::vector<uint32_t> pixels = picture(kPanelWidth, kPanelHeight);
    std::sort(pixels.begin(), pixels.end());
    EXPECT_GT(std::unique(pixels.begin(), pixels.end()) - pixels.begin(), 100);
}

TEST_F(PanelTest, SoundColoursAndClicksArriveAsTheyAre) {
    useProbe("panel");
    writeSound(file("in.wav"), {44100, 1, Samples(1000, 0.5F)});
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(succeeded(show({"--input", file("in.wav"), "--screenshot", file("p.png"), "--click",
                                "39,29", "--click", "7,8"})));
    EXPECT_EQ(picture(40, 30), std::vector<uint32_t>(1200, 0xFF123456));
    std::istringstream lines(contentsOf(log()));
    std::string line, told, sound;
    while (std::getline(lines, line)) {
        (line.starts_with("process") ? sound : told) += line + "\n";
    }
    EXPECT_TRUE(told.ends_with(
        "panel opened\nevent 4 at 39 29\nevent 5 at 39 29\nevent 4 at 7 8\nevent 5 at 7 8\n"
        "panel closed\nmains 0\nclose\nunload\n"))
        << told;
    EXPECT_LT(sound.rfind("silence"), sound.find("flags 2 position 0 "));
    const double heard = std::stod(sound.substr(sound.rfind("position ") + 9)) / 44100;
    EXPECT_GT(heard, 1);  // of 2.2 s
    EXPECT_LT(heard, (std::chrono::steady_clock::now() - start) / 1.0s);
}

TEST_F(PanelTest, WhatCannotBeShownIsNamed) {
    EXPECT_TRUE(refused(show({"--click", "7"}), "X,Y"));
    EXPECT_TRUE(refused(show({"--click", "7,32768"}), "0 to 32767"));
    EXPECT_TRUE(refused(show({"--click", "870,7"}), "870 x 565 pixels has nothing there"));
    EXPECT_TRUE(refused(show({"--screenshot", file("absent/p.png")}), "absent/p.png"));
    setenv("DISPLAY", ":no", 1);
    EXPECT_TRUE(refused(show({}), "cannot connect to the X display \":no\""));
    unsetenv("DISPLAY");
    EXPECT_TRUE(refused(show({}), "needs an X display"));
    useProbe("plain");
    EXPECT_TRUE(refused(show({}), "has no panel"));
}

}  // namespace
}  // namespace tessel8::host::test
