#include "bench/figures.h"
#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <juce_gui_basics/juce_gui_basics.h>
#include <vector>

namespace
{
struct row
{
    figure what;
    reading ours, other;
};

std::vector<row>& rows()
{
    static std::vector<row> all;
    return all;
}

measurement& wanted()
{
    static measurement present;
    return present;
}

/** Values of all pairs, with what stands at a share of them. */
class sample
{
public:
    void add (double value) { values.insert (std::upper_bound (values.begin(), values.end(), value), value); }

    /** Between the two neighbours where none is exactly there. */
    double at (double share) const
    {
        const auto place = share * double (values.size() - 1);
        const auto below = size_t (place), above = std::min (below + 1, values.size() - 1);
        return values[below] + (place - double (below)) * (values[above] - values[below]);
    }

private:
    std::vector<double> values;
};

/** A value with three digits and, where it is a time, the unit that suits it. */
std::string readable (double value, const std::string& unit)
{
    static constexpr const char* units[] = { "s", "ms", "us", "ns" };
    size_t scale = 0;

    for (; unit == "s" && value < 1 && scale + 1 < std::size (units); ++scale)
        value *= 1000;

    char text[32];
    const auto digits = unit == "s" ? std::clamp (2 - int (std::log10 (value)), 0, 2) : 0;
    std::snprintf (text, sizeof (text), "%.*f %s", digits, value, unit == "s" ? units[scale] : unit.c_str());
    return text;
}

/** Measures a row and prints it. Returns whether it reached what it has to. */
bool measure (const row& line)
{
    sample ours, other, speed;

    for (int i = 0; i < line.what.pairs; ++i)
    {
        const auto oursFirst = i % 2 == 0;
        const auto first = oursFirst ? line.ours() : line.other();
        const auto second = oursFirst ? line.other() : line.ours();

        if (first <= 0 || second <= 0)
        {
            std::printf ("| %s | | | %s | failed | | |\n", line.what.name.c_str(), line.what.other.c_str());
            return false;
        }

        ours.add (oursFirst ? first : second);
        other.add (oursFirst ? second : first);
        speed.add (oursFirst ? second / first : first / second);
    }

    const auto reached = speed.at (0.5) >= line.what.reach;
    std::printf ("| %s | %s | %s | %s | %.2f%s | %.2f to %.2f of %d | %.2f |\n", line.what.name.c_str(),
                 readable (ours.at (0.5), line.what.unit).c_str(),
                 readable (other.at (0.5), line.what.unit).c_str(), line.what.other.c_str(), speed.at (0.5),
                 reached ? "" : " missed", speed.at (0.25), speed.at (0.75), line.what.pairs,
                 line.what.reach);
    std::fflush (stdout);
    return reached;
}
}

void addFigure (const figure& what, const reading& ours, const reading& other)
{
    rows().push_back ({ what, ours, other });
}

double now()
{
    return std::chrono::duration<double> (std::chrono::steady_clock::now().time_since_epoch()).count();
}

reading timed (const std::function<bool()>& work)
{
    return [work] {
        static constexpr double longEnough = 0.05;
        auto done = true;
        int calls = 0;
        const auto start = now();
        auto taken = 0.0;

        for (; done && taken < longEnough; taken = now() - start, ++calls)
            done = work();

        return done ? taken / calls : -1;
    };
}

const measurement& presentMeasurement()
{
    return wanted();
}

// NOLINTNEXTLINE(bugprone-exception-escape): a wrong description of the options is a fault of this file
int main (int argc, char* argv[])
{
    const juce::ScopedJuceInitialiser_GUI framework;
    const auto here = juce::File::getSpecialLocation (juce::File::currentExecutableFile);
    wanted().session = here.getSiblingFile ("sessionRun").getFullPathName().toStdString();
    std::vector<std::string> names;

    CLI::App line ("Measures, and prints a table in Markdown. Fails when a row misses its reach.");
    line.add_option ("rows", names, "Only the rows whose names hold one of these texts");
    line.add_option ("--session", wanted().session, "Command that starts sessionRun");
    line.add_option ("--certificate", wanted().certificate, "Of the TLS server; the system trusts it")
        ->required();
    line.add_option ("--key", wanted().key, "Of that certificate")->required();
    CLI11_PARSE (line, argc, argv);

    std::printf ("| figure | ours | the other | | speed of ours | middle half | reach |\n"
                 "|---|---:|---:|---|---:|---:|---:|\n");
    auto allReached = true;

    for (auto& each : rows())
        if (names.empty() || std::any_of (names.begin(), names.end(), [&] (const std::string& text) {
                return each.what.name.find (text) != std::string::npos;
            }))
            allReached = measure (each) && allReached;

    return allReached ? EXIT_SUCCESS : EXIT_FAILURE;
}
