#pragma once

#include <QObject>

namespace tarnwell {

/// Alt with a letter that nothing in the window answers to types nothing. The toolkit would put the letter
/// into the field, where it is stored with the record.
class AltLetterFilter : public QObject {
    Q_OBJECT

public:
    /// Watches the whole application for as long as it lives.
    explicit AltLetterFilter(QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tarnwell
