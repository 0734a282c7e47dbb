// What a screen reader hears of the menu bar beyond the toolkit's own
// reading: an entry with a check mark says "checked" or "not checked".
#pragma once

namespace trickhaven {

// Teaches Qt's accessibility the checkable menu entries; safe to call again.
// Call it before the entries are made checkable and first read.
void InstallMenuAccessibility();

}  // namespace trickhaven
