#pragma once

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "vst/Vst24.h"

namespace tessel8::testing {

/// The built library, loaded as any host loads it: nothing of the effect is linked in. Throws
/// where it does not load.
class PluginLibrary {
  public:
    using Entry = AEffect*(VST_CALL*)(audioMasterCallback);

    PluginLibrary() : handle(dlopen(TESSEL8_PLUGIN, RTLD_NOW | RTLD_LOCAL)) {
        if (!handle) {
            throw std::runtime_error(dlerror());
        }
    }
    PluginLibrary(const PluginLibrary&) = delete;
    PluginLibrary& operator=(const PluginLibrary&) = delete;
    ~PluginLibrary() { EXPECT_EQ(dlclose(handle), 0); }

    /// Null where the library has no such name.
    Entry entry(const char* name = "VSTPluginMain") const {
        return reinterpret_cast<Entry>(dlsym(handle, name));
    }

  private:
    void* handle;
};

}  // namespace tessel8::testing
