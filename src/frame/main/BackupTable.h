#pragma once

#include "frame/main/BackupEntry.h"

#include <QTableWidget>

#include <vector>

class QLabel;

namespace tarnwell {

/// The data at work and the backups, one a line. What they hold is filled in as it becomes known.
class BackupTable : public QTableWidget {
    Q_OBJECT

public:
    explicit BackupTable(QWidget* parent);

    /// Replaces all lines. `hint` is shown below them while there are no backups.
    void setEntries(const std::vector<BackupEntry>& entries, const QString& hint);
    void showFigures(const EntryFigures& figures);
    /// The current line, or -1.
    [[nodiscard]] int currentEntry() const;
    void setCurrentEntry(int entry);

Q_SIGNALS:
    /// A double click on a line, or Enter.
    void chosen();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void setText(int row, int column, const QString& text);
    void placeHint();
    void fitColumns();

    QLabel* m_hint;
};

} // namespace tarnwell
