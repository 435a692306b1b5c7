#pragma once

#include <benchmark/benchmark.h>

#include <filesystem>
#include <functional>
#include <string>

// What the programs that measure share: each is started as PROGRAM FOLDER [--benchmark_...] on a
// program folder whose company-year is large.

const std::filesystem::path& folder();

// Ends the measurement that runs with an error.
void require(bool holds, const std::string& what);

// Adds a measurement. Where a wait is part of the work it is repeated by the clock and not by
// the CPU time; with a count it is repeated so often.
void measure(const std::string& name, const std::function<void(benchmark::State&)>& work,
             bool byTheClock = false, int iterations = 0);

// Runs `before` outside the measured time and `act` inside it, again and again.
void each(benchmark::State& state, const std::function<void()>& before, const std::function<void()>& act);

// Each program's own: adds its measurements, and lets go of the program at the end.
void addMeasurements();
void endProgram();
