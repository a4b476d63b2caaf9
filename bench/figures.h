#pragma once

#include <functional>
#include <string>

/** One row of the table: our way of doing something beside another way of doing it. The two are measured in pairs,
    one right after the other and in turns which comes first, and each pair gives one ratio: what disturbs the machine
    for a while disturbs both. */
struct figure
{
    std::string name;
    std::string other; /**< What ours is held against. */
    double reach;      /**< The least ratio, as the other's value divided by ours. */
    int pairs;
    std::string unit = "s"; /**< "s" for seconds; else what is printed behind the value. */
};

/** Measures once: a value of which less is better, negative after a failure. */
using reading = std::function<double()>;

/** Adds a row. Called during static initialisation. */
void addFigure (const figure& row, const reading& ours, const reading& other);

/** The time of one call, from as many as a twentieth of a second has room for. The work returns whether it was
    done. */
reading timed (const std::function<bool()>& work);

/** Seconds on a clock that is never set. */
double now();

/** What the command line asks for beside the rows. */
struct measurement
{
    std::string session;          /**< Command that starts sessionRun: for Windows, on Linux, through Wine. */
    std::string certificate, key; /**< Of the TLS server, as files; the system trusts it. */
};

const measurement& presentMeasurement();
