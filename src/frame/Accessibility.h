#pragma once

class QLabel;

namespace tarnwell {

/// Our controls and grids meet assistive tools as themselves from here on, and tool tips show their keys.
/// Called once, when the application is made.
void installAccessibility();

/// Has assistive tools read out what a text on the screen says since it was set. Costs nothing while none is
/// active.
void announce(QLabel& text);

} // namespace tarnwell
