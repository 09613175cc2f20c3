#include <QApplication>

#include <benchmark/benchmark.h>
#include <cstdlib>

int main(int argc, char** argv) {
    if (std::getenv("QT_QPA_PLATFORM") == nullptr)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
