#pragma once

#include <cstdint>
#include <string>

namespace tessel8 {

enum class OpenResult : uint8_t {
    Opened,         ///< handed over; what the application makes of it stays open
    NoApplication,  ///< the system knows none for files of this kind
    Failed          ///< the file is missing, or the system offers no way to open files
};

/// Opens a file with the application that the user has chosen for its kind. Waits for at most
/// about 200 ms.
OpenResult openDocument(const std::string& path);

}  // namespace tessel8
