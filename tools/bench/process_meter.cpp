#include "tools/bench/process_meter.h"

#include <sys/resource.h>
#include <unistd.h>

#include <ctime>
#include <fstream>
#include <sstream>
#include <string>

namespace trickhaven::bench {

double ProcessorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& t) {
        return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

long ResidentKiB() {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.rfind("VmRSS:", 0) == 0) {
            return std::stol(line.substr(6));
        }
    }
    return -1;
}

long PeakResidentKiB() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

double SecondsSinceExec() {
    std::ifstream statFile("/proc/self/stat");
    std::string stat;
    std::getline(statFile, stat);
    // The name in brackets may hold blanks; the fields count from its end.
    const auto nameEnd = stat.rfind(')');
    if (nameEnd == std::string::npos) {
        return -1;
    }
    std::istringstream fields(stat.substr(nameEnd + 2));
    std::string field;
    // After the name: state is field 3, the start time field 22.
    for (int number = 3; number < 22 && fields >> field;) {
        ++number;
    }
    unsigned long long startTicks = 0;
    if (!(fields >> startTicks)) {
        return -1;
    }
    timespec now{};
    clock_gettime(CLOCK_BOOTTIME, &now);
    const double nowSeconds =
        static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
    return nowSeconds - static_cast<double>(startTicks) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

}  // namespace trickhaven::bench
