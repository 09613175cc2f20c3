#pragma once

#include <QPlainTextEdit>

namespace tarnwell {

/// A note of several lines, without a limit. Tab leaves it.
class NoteBox : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit NoteBox(QWidget* parent = nullptr);

    /// The note as plain text, its lines divided by "\n".
    [[nodiscard]] QString text() const { return toPlainText(); }
    void setText(const QString& text) { setPlainText(text); }

    /// Two lines are the least that invites a note.
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void insertFromMimeData(const QMimeData* source) override;
};

} // namespace tarnwell
