#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "Plugin.h"

namespace tessel8::host {

/// The effect's whole store of programs as the one chunk in which it travels: a head of 8 bytes
/// (version and id), then the bank image. What is changed here reaches the effect with `send`.
class Store {
  public:
    /// Fetches the store; throws UserError where the effect gives none.
    explicit Store(const Plugin& plugin);

    /// `number` counts from 0.
    void makeCurrent(int32_t number);

    /// Throws UserError where the effect does not take it.
    void send(const Plugin& plugin) const;

  private:
    std::vector<uint8_t> chunk_;
};

}  // namespace tessel8::host
