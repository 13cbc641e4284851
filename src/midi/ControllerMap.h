#pragma once

#include <array>
#include <cstdint>

namespace tessel8 {

constexpr int32_t kMidiControllers = 128;
/// Controllers that can be learnt and stored; those from 120 on are mode messages.
constexpr int32_t kFirstLearnt = 1, kLastLearnt = 119;
constexpr int32_t kNoController = 128;
constexpr uint8_t kDrivesTapPad = 216;
constexpr uint8_t kNotAssigned = 217;  ///< as is every higher entry

/// Which parameter each MIDI controller drives. Belongs to the instance, not to a program. Read on
/// the audio thread while the panel writes: each entry is a byte of its own.
class ControllerMap {
  public:
    ControllerMap() { reset(); }

    /// The map that a new user starts with: master, tempo and tap 1 on the controllers 1 to 23.
    void reset();
    /// Nothing is assigned afterwards.
    void clear();

    uint8_t entry(int32_t controller) const;
    void setEntry(int32_t controller, uint8_t entry);

    /// The lowest controller from 1 to 119 that drives the parameter, `kNoController` for none.
    int32_t controllerFor(int32_t parameter) const;
    /// Puts a controller on a parameter (0 to 216), which loses any older controller. A controller
    /// outside 1 to 119 only takes the older one away.
    void assign(int32_t controller, int32_t parameter);

    /// The entries, `kMidiControllers` bytes.
    uint8_t* data() { return entries.data(); }

  private:
    std::array<uint8_t, kMidiControllers> entries;
};

}  // namespace tessel8
