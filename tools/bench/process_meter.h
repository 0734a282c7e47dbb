// What the running process costs the machine, as the kernel counts it.
#pragma once

namespace trickhaven::bench {

// Processor time used so far, user and system, in seconds.
double ProcessorSeconds();

// Resident memory now, and the most it has been, in KiB.
long ResidentKiB();
long PeakResidentKiB();

// Seconds since the kernel started the process, to its clock's tick of
// 10 ms; negative where it cannot be read.
double SecondsSinceExec();

}  // namespace trickhaven::bench
