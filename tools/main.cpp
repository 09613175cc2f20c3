#include "DatabaseTool.h"

#include <QCoreApplication>

#include <cstdio>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

bool isTerminal(FILE* file) {
#ifdef Q_OS_WIN
    return _isatty(_fileno(file)) != 0;
#else
    return isatty(fileno(file)) != 0;
#endif
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    return tarnwell::tool::runTool(QCoreApplication::arguments(), {out, err, isTerminal(stderr)});
}
