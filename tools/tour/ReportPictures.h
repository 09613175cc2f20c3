#pragma once

#include "tour/Driver.h"

namespace tarnwell::tour {

/// The report generator, the preview and each report's first page.
void takeReportPictures(Driver& driver);

} // namespace tarnwell::tour
