#pragma once

namespace tarnwell {

/// Assistive tools meet a combo under its name, with its text as the value, instead of under its text; a tool
/// button with its keys, and pressing it keeps them waiting for nothing; the arrows beside a date as what
/// turns it. Called after the application was made; a second call changes nothing.
void installAccessibleControls();

} // namespace tarnwell
