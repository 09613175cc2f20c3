#pragma once

#include <QString>

#include <functional>

namespace tarnwell {

inline QString gRegistryKey;      ///< The settings' key path.
inline QString gUserName;         ///< Login name; empty when it could not be read.
inline QString gComputerName;     ///< Read at start; nothing uses it.
inline QString gWindowsFolder;    ///< Read at start; nothing uses it.
inline QString gAppPath;          ///< The program's folder, without a separator at its end.
inline QString gProgramFolder;    ///< The running program's folder. `gAppPath` differs in a developer's copy.
inline QString gConnectionString; ///< What `cnnConnection` opens.
inline QString gImportPath;       ///< Folder, with a separator at its end; likewise the paths below.
inline QString gLogPath;
inline QString gLayoutPath;
inline QString gDataPath;
inline QString gReportDataPath;             ///< A file.
inline bool gHiddenMode = false;            ///< The program runs with its window hidden. Nothing sets it.
inline std::function<void()> gHiddenWindow; ///< Shows the window when an error comes in hidden mode.
inline bool gBatchMode = false;             ///< Errors are recorded, not shown. Nothing sets it.
inline int gLastError = 0;                  ///< Number of the last error in batch mode.

} // namespace tarnwell
