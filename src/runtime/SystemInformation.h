#pragma once

#include "runtime/modRegistry.h"

#include <QString>

namespace tarnwell {

/// Reads a settings value as text: true when it was read. A number becomes "&h" and its hexadecimal digits,
/// two for each of its four bytes, highest first. False, with an empty result, when there is no such value or
/// its text and closing NUL do not fit 1,024 characters.
bool GetKeyValue(RegistryRoot root, const QString& keyPath, const QString& valueName, QString& result);

/// Runs the system information tool that the settings name, by its command or by its folder. A message
/// reports that there is none or that it can't be started.
void StartSysInfo();

} // namespace tarnwell
