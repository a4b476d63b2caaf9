#pragma once

#include <benchmark/benchmark.h>
#include <functional>
#include <string>

/** One row of the table that bench.sh prints: our way of doing something against another way, measured in turn in
    the same run. */
struct figure
{
    std::string name;
    std::string other; /**< What ours is held against. */
    double reach;      /**< How fast ours has to be, as a multiple of the other's speed; 0: only reported. */
    bool otherOnce = false; /**< The other takes so long that one time has to do, which it tells by itself. */
};

/** Adds a row with the benchmarks of both ways. Called during static initialisation. */
void addFigure (const figure& row, const std::function<void (benchmark::State&)>& ours,
                const std::function<void (benchmark::State&)>& other);

/** Adds a measurement of ours alone, to show how a cost grows. */
void addGrowth (const std::string& name, int size, const std::function<void (benchmark::State&)>& ours);

/** Adds a row for values that are no benchmark's times, smaller being better: each is read so many times in turn.
    A negative value is a failure. `unit` is "s" for seconds, or what is printed behind the value. */
void addReading (const figure& row, const std::string& unit, const std::function<double()>& ours,
                 const std::function<double()>& other, int times);
