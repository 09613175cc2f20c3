#pragma once

#include <QString>

class QWidget;

namespace tarnwell {

/// A control of a form, with the name and the tool tip that it gets.
struct NamedControl {
    QWidget* control;
    QString name;
    QString toolTip = {};
};

} // namespace tarnwell
