#pragma once

#include <QString>
#include <QStringList>

namespace tarnwell::test {

/// The work of one workstation, in a process of its own.
struct WorkOrder {
    QString connectionString;
    QString name; ///< Part of every note that it writes, so that each stands for one write.
    quint32 seed = 0;
    int actions = 0;
    QString journal; ///< The file to which it adds what it did.

    [[nodiscard]] QStringList arguments() const;
    static WorkOrder fromArguments(const QStringList& arguments);
};

/// Does that many things at random among a few rows that all workstations share: pays, corrects and removes
/// payments, carries prices, fills, copies, edits and deletes lots and tasks. The exit code of its process.
///
/// A line of the journal is written behind what it reports, its parts divided by tabs:
///     tries      the note that a payment or a correction is about to write, its price
///     paid       the note of a payment that was written
///     corrected  the payment's first note, the note that was shown, the one that was written
///     removes    the first note of a payment that is about to be removed
///     removed    the same once it is
///     edited     the lot's key, the address that was shown, the one that was written
///     refused    the error's number, its text
int work(const WorkOrder& order);

} // namespace tarnwell::test
