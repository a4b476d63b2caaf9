#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

/** A program of the build, started beside the benchmark; ended with the object. */
class runningProgram
{
public:
    /** @param name  of the program's file, in the benchmark's own folder */
    explicit runningProgram (const std::string& name, const std::vector<std::string>& arguments = {});
    ~runningProgram();

    runningProgram (const runningProgram&) = delete;
    runningProgram& operator= (const runningProgram&) = delete;

    bool isRunning();

    /** The next line that the program prints, waited for; empty when there is none any more. */
    std::string readLine() const;

    /** Tells the program to end and waits until it has. What it printed can still be read. */
    void end();

    /** Processor time of all its threads, in seconds. */
    double processorTime() const;

private:
    pid_t id = -1; // -1 once it has ended
    int output = -1;
};
