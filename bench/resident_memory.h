#pragma once

#include <fstream>

#include <unistd.h>

namespace velmora::bench {

/// Resident memory of this process in bytes: the second figure of its statm counts pages.
inline long ResidentMemory() {
    std::ifstream statm("/proc/self/statm");
    long whole = 0;
    long resident = 0;
    statm >> whole >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

}  // namespace velmora::bench
