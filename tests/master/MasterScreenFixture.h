#pragma once

#include "CatalogueData.h"
#include "support/DrivenScreen.h"

#include <QLineEdit>

namespace tarnwell::test {

/// A screen over the catalogue.
template <class Form>
struct MasterScreenTest : DrivenScreen<Form, CatalogueData> {
    Combo& category() { return this->combo(); }
    void typeCategory(const char* text) {
        this->driver->focus("cmbType");
        category().lineEdit()->selectAll();
        this->driver->type(text);
    }
};

} // namespace tarnwell::test
