#pragma once

#include <vector>

#include "presets/Image.h"

namespace tessel8 {

/// The store of programs as the panel's preset strip sees it. User-interface thread only, but the
/// store may change on other threads meanwhile; its revision tells.
class ProgramStoreLink {
  public:
    virtual ~ProgramStoreLink() = default;

    /// 0 to 139.
    virtual int32_t getCurrentProgramIndex() = 0;
    /// Writes a program's name, at most `kNameBytes` and a zero; false outside 0 to 139. The
    /// category does not matter.
    virtual bool getProgramNameIndexed(int32_t category, int32_t index, char* text) = 0;
    /// Makes a program current and applies all its values.
    virtual void selectProgram(int32_t index) = 0;
    /// Names the current program, unless `name` is null, and has the host show it.
    virtual void renameCurrentProgram(const char* name) = 0;

    // Data of files and stored values, see the readers of images. Unless the answer is `Applied`
    // nothing has changed.

    /// Into the current program, which is then applied.
    virtual ImageResult readPreset(std::span<const uint8_t> data, bool reversed) = 0;
    /// Into all programs; then the one that the data names is selected.
    virtual ImageResult readBank(std::span<const uint8_t> data, bool reversed) = 0;
    /// The current program as a preset file.
    virtual std::vector<uint8_t> writePreset() = 0;
    /// All programs as a bank file.
    virtual std::vector<uint8_t> writeBank() = 0;

    /// Rises whenever names or the choice of a program changed, on whatever thread.
    virtual uint32_t storeRevision() const = 0;
};

}  // namespace tessel8
