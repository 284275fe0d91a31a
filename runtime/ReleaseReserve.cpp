// Linked into every DLL that throws. The C++ runtime, which each DLL has statically for itself, takes some 73 KB when
// the DLL is loaded, to throw from when there is no memory left. It gives them back only when it is told to: a host
// that loads a library for a command and frees it afterwards would lose them every time.

namespace __gnu_cxx {
void __freeres();  // the runtime's own, in no header
}

namespace {

struct ReserveRelease {
    ~ReserveRelease() { __gnu_cxx::__freeres(); }
};

// Made before all other objects, and so destroyed after them: nothing throws any more.
__attribute__((init_priority(101))) ReserveRelease reserveRelease;

}  // namespace
