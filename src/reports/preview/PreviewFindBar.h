#pragma once

#include "reports/preview/PreviewDocument.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class QToolButton;

namespace tarnwell {

/// The line below the pages that looks for a text. Enter is the next hit, Shift+Enter the one before.
class PreviewFindBar : public QWidget {
    Q_OBJECT

public:
    explicit PreviewFindBar(QWidget* parent);

    /// Shows the bar with its text chosen, ready to type over.
    void open();
    [[nodiscard]] PageSearch search() const;
    /// "3 of 17", or what else is to be said of the search; `missing` in the colour of a failure.
    void setResult(const QString& text, bool missing);

Q_SIGNALS:
    void searchChanged();
    /// 1: the next hit is wanted, -1: the one before.
    void stepWanted(int direction);
    void closeWanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QToolButton* addButton(const QString& name, const QString& image, const QString& text,
                           const QString& toolTip);

    QLineEdit* m_text;
    QCheckBox* m_letters;
    QLabel* m_result;
    QToolButton* m_previous;
    QToolButton* m_next;
};

} // namespace tarnwell
