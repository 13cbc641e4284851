// Programs out of the effect's store and out of files.

#include "HostTest.h"
#include "presets/Image.h"

namespace tessel8::host::test {
namespace {

class ProgramTest : public HostTest {
  protected:
    ProgramTest() {
        for (const size_t off : {1U, 3U, 7U}) {
            bank_[off].values[size_t(parameterIndex(Family::Power))] = 0;
        }
        setRecordName(bank_[5], "OFF");
        setRecordName(bank_[7], "Off");
        image_.resize(kBankImageSize);
        writeBankImage(std::span<const ProgramRecord, kProgramCount>(bank_), 3, image_.data());
        write("b.vtb");
        image_.resize(kPresetImageSize);
        writePresetImage(bank_[7], image_.data());
        write("p.vtp");
    }
    Path write(const std::string& name) const {
        std::ofstream(file(name), std::ios::binary) << std::string(image_.begin(), image_.end());
        return file(name);
    }
    /// Whether the effect was switched off in a render with these options.
    bool isOff(Strings options) {
        options.insert(options.end(), {"--tail", "0"});
        return sameBits(rendered(input_, options).samples, input_.samples);
    }
    void expectRefusal(const Strings& options, const std::string& phrase) {
        writeSound(file("in.wav"), input_);
        std::filesystem::remove(file("out.wav"));
        EXPECT_TRUE(refused(render(file("in.wav"), file("out.wav"), options), phrase));
        EXPECT_FALSE(std::filesystem::exists(file("out.wav")));
    }

    const Sound input_ = noise(4800);
    std::vector<ProgramRecord> bank_ = std::vector<ProgramRecord>(kProgramCount, neutralProgram());
    std::vector<uint8_t> image_;  // of the preset
};

TEST_F(ProgramTest, BankThenProgramThenPresetThenSettings) {
    const std::string bank = file("b.vtb"), preset = file("p.vtp");
    EXPECT_FALSE(isOff({}));
    EXPECT_TRUE(isOff({"--bank", bank}));
    for (const auto& [program, off] : {std::pair{"1", true},
                                       {"2", false},
                                       {"Off", true},
                                       {"off", false},
                                       {"*INIT", false},
                                       {"139", false}}) {
        EXPECT_EQ(isOff({"--program", program, "--bank", bank}), off) << program;
    }
    EXPECT_TRUE(isOff({"--preset", preset, "--program", "2", "--bank", bank}));
    EXPECT_FALSE(isOff({"--set", "POWER=1", "--preset", preset}));
}

TEST_F(ProgramTest, WrongProgramsAndFilesAreNamed) {
    expectRefusal({"--program", "140"}, "0 to 139");
    expectRefusal({"--program", "-1"}, "0 to 139");
    expectRefusal({"--bank", file("b.vtb"), "--program", "Of"}, "did you mean \"OFF\"?");
    expectRefusal({"--program", "ekoz"}, "did you mean \"4th Note Ekoz QC\"?");
    expectRefusal({"--bank", file("absent.vtb")}, "absent.vtb: No such file");
    expectRefusal({"--preset", folder_}, "Is a directory");
    expectRefusal({"--bank", file("p.vtp")}, "p.vtp holds no bank");
    expectRefusal({"--preset", file("b.vtb")}, "b.vtb holds no single program");
    expectRefusal({"--preset", file("in.wav")}, "in.wav is not a file of this effect's programs");
    for (const size_t length : {kPresetImageSize - 1, kImageHeadSize, size_t(5)}) {
        image_.resize(length);
        expectRefusal({"--preset", write("cut.vtp")}, "cut.vtp is damaged: it breaks off");
    }
    image_.assign(kPresetImageSize, 0);
    bank_[7].values[2] = std::nanf("");
    writePresetImage(bank_[7], image_.data());
    expectRefusal({"--preset", write("nan.vtp")}, "nan.vtp is damaged: it holds values");
}

}  // namespace
}  // namespace tessel8::host::test
