#pragma once

#include <cstdint>

namespace tessel8 {

/// The one place of the version.
inline constexpr char kVersionLiteral[] = "1.6.1.349";
/// Bytes that the version's text may take, its terminating zero included.
constexpr int32_t kVersionTextBytes = 35;

/// The version as one number, major << 24 | minor << 16 | patch << 8 | build; the build number may
/// reach into the patch's bits. `text`, if not null, gets "1.6.1 build 349".
int32_t versionNumber(const char* literal, char* text);

}  // namespace tessel8
