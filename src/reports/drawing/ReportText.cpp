#include "reports/drawing/ReportText.h"

#include "runtime/RunTime.h"

namespace tarnwell {

QString titleText(const QString& title) {
    return title + Format(Now(), "mm/dd/yy hh:mm");
}

QString dateText(const Value& date) {
    static const QString format = QStringLiteral("mm/dd/yy");
    return Format(date, format);
}

QString amountText(const Value& amount) {
    static const QString format = QStringLiteral("#0.00");
    return Format(amount, format);
}

} // namespace tarnwell
