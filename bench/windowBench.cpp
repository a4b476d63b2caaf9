#include "bench/figures.h"
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <csignal>
#include <fstream>
#include <juce_core/juce_core.h>
#include <map>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>

static constexpr auto idleTime = std::chrono::seconds (10);
static constexpr double idleNoise = 0.02; // seconds of processor time in those

namespace
{
/** A program of ours, ended with this. */
class runningProgram
{
public:
    explicit runningProgram (const juce::String& name, const char* argument = nullptr)
    {
        const auto file =
            juce::File::getSpecialLocation (juce::File::currentExecutableFile).getSiblingFile (name);
        const auto path = file.getFullPathName().toStdString();
        auto* program = const_cast<char*> (path.c_str());
        char* arguments[] = { program, const_cast<char*> (argument), nullptr };

        if (posix_spawn (&id, program, nullptr, nullptr, arguments, environ) != 0)
            id = -1;
    }

    ~runningProgram()
    {
        if (id > 0)
        {
            kill (id, SIGKILL);
            waitpid (id, nullptr, 0);
        }
    }

    bool isRunning() const { return id > 0 && waitpid (id, nullptr, WNOHANG) == 0; }

    /** Processor time of all threads, in seconds. */
    double processorTime() const
    {
        double total = 0;

        for (auto& thread : juce::File ("/proc/" + juce::String (id) + "/task")
                                .findChildFiles (juce::File::findDirectories, false))
        {
            double nanoseconds = 0;
            std::ifstream (thread.getChildFile ("schedstat").getFullPathName().toStdString()) >> nanoseconds;
            total += nanoseconds / 1e9;
        }

        return total;
    }

private:
    pid_t id = -1;

    JUCE_DECLARE_NON_COPYABLE (runningProgram)
};
}

/** From the start of a program until the middle of the black screen has another colour; negative after 10 s. */
static double firstPicture (const juce::String& program)
{
    auto* display = XOpenDisplay (nullptr);

    if (display == nullptr)
        return -1;

    const auto root = DefaultRootWindow (display);
    const auto x = DisplayWidth (display, 0) / 2, y = DisplayHeight (display, 0) / 2;
    const auto isPainted = [&] {
        static constexpr int size = 32;
        auto* image = XGetImage (display, root, x, y, size, size, AllPlanes, ZPixmap);
        auto painted = false;

        for (int i = 0; i < size * size; ++i)
            painted = painted || (XGetPixel (image, i % size, i / size) & 0xffffff) != 0;

        XDestroyImage (image);
        return painted;
    };
    const auto waitUntil = [] (const auto& holds) {
        const auto start = juce::Time::getMillisecondCounterHiRes();

        for (;;)
        {
            const auto taken = (juce::Time::getMillisecondCounterHiRes() - start) / 1000;

            if (holds() || taken > 10)
                return taken <= 10 ? taken : -1;

            std::this_thread::sleep_for (std::chrono::milliseconds (1));
        }
    };

    double taken = -1;

    if (waitUntil ([&] { return ! isPainted(); }) >= 0)
    {
        const runningProgram started (program);
        taken = waitUntil (isPainted);
    }

    XCloseDisplay (display);
    return taken;
}

/** Processor time of a window over the time above. All of them idle through the same seconds, once in a run. */
static double idleCost (const std::string& page)
{
    static const auto costs = [] {
        std::map<std::string, double> taken;
        std::map<std::string, std::unique_ptr<runningProgram>> programs;

        for (auto* name : { "", "welcome", "account", "downloads" })
            programs[name] = std::make_unique<runningProgram> ("pageWindow", name);

        std::this_thread::sleep_for (std::chrono::seconds (2)); // started and painted

        for (auto& program : programs)
            taken[program.first] = -program.second->processorTime();

        std::this_thread::sleep_for (idleTime);

        for (auto& program : programs)
            taken[program.first] =
                program.second->isRunning() ? taken[program.first] + program.second->processorTime() : -1;

        return taken;
    }();

    return costs.at (page);
}

static const int registered = [] {
    addReading (
        { "from the start to the first picture on screen", "a bare framework window", 1 / 1.3 }, "s",
        [] { return firstPicture ("DorvikRigmart"); }, [] { return firstPicture ("pageWindow"); }, 7);

    for (const std::string page : { "welcome", "account", "downloads" })
        addReading (
            { "processor time in 10 s idle, " + page + " page",
              "a bare framework window, and 20 ms for noise", 1 },
            "s", [page] { return idleCost (page); }, [] { return idleCost ("") + idleNoise; }, 1);

    return 0;
}();
