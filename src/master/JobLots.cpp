#include "master/JobLots.h"

namespace tarnwell {

QString lotsOfJob(qint64 jobKey) {
    return "SELECT * FROM JobLot WHERE JobKey=" + QString::number(jobKey) + " ORDER BY LotBlock";
}

} // namespace tarnwell
