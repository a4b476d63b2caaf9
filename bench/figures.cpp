#include "bench/figures.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <juce_gui_basics/juce_gui_basics.h>
#include <map>
#include <vector>

namespace
{
struct row
{
    figure what;
    std::string ours, other; // names of the benchmarks
    std::string unit = "s";
};

struct growth
{
    std::string name;
    int size;
};

std::vector<row>& rows()
{
    static std::vector<row> all;
    return all;
}

std::vector<growth>& growths()
{
    static std::vector<growth> all;
    return all;
}

/** Keeps the time of every repetition, by benchmark. */
class collectingReporter : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext (const Context&) override { return true; }

    void ReportRuns (const std::vector<Run>& runs) override
    {
        for (auto& run : runs)
        {
            if (run.error_occurred)
            {
                std::fprintf (stderr, "%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
                failed = true;
            }
            else if (run.run_type == Run::RT_Iteration)
            {
                seconds[run.run_name.function_name].push_back (run.real_accumulated_time
                                                               / double (run.iterations));
            }
        }
    }

    double median (const std::string& name) const
    {
        auto values = seconds.at (name);
        std::sort (values.begin(), values.end());
        return values[values.size() / 2];
    }

    bool failed = false;
    std::map<std::string, std::vector<double>> seconds;
};

/** A time with three digits and the unit that suits it. */
std::string readable (double seconds)
{
    static constexpr const char* units[] = { "s", "ms", "us", "ns" };
    size_t unit = 0;

    while (seconds < 1 && unit + 1 < std::size (units))
    {
        seconds *= 1000;
        ++unit;
    }

    char text[32];
    std::snprintf (text, sizeof (text),
                   seconds < 10    ? "%.2f %s"
                   : seconds < 100 ? "%.1f %s"
                                   : "%.0f %s",
                   seconds, units[unit]);
    return text;
}

std::string readable (double value, const std::string& unit)
{
    return unit == "s" ? readable (value) : std::to_string (std::lround (value)) + " " + unit;
}
}

void addFigure (const figure& what, const std::function<void (benchmark::State&)>& ours,
                const std::function<void (benchmark::State&)>& other)
{
    const auto number = std::to_string (rows().size());
    rows().push_back ({ what, "ours" + number, "other" + number, "s" });
    benchmark::RegisterBenchmark (rows().back().ours.c_str(), ours);
    auto* registered = benchmark::RegisterBenchmark (rows().back().other.c_str(), other);

    if (what.otherOnce)
        registered->UseManualTime()->Iterations (1)->Repetitions (1);
}

void addReading (const figure& what, const std::string& unit, const std::function<double()>& ours,
                 const std::function<double()>& other, int times)
{
    const auto number = std::to_string (rows().size());
    rows().push_back ({ what, "ours" + number, "other" + number, unit });

    const auto add = [times] (const std::string& name, const std::function<double()>& read) {
        const auto benchmark = [read] (benchmark::State& state) {
            for (auto _ : state)
            {
                const auto value = read();

                if (value < 0)
                    state.SkipWithError ("no value");

                state.SetIterationTime (std::max (0.0, value));
            }
        };
        benchmark::RegisterBenchmark (name.c_str(), benchmark)
            ->UseManualTime()
            ->Iterations (1)
            ->Repetitions (times);
    };

    add (rows().back().ours, ours);
    add (rows().back().other, other);
}

void addGrowth (const std::string& name, int size, const std::function<void (benchmark::State&)>& ours)
{
    growths().push_back ({ name, size });
    benchmark::RegisterBenchmark ((name + std::to_string (size)).c_str(), ours);
}

int main (int argc, char* argv[])
{
    const juce::ScopedJuceInitialiser_GUI framework;

    // Repetitions of all benchmarks in random order: what disturbs the machine for a while disturbs both sides.
    std::string defaults[] = { argv[0], "--benchmark_repetitions=7", "--benchmark_min_time=0.05",
                               "--benchmark_enable_random_interleaving=true" };
    std::vector<char*> arguments;

    for (auto& argument : defaults)
        arguments.push_back (argument.data());

    arguments.insert (arguments.end(), argv + 1, argv + argc);
    auto count = int (arguments.size());
    benchmark::Initialize (&count, arguments.data());

    collectingReporter times;
    benchmark::RunSpecifiedBenchmarks (&times);

    std::printf ("| figure | ours | the other | | speed of ours | reach |\n|---|---:|---:|---|---:|---:|\n");
    const auto wasRun = [&times] (const std::string& name) { return times.seconds.count (name) > 0; };
    auto allReached = ! times.failed;

    for (auto& line : rows())
    {
        if (! wasRun (line.ours) || ! wasRun (line.other))
            continue;

        const auto ours = times.median (line.ours), other = times.median (line.other);
        char reach[32] = "";

        if (line.what.reach > 0)
            std::snprintf (reach, sizeof (reach), "%.2f%s", line.what.reach,
                           other / ours < line.what.reach ? " missed" : "");

        allReached = allReached && other / ours >= line.what.reach;
        std::printf ("| %s | %s | %s | %s | %.2f | %s |\n", line.what.name.c_str(),
                     readable (ours, line.unit).c_str(), readable (other, line.unit).c_str(),
                     line.what.other.c_str(), other / ours, reach);
    }

    std::printf ("\n| how cost grows | size | ours | per element |\n|---|---:|---:|---:|\n");

    for (auto& line : growths())
        if (const auto name = line.name + std::to_string (line.size); wasRun (name))
            std::printf ("| %s | %d | %s | %s |\n", line.name.c_str(), line.size,
                         readable (times.median (name)).c_str(),
                         readable (times.median (name) / line.size).c_str());

    return allReached ? 0 : 1;
}
