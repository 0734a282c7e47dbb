// What a long run costs the process: how deep the stack stands and how much
// memory is resident.
#pragma once

#include <cstdint>

namespace trickhaven {

// The address of a local of the caller's frame, as a number.
std::uintptr_t StackMark();

// Bytes between an outer mark and a mark taken now, deeper in the stack.
long StackDepthFrom(std::uintptr_t outer);

// Resident memory now, in KiB (0 where it cannot be read).
long ResidentKiB();

// The most resident memory so far, in KiB.
long PeakResidentKiB();

}  // namespace trickhaven
