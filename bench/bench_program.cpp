#include "bench_program.h"

#include <iostream>
#include <stdexcept>

namespace {

std::filesystem::path programFolder;

}  // namespace

const std::filesystem::path& folder() { return programFolder; }

void require(bool holds, const std::string& what) {
  if (!holds) throw std::runtime_error(what);
}

void measure(const std::string& name, const std::function<void(benchmark::State&)>& work, bool byTheClock,
             int iterations) {
  auto* const entry = benchmark::RegisterBenchmark(name.c_str(), [work](benchmark::State& state) {
    try {
      work(state);
    } catch (const std::exception& error) {
      state.SkipWithError(error.what());
    }
  });
  entry->Unit(benchmark::kMillisecond);
  if (byTheClock) entry->UseRealTime();
  if (iterations > 0) entry->Iterations(iterations);
}

void each(benchmark::State& state, const std::function<void()>& before, const std::function<void()>& act) {
  for (auto _ : state) {
    state.PauseTiming();
    before();
    state.ResumeTiming();
    act();
  }
}

int main(int argc, char** argv) {
  if (argc < 2 || !std::filesystem::exists(std::filesystem::path(argv[1]) / "comp.mdb")) {
    std::cerr << argv[0] << " FOLDER [--benchmark_...]: a program folder with a large company-year\n";
    return 1;
  }
  programFolder = std::filesystem::canonical(argv[1]);
  argv[1] = argv[0];
  int rest = argc - 1;
  benchmark::Initialize(&rest, argv + 1);
  if (benchmark::ReportUnrecognizedArguments(rest, argv + 1)) return 1;
  addMeasurements();
  benchmark::RunSpecifiedBenchmarks();
  endProgram();
  return 0;
}
