#pragma once

#include <filesystem>

namespace tessel8::host {

/// Writes a file of programs anew, in the form and byte order of today. What it holds is told by
/// its content, and the new file's ending has to fit: .vtp for one program, .vtb for a bank. Throws
/// UserError.
void convert(const std::filesystem::path& input, const std::filesystem::path& output);

/// Prints a table of the programs in a file: number and name. Throws UserError.
void listFilePrograms(const std::filesystem::path& file);

}  // namespace tessel8::host
