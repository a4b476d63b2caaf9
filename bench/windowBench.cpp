#include "bench/figures.h"
#include "bench/runningProgram.h"
#include "bench/scratchFolder.h"
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <chrono>
#include <cstdlib>
#include <juce_data_structures/juce_data_structures.h>
#include <map>
#include <memory>
#include <thread>

static constexpr auto idleTime = std::chrono::seconds (10);
static constexpr double idleNoise = 1.2; // the costliest of three is compared with one

/** The picture of an installation that the programs which are started from now on find. */
static std::string installedSkin()
{
    static const auto skin = [] {
        const auto folder = scratchFolder();
        const auto picture = folder.getChildFile ("gui/klangora 4/generic_background.jpg");
        picture.create();
        juce::File (SKIN_PICTURE).copyFileTo (picture);

        juce::PropertiesFile::Options options;
        options.storageFormat = juce::PropertiesFile::storeAsXML;
        juce::PropertiesFile settings (folder.getChildFile ("Dorvik Electronics/registry.settings"), options);
        settings.setValue ("HKEY_LOCAL_MACHINE\\SOFTWARE\\Dorvik Electronics\\Klangora 4\\InstallationDir",
                           folder.getFullPathName());
        settings.save();

        setenv ("XDG_CONFIG_HOME", folder.getFullPathName().toRawUTF8(), true);
        return picture.getFullPathName().toStdString();
    }();

    return skin;
}

/** From the start of a program until the middle of the black screen has another colour; negative after 10 s. */
static double firstPicture (const std::string& program, const std::vector<std::string>& arguments = {})
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
        const auto start = now();

        for (;;)
        {
            const auto taken = now() - start;

            if (holds() || taken > 10)
                return taken <= 10 ? taken : -1;

            std::this_thread::sleep_for (std::chrono::milliseconds (1));
        }
    };

    double taken = -1;

    if (waitUntil ([&] { return ! isPainted(); }) >= 0)
    {
        const runningProgram started (program, arguments);
        taken = waitUntil (isPainted);
    }

    XCloseDisplay (display);
    return taken;
}

/** Processor time of a bare window and of the costliest of the store's pages. All of them idle through the same
    seconds, once in a run. */
static std::pair<double, double> idleCosts()
{
    static const auto costs = [] {
        std::map<std::string, double> taken;
        std::map<std::string, std::unique_ptr<runningProgram>> programs;

        for (const std::string page : { "none", "welcome", "account", "downloads" })
            programs[page] =
                std::make_unique<runningProgram> ("pageWindow", std::vector<std::string>{ page });

        std::this_thread::sleep_for (std::chrono::seconds (2)); // started and painted

        for (auto& program : programs)
            taken[program.first] = -program.second->processorTime();

        std::this_thread::sleep_for (idleTime);
        auto allRun = true;

        for (auto& program : programs)
        {
            taken[program.first] += program.second->processorTime();
            allRun = allRun && program.second->isRunning();
        }

        const auto costliest = std::max ({ taken["welcome"], taken["account"], taken["downloads"] });
        return allRun ? std::pair (taken["none"], costliest) : std::pair (-1.0, -1.0);
    }();

    return costs;
}

static const int registered = [] {
    addFigure (
        { "from the start to the first picture on screen", "a bare framework window with that picture",
          1 / 1.15, 15 },
        [] {
            installedSkin();
            return firstPicture ("DorvikRigmart");
        },
        [] { return firstPicture ("pageWindow", { installedSkin() }); });
    addFigure (
        { "processor time in 10 s idle, the costliest page", "a bare framework window, and a fifth for noise",
          1, 1 },
        [] { return idleCosts().second; }, [] { return idleCosts().first * idleNoise; });
    return 0;
}();
