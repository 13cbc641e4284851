#pragma once

#include "midi/ControllerMap.h"

namespace tessel8 {

/// Keeps a controller map in the user's settings, one value a controller. All instances share
/// them: each begins with what is stored, and the last one that goes decides.
class ControllerMapStore {
  public:
    explicit ControllerMapStore(ControllerMap& kept) : map(kept), known(kept) {}

    ControllerMap& controllerMap() { return map; }

    /// Takes over what is stored; the very first time the map is stored instead. A value that is
    /// missing leaves its entry.
    void load();
    /// Stores the whole map, unless there is no store.
    void save();
    /// Stores the entries that have changed since the last call of any of the three. Hosts get
    /// killed, so this is called whenever there is time.
    void saveChanges();

  private:
    ControllerMap& map;
    ControllerMap known;
};

}  // namespace tessel8
