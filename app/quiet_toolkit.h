// A player at a terminal sees only real faults: the toolkit's warnings (no
// sound card, no sound server, fonts, plugins) are hidden unless asked for.
#pragma once

namespace trickhaven {

// Hides the toolkit's debug, info and warning messages; critical and fatal
// ones still reach standard error. Call before the application object.
// Rules of the player's own, in QT_LOGGING_RULES or a QT_LOGGING_CONF
// file, are applied after these and so still win.
void QuietenToolkit();

}  // namespace trickhaven
