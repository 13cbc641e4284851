#pragma once

#include <stdexcept>

namespace tessel8::host {

/// Something that the user can put right: a bad file, name or value. The text is one line
/// without the program's name; the program prints it to stderr and exits with code 2.
class UserError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace tessel8::host
