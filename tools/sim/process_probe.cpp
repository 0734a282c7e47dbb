#include "tools/sim/process_probe.h"

#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>

namespace trickhaven {

std::uintptr_t StackMark() {
    volatile char local = 0;
    return reinterpret_cast<std::uintptr_t>(&local);
}

long StackDepthFrom(std::uintptr_t outer) {
    // The stack grows down on every machine this runs on.
    return static_cast<long>(outer) - static_cast<long>(StackMark());
}

long ResidentKiB() {
    std::FILE* statm = std::fopen("/proc/self/statm", "r");
    if (statm == nullptr) return 0;
    long size = 0;
    long resident = 0;
    const int read = std::fscanf(statm, "%ld %ld", &size, &resident);
    std::fclose(statm);
    return read == 2 ? resident * (::sysconf(_SC_PAGESIZE) / 1024) : 0;
}

long PeakResidentKiB() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

}  // namespace trickhaven
