#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace tarnwell {

/// What a trial of a database found.
struct TrialResult {
    bool isUsable = false; ///< A database of ours that the user may read and write.
    QString text = {};     ///< For the user: what it holds, or what stands in the way.
};

/// Opens the database as a start would, counts a few of its rows and closes it; nothing is changed. What is
/// raised becomes the result's text.
[[nodiscard]] TrialResult tryDatabase(const QString& connectionString);

/// The same on a thread of its own, while `goesOn` is asked about every 10 ms; it may handle events. Nothing
/// once it says false: the connection attempt cannot be ended, so its thread is left to end by itself, and
/// the application waits for it at its own end.
[[nodiscard]] std::optional<TrialResult> tryDatabase(const QString& connectionString,
                                                     const std::function<bool()>& goesOn);

} // namespace tarnwell
