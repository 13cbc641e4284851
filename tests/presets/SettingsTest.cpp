// The user's settings: what stands in them after what, and that nothing is lost, whoever is killed
// and however full the disk is.

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

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
    /// The last change of every value.
    std::map<fs::path, fs::file_time_type> changes() const {
        std::map<fs::path, fs::file_time_type> all;
        for (const auto& entry : fs::recursive_directory_iterator(settings)) {
            if (entry.is_regular_file()) {
                all[entry] = entry.last_write_time();
            }
        }
        return all;
    }
    fs::path cc(const std::string& number) const {
        return settings / "MIDI" / ("MIDI CC - " + number + ".int");
    }
    std::string controller(const std::string& number) const { return contentsOf(cc(number)); }
};

}  // namespace

TEST_F(SettingsTest, HoldTheMapFromTheFirstStartAndFollowItsChanges) {
    {
        Instance instance;
        EXPECT_EQ(changes().size(), 119u);
        EXPECT_EQ(controller("001") + controller("004") + controller("005"), "1\n0\n176\n");
        EXPECT_EQ(controller("024") + controller("119"), "217\n217\n");
        EXPECT_EQ(int(fs::status(cc("100")).permissions()), 0600);
        EXPECT_EQ(int(fs::status(home / "Vantor-audio").permissions()), 0700);
        instance.effect.controllerMapData()[30] = 212;  // as learn does
        instance.editor.idle();
        EXPECT_EQ(controller("030"), "212\n");
        std::ofstream(cc("003")) << "x";
        fs::remove(cc("006"));
        EXPECT_EQ(Instance().entry(30) + Instance().entry(3) + Instance().entry(6), 212 + 3 + 48);
    }
    EXPECT_EQ(controller("006"), "48\n");
    EXPECT_EQ(contentsOf(settings / "CurrDir.str"), fs::current_path());
    const auto before = changes();
    { const Instance instance; }
    EXPECT_TRUE(changes() == before) << "creation and destruction alone write nothing";
    Instance().effect.clearControllerMap();
    EXPECT_EQ(controller("001") + controller("030"), "217\n217\n");
}

TEST_F(SettingsTest, AMemoGoesFromOneProcessToAnother) {
    Instance instance;
    instance.click(kRecallB);
    EXPECT_EQ(instance.field(), "*init") << "nothing is stored there";
    EXPECT_TRUE(succeedsInChild([] {
        Instance other;
        other.effect.setParameter(3, 0.25f);
        other.effect.renameCurrentProgram("Aside");
        other.click(kStoreA);
        return true;
    }));
    instance.effect.selectProgram(7);
    instance.click(kRecallA);
    EXPECT_EQ(instance.field() + instance.title(7), "AsideAside");
    EXPECT_EQ(instance.effect.getParameter(3), 0.25f);
}

TEST_F(SettingsTest, NewInstancesStartWithTheDefaultsUntilTheyAreCleared) {
    Instance instance;
    const std::string name = instance.name(5);
    instance.effect.selectProgram(5);
    instance.effect.renameCurrentProgram("Mine");
    instance.click(kBankLabel);
    EXPECT_FALSE(fs::exists(settings / "DefaultBank.bin")) << "a single click does nothing";
    instance.click(kBankLabel, kDouble);
    instance.click(kPresetLabel, kDouble);
    EXPECT_EQ(Instance().name(0) + Instance().name(5), "MineMine");
    instance.click(kBankLabel, kDouble | mouse::kControl);
    EXPECT_EQ(Instance().name(0) + Instance().name(5), "Mine" + name);
    instance.click(kPresetLabel, kDouble | mouse::kControl);
    EXPECT_EQ(Instance().name(0), "*init");
}

TEST_F(SettingsTest, OfKilledWritersAreWhole) {
    const SettingsFolder folder;
    const auto writeAll = [&](char mark) {
        return folder.writeBytes("MemoA", Bytes(7089, uint8_t(mark))) &&
               folder.writeText("CurrDir", std::string(300, mark)) &&
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
        const auto number = folder.readInteger("KeyboardFocus");
        ASSERT_TRUE(memo && *memo == Bytes(7089, memo->at(0))) << round;
        ASSERT_TRUE(text && *text == std::string(300, text->at(0))) << round;
        ASSERT_TRUE(number == 1 || number == 1000000) << round;
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
    instance.click(kStoreA);
    instance.choose(kSavePreset, home / "a.vtp");
    { const Instance other; }  // it leaves names of files behind, too
    const auto before = changes();
    const std::string memo = contentsOf(home / "a.vtp");
    const auto storesNothing = [&] {
        instance.effect.setParameter(3, 0.125f);
        instance.click(kStoreA);
        instance.choose(kSavePreset, home / "a.vtp");
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
    EXPECT_TRUE(changes() == before);
    unsetenv("XDG_CONFIG_HOME");
    setenv("HOME", (home / "gone").c_str(), 1);
    Instance lost;
    lost.click(kStoreA);
    EXPECT_EQ(lost.entry(1), 1);
    EXPECT_FALSE(fs::exists(home / "gone")) << "nobody's home is made";
}

TEST_F(SettingsTest, ThatCannotBeReadCountAsAbsent) {
    SettingsFolder().make();
    for (const char* bad : {"", "\n", "x", "7 ", "7\n\n", "4294967296", "11111111111111111"}) {
        std::ofstream(settings / "N.int") << bad;
        EXPECT_FALSE(SettingsFolder().readInteger("N")) << bad;
    }
    mkfifo((settings / "N.bin").c_str(), 0600);  // waits for nobody
    EXPECT_FALSE(SettingsFolder().readBytes("N"));
}

}  // namespace tessel8
