#include <unistd.h>

extern "C" {

/// Replaces the system's function (the linker wraps it): on a computer of little memory the limits keep the runs short.
long __real_sysconf(int name);
long __wrap_sysconf(int name) {
    constexpr long pagesOfSmallComputer = 1 << 15;
    return name == _SC_PHYS_PAGES ? pagesOfSmallComputer : __real_sysconf(name);
}

}  // extern "C"
