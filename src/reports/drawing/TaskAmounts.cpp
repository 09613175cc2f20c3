#include "reports/drawing/TaskAmounts.h"

#include "data/recordset/Recordset.h"
#include "runtime/RunTime.h"
#include "runtime/modFormatFunctions.h"

#include <cmath>

namespace tarnwell {

namespace {

constexpr double halfCent = 0.005;

/// The double that is nearest to the sum's first six decimals. A sum too great to have as many stays.
double withoutNoise(double sum) {
    constexpr double decimals = 1e6;
    constexpr double greatest = 1e9;
    return std::abs(sum) < greatest ? std::round(sum * decimals) / decimals : sum;
}

} // namespace

void AmountSums::addPayments(Connection& connection, const QString& key, const QString& condition) {
    read(connection, "SELECT JobLotTask." + key +
                         ", SUM(Price) FROM JobLotTask INNER JOIN JobTaskEmployee ON "
                         "JobLotTask.JobLotTaskKey = JobTaskEmployee.JobLotTaskKey WHERE " +
                         condition + " GROUP BY JobLotTask." + key);
}

void AmountSums::addPrices(Connection& connection, const QString& key, const QString& condition) {
    read(connection, "SELECT JobLotTask." + key + ", SUM(MasterPrice) FROM JobLotTask WHERE " + condition +
                         " GROUP BY JobLotTask." + key);
}

void AmountSums::read(Connection& connection, const QString& statement) {
    Recordset sums;
    sums.Open(statement, connection, CursorType::ForwardOnly);
    for (; !sums.atEnd(); sums.MoveNext())
        m_sums.insert_or_assign(sums.field(0).toLong(), withoutNoise(NullToZero(sums.field(1)).toDouble()));
}

double AmountSums::of(qint64 key) const {
    const auto found = m_sums.find(key);
    return found == m_sums.end() ? 0.0 : found->second;
}

double roundedAmount(double amount) {
    return Round(amount, 2);
}

double inSinglePrecision(double amount) {
    return static_cast<double>(static_cast<float>(amount));
}

bool isShown(DetailLevel detail, double left) {
    switch (detail) {
    case DetailLevel::PaidFull:
        return left < halfCent;
    case DetailLevel::Unpaid:
        return left > halfCent;
    case DetailLevel::All:
        break;
    }
    return true;
}

} // namespace tarnwell
