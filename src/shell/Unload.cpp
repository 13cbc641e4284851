// What the library gives back when a host unloads it, beyond what the language gives back itself.
//
// The plug-in carries its own copy of the C++ runtime. That copy takes a reserve of 72 kB for
// exceptions when it is loaded and never returns it; a host that loads and unloads the file at
// every scan would lose as much each time.

namespace __gnu_cxx {     // NOLINT(bugprone-reserved-identifier): the runtime's own name
extern void __freeres();  // NOLINT(bugprone-reserved-identifier)
}

namespace {

__attribute__((destructor)) void giveBackReserve() {
    __gnu_cxx::__freeres();
}

}  // namespace
