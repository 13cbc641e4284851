// The user's settings: what stands in them after what, and that nothing is lost, whoever is killed
// and however full the disk is.

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <map>
#include <random>

#include "PresetFixture.h"
#include "platform/SettingsFolder.h"

namespace tessel8 {

namespace {

constexpr uint32_t kDouble = mouse::kLeft | mouse::kDoubleClick;

/// Whether something succeeds in a process of its own.
template <typename Action>
bool succeedsInChild(Action action) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(action() ? 0 : 1);
    }
    int status = 1;
    waitpid(child, &status, 0);
    return status == 0;
}

struct SettingsTest : PresetTest {
    /// Every value with its contents, and the time of its last change.
    std::map<std::string, std::pair<std::string, fs::file_time_type>> values() const {
        std::map<std::string, std::pair<std::string, fs::file_time_type>> all;
        for (const auto& entry : fs::recursive_directory_iterator(settings)) {
            if (entry.is_regular_file()) {
                all[entry.path()] = {contentsOf(entry), entry.last_write_time()};
            }
        }
        return all;
    }
    fs::path cc(const std::string& number) const {
        return settings / "MIDI" / ("MIDI CC - " + number + ".int");
    }
    unsigned permissions(const fs::path& path) const {
        return unsigned(fs::status(path).permissions());
    }
};

}  // namespace

TEST_F(SettingsTest, HoldTheMapFromTheFirstStartAndFollowItsChanges) {
    {
        Instance instance;
        EXPECT_EQ(values().size(), 119u);
        EXPECT_EQ(contentsOf(cc("001")) + contentsOf(cc("004")) + contentsOf(cc("005")),
                  "1\n0\n176\n");
        EXPECT_EQ(contentsOf(cc("024")) + contentsOf(cc("119")), "217\n217\n");
        EXPECT_EQ(permissions(cc("100")), 0600u);
        EXPECT_EQ(permissions(settings / "MIDI"), 0700u);
        // One pass of learn is stored while the window is open.
        instance.effect.setParameter(332, 1.0f);
        VstMidiEvent event{};
        event.type = kVstMidiType, event.midiData[0] = char(0xB0), event.midiData[1] = 30;
        VstEvents events{1, 0, {reinterpret_cast<VstEvent*>(&event), nullptr}};
        instance.effect.processEvents(&events);
        instance.effect.learnController(212);
        instance.editor.idle();
        EXPECT_EQ(contentsOf(cc("030")), "212\n");
        write(cc("003"), bytesOf("x"));
        fs::remove(cc("006"));
        EXPECT_EQ(Instance().entry(30) + Instance().entry(3) + Instance().entry(6), 212 + 3 + 48);
    }
    EXPECT_EQ(contentsOf(cc("006")), "48\n");
    EXPECT_EQ(contentsOf(settings / "CurrDir.str"), fs::current_path());
    const auto before = values();
    { const Instance instance; }
    EXPECT_TRUE(values() == before) << "creation and destruction alone write nothing";
    Instance().effect.clearControllerMap();
    EXPECT_EQ(contentsOf(cc("001")) + contentsOf(cc("030")), "217\n217\n");
}

TEST_F(SettingsTest, AMemoGoesFromOneProcessToAnother) {
    Instance instance;
    const Bytes before = instance.effect.writeBank();
    instance.click(Instance::kRecallB);
    EXPECT_TRUE(instance.effect.writeBank() == before);
    EXPECT_TRUE(succeedsInChild([] {
        Instance other;
        other.effect.selectProgram(20);
        other.effect.setParameter(3, 0.25f);
        other.effect.renameCurrentProgram("Aside");
        other.press(Instance::kStoreA);  // acts at once
        return true;
    }));
    instance.effect.selectProgram(7);
    instance.click(Instance::kRecallA);
    EXPECT_EQ(instance.field() + instance.title(7), "AsideAside");
    EXPECT_EQ(instance.effect.getParameter(3), 0.25f);
}

TEST_F(SettingsTest, NewInstancesStartWithTheDefaultsUntilTheyAreCleared) {
    Instance instance;
    const Bytes factory = instance.effect.writeBank();
    const std::string name = instance.name(5);
    instance.effect.selectProgram(5);
    instance.effect.renameCurrentProgram("Mine");
    instance.click(Instance::kBankLabel);
    EXPECT_FALSE(fs::exists(settings / "DefaultBank.bin")) << "a single click does nothing";
    instance.click(Instance::kBankLabel, kDouble);
    instance.click(Instance::kPresetLabel, kDouble);
    EXPECT_EQ(Instance().name(0) + Instance().name(5), "MineMine");
    EXPECT_EQ(Instance().current(), 0);
    instance.click(Instance::kBankLabel, kDouble | mouse::kControl);
    EXPECT_EQ(Instance().name(0) + Instance().name(5), "Mine" + name);
    instance.click(Instance::kPresetLabel, kDouble | mouse::kControl);
    EXPECT_TRUE(Instance().effect.writeBank() == factory);
}

TEST_F(SettingsTest, OfKilledWritersAreWhole) {
    const SettingsFolder folder;
    const auto writeAll = [&](char mark) {
        const std::string text(7089, mark);
        return folder.writeBytes("MemoA", bytesOf(text)) &&
               folder.writeText("CurrDir", text.substr(0, 300)) &&
               folder.writeInteger("KeyboardFocus", mark % 2 == 0 ? 1 : 1000000);
    };
    ASSERT_TRUE(writeAll('a'));
    std::minstd_rand random(1);
    for (int round = 0; round < 500; ++round) {
        pid_t writers[2];  // at once, with contents of their own
        for (pid_t& writer : writers) {
            if ((writer = fork()) == 0) {
                for (char mark = &writer == writers ? 'a' : 'c'; writeAll(mark); mark ^= 2) {
                }
            }
        }
        for (const pid_t writer : writers) {
            usleep(useconds_t(random() % 3000));
            kill(writer, SIGKILL);
            waitpid(writer, nullptr, 0);
        }
        const auto memo = folder.readBytes("MemoA");
        const auto text = folder.readText("CurrDir");
        const int64_t number = folder.readInteger("KeyboardFocus").value_or(0);
        ASSERT_TRUE(memo && text && (number == 1 || number == 1000000)) << round;
        ASSERT_TRUE(*memo == Bytes(7089, memo->front()) &&
                    *text == std::string(300, text->front()));
    }
    const auto files = [&] { return std::distance(fs::directory_iterator(settings), {}); };
    EXPECT_GT(files(), 3) << "nobody was killed while writing";
    for (const auto& entry : fs::directory_iterator(settings)) {
        fs::last_write_time(entry, fs::file_time_type::clock::now() - std::chrono::hours(1));
    }
    folder.clean();
    EXPECT_EQ(files(), 3) << "what they left goes once it is old";
}

TEST_F(SettingsTest, OnAFullOrForbiddenDiskStayAsTheyAreInSilence) {
    Instance instance;
    instance.click(Instance::kStoreA);
    instance.choose(Instance::kSavePreset, home / "a.vtp");
    { const Instance other; }  // it leaves names of files behind, too
    const auto before = values();
    const std::string memo = contentsOf(home / "a.vtp");
    const auto storesNothing = [&] {
        instance.effect.setParameter(3, 0.125f);
        instance.click(Instance::kStoreA);
        instance.choose(Instance::kSavePreset, home / "a.vtp");
        Instance().effect.clearControllerMap();
        return contentsOf(settings / "MemoA.bin") == memo && contentsOf(home / "a.vtp") == memo;
    };
    EXPECT_TRUE(succeedsInChild([&] {
        const rlimit limit{1, 1};
        return setrlimit(RLIMIT_FSIZE, &limit) == 0 && storesNothing();
    }));
    EXPECT_EQ(std::distance(fs::directory_iterator(home), {}), 2) << "nothing half written";
    EXPECT_TRUE(succeedsInChild([&] {
        fs::permissions(home, fs::perms(0555));
        for (const auto& entry : fs::recursive_directory_iterator(home)) {
            fs::permissions(entry, fs::perms(entry.is_directory() ? 0555 : 0444));
        }
        return (geteuid() != 0 || setuid(65534) == 0) && storesNothing();
    }));
    EXPECT_TRUE(values() == before);
    for (const char* nowhere : {"/dev/null", "/proc/self/none", "relative"}) {
        setenv("XDG_CONFIG_HOME", nowhere, 1);
        unsetenv("HOME");
        Instance lost;
        lost.click(Instance::kStoreA);
        lost.click(Instance::kRecallA);
        EXPECT_EQ(lost.entry(1), 1);
        EXPECT_FALSE(fs::exists(nowhere) && fs::is_directory(nowhere));
    }
}

TEST_F(SettingsTest, ThatCannotBeReadCountAsAbsent) {
    const SettingsFolder folder;
    ASSERT_EQ(folder.make(), SettingsFolder::Made::Now);
    EXPECT_EQ(folder.make(), SettingsFolder::Made::Before);
    const auto integer = [&](const std::string& text) {
        write(settings / "N.int", bytesOf(text));
        return folder.readInteger("N").value_or(-99);
    };
    EXPECT_EQ(integer("-2147483648"), INT32_MIN);
    EXPECT_EQ(integer("4294967295\n"), UINT32_MAX);
    for (const char* bad : {"", "\n", "x", "7 ", "7\n\n", "4294967296", "11111111111111111"}) {
        EXPECT_EQ(integer(bad), -99) << bad;
    }
    for (const char* name : {"N.bin", "N.str"}) {
        ASSERT_EQ(mkfifo((settings / name).c_str(), 0600), 0);
    }
    EXPECT_FALSE(folder.readBytes("N") || folder.readText("N"));
    write(settings / "M.str", {'a', 0, 'b'});
    EXPECT_FALSE(folder.readText("M"));
}

}  // namespace tessel8
