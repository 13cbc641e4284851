#pragma once

namespace tessel8::host {

/// Does what the arguments ask for; 0 on success. Throws UserError for what is wrong with them.
int runCommandLine(int argc, char** argv);

}  // namespace tessel8::host
