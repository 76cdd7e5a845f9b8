#include <controls/look.h>

#include <QApplication>

#include <benchmark/benchmark.h>

/// Runs the benchmarks of a program that needs windows, with the look they have for users.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    tqx::look::Apply(application);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
