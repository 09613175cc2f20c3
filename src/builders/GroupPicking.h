#pragma once

namespace tarnwell {

class frmAddOptionGroup;

/// Lets the user pick tasks of the catalogue for the group that the option group screen has chosen, in a
/// modal dialog above it.
void pickForGroup(frmAddOptionGroup& groups);

} // namespace tarnwell
