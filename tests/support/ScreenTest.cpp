#include "support/ScreenTest.h"

#include "frame/DataEnvironment.h"
#include "frame/Forms.h"
#include "frame/modGlobalVariables.h"

namespace tarnwell::test {

void ScreenTest::workOn(const TemporaryDatabase& database) {
    gAppPath = database.folder();
    gProgramFolder = database.folder() + u'/';
    gConnectionString = connectionStringFor(database.path());
}

void ScreenTest::TearDown() {
    unloadRemainingForms();
    DataEnvironment::close();
    gAppPath.clear();
    gProgramFolder.clear();
    gConnectionString.clear();
}

} // namespace tarnwell::test
