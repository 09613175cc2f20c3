#include "support/ScreenTest.h"

#include "frame/Forms.h"
#include "runtime/DataEnvironment.h"
#include "runtime/modGlobalVariables.h"

namespace tarnwell::test {

void ScreenTest::workOn(const TemporaryDatabase& database) {
    gAppPath = database.folder();
    gProgramFolder = database.folder() + u'/';
    gConnectionString = database.connectionString();
}

void ScreenTest::TearDown() {
    unloadRemainingForms();
    DataEnvironment::close();
    gAppPath.clear();
    gProgramFolder.clear();
    gConnectionString.clear();
}

} // namespace tarnwell::test
