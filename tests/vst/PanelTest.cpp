// The built library's editor in a host's window on a real display, with real presses and drags.

#include "support/PluginLibrary.h"
#include "support/XClient.h"

namespace tessel8::testing {

namespace {

std::vector<std::pair<int32_t, float>> automated;

intptr_t VST_CALL hostCallback(AEffect*, int32_t opcode, int32_t index, intptr_t, void*,
                               float opt) {
    if (opcode == audioMasterAutomate) {
        automated.emplace_back(index, opt);
    }
    return opcode == audioMasterVersion ? 2400 : 0;
}

/// The library, loaded once a test, and a host's window for each effect.
class PanelOfThePlugin : public ::testing::Test {
  protected:
    struct Instance {
        AEffect* effect;
        xcb_window_t parent;

        intptr_t send(int32_t opcode, void* ptr = nullptr, float opt = 0.0f,
                      intptr_t value = 0) const {
            return effect->dispatcher(effect, opcode, 0, value, ptr, opt);
        }
        intptr_t open() const {
            return send(effEditOpen, reinterpret_cast<void*>(uintptr_t(parent)));
        }
        float get(int32_t index) const { return effect->getParameter(effect, index); }
    };

    PanelOfThePlugin() { automated.clear(); }
    ~PanelOfThePlugin() override {
        for (const Instance& one : instances) {
            one.send(effClose);
        }
    }
    const Instance& make() {
        instances.push_back({library.entry()(hostCallback), user.makeParent(870, 565)});
        const Instance& made = instances.back();
        made.send(effSetSampleRate, nullptr, 48000.0f);
        made.send(effMainsChanged, nullptr, 0.0f, 1);
        return made;
    }
    /// Idle as a slow host gives it.
    void idle(const Instance& one, int passes = 6) {
        for (int i = 0; i < passes; ++i) {
            one.send(effEditIdle);
            sleepMilliseconds(20);
        }
    }

    XClient user;
    PluginLibrary library;
    std::vector<Instance> instances;
};

}  // namespace

TEST_F(PanelOfThePlugin, MovesParametersByTheMouseAndPaintsThem) {
    const Instance one = make();
    ASSERT_EQ(one.open(), 1);  // the parent is not shown yet
    idle(one, 2);
    user.map(one.parent);
    idle(one);
    const auto pointer = [&] { return user.pixel(142, 204); };  // gain of tap 1, straight up
    const uint32_t before = pointer();
    user.moveTo(142, 211);
    user.press();
    idle(one, 2);
    user.moveTo(142, 151);  // 60 pixels of 200
    idle(one, 2);
    user.release();
    idle(one);
    ASSERT_FALSE(automated.empty());
    EXPECT_EQ(automated.back().first, 48);
    EXPECT_NEAR(automated.back().second, 0.8f, 1e-6f);
    EXPECT_NE(pointer(), before);
    const uint32_t dark = user.pixel(41, 240);
    user.click(41, 246);  // tap 2 on
    idle(one);
    EXPECT_EQ(one.get(177), 1.0f);
    EXPECT_NE(user.pixel(41, 240), dark);
    one.effect->setParameter(one.effect, 177, 0.0f);  // and off by the host
    idle(one);
    EXPECT_EQ(user.pixel(41, 240), dark);
}

TEST_F(PanelOfThePlugin, OpensOftenTwiceAtOnceAndOutlivesItsParent) {
    const Instance first = make(), second = make();
    ERect* rect = nullptr;
    EXPECT_EQ(first.send(effEditGetRect, &rect), 1);
    EXPECT_EQ(rect->right - rect->left, 870);
    EXPECT_EQ(rect->bottom - rect->top, 565);
    user.map(first.parent);
    for (int round = 0; round < 20; ++round) {
        ASSERT_EQ(first.open(), 1);
        ASSERT_EQ(second.open(), 1);
        idle(first, 1);
        idle(second, 1);
        first.send(effEditClose);
        second.send(effEditClose);
    }
    ASSERT_EQ(first.open(), 1);
    ASSERT_EQ(second.open(), 1);
    idle(first);
    xcb_destroy_window(user.x, first.parent);
    user.sync();
    idle(first);
    first.effect->setParameter(first.effect, 48, 0.25f);
    idle(first);
    first.send(effEditClose);
    idle(second);
    second.send(effEditClose);
    second.send(effEditIdle);
}

}  // namespace tessel8::testing
