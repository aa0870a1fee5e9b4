#include "bench/Baselines.h"
#include "bench/BenchDocument.h"
#include "bench/RatioReporter.h"
#include "document/CollectPrRecords.h"

#include <QCoreApplication>

namespace {

void readFile(benchmark::State &state)
{
    const BenchDocument document(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        document.read(true);
    }
}

void readBaseline(benchmark::State &state)
{
    const BenchDocument document(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(baselines::splitFile(document.fileName()));
        baselines::passEvents(document.rowCount());
    }
}

void readWithoutEvents(benchmark::State &state)
{
    const BenchDocument document(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        document.read(false);
    }
}

void splitOnly(benchmark::State &state)
{
    const BenchDocument document(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(baselines::splitFile(document.fileName()));
    }
}

void collect(benchmark::State &state)
{
    const BenchDocument document(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        static_cast<void>(CollectPrRecords(document.grid()));
    }
}

void saveFile(benchmark::State &state)
{
    const BenchDocument document(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        document.save(true);
    }
}

void saveBaseline(benchmark::State &state)
{
    const BenchDocument document(static_cast<int>(state.range(0)));
    const QStringList fields = baselines::splitFile(document.fileName());
    for (auto _ : state) {
        baselines::joinToFile(fields, document.joinedName());
        baselines::passEvents(document.rowCount());
    }
}

void saveWithoutEvents(benchmark::State &state)
{
    const BenchDocument document(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        document.save(false);
    }
}

void joinOnly(benchmark::State &state)
{
    const BenchDocument document(static_cast<int>(state.range(0)));
    const QStringList fields = baselines::splitFile(document.fileName());
    for (auto _ : state) {
        baselines::joinToFile(fields, document.joinedName());
    }
}

void registerAll()
{
    const std::pair<const char *, void (*)(benchmark::State &)> benchmarks[] = {{"readFile", readFile},
        {"readBaseline", readBaseline}, {"readWithoutEvents", readWithoutEvents}, {"splitOnly", splitOnly},
        {"collect", collect}, {"saveFile", saveFile}, {"saveBaseline", saveBaseline},
        {"saveWithoutEvents", saveWithoutEvents}, {"joinOnly", joinOnly}};
    constexpr int repetitions = 11;
    for (const auto &[name, function] : benchmarks) {
        benchmark::RegisterBenchmark(name, function)
            ->Arg(1000)
            ->Arg(32767)
            ->UseRealTime()
            ->MinTime(0.05)
            ->Repetitions(repetitions)
            ->ReportAggregatesOnly()
            ->Unit(benchmark::kMillisecond);
    }
}

std::vector<Ratio> ratios()
{
    std::vector<Ratio> ratios;
    for (const std::string rows : {"1000", "32767"}) {
        ratios.push_back({"read, " + rows + " rows", "readFile/" + rows, "readBaseline/" + rows, 1.3});
        ratios.push_back(
            {"  without event passes on either side", "readWithoutEvents/" + rows, "splitOnly/" + rows, 1.3});
        ratios.push_back({"collect and write, " + rows + " rows", "saveFile/" + rows, "saveBaseline/" + rows, 1.5});
        ratios.push_back(
            {"  without event passes on either side", "saveWithoutEvents/" + rows, "joinOnly/" + rows, 1.5});
    }
    // 32.767 times the rows may take 1.2 times that.
    constexpr double linear = 32.767 * 1.2;
    ratios.push_back({"read, 32767 rows against 1000", "readFile/32767", "readFile/1000", linear});
    ratios.push_back({"collect and write, 32767 rows against 1000", "saveFile/32767", "saveFile/1000", linear});
    return ratios;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    registerAll();
    RatioReporter reporter(ratios());
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
