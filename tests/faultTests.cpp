#include "sandbox/archiveWriter.h"
#include "tests/support/downloadsRun.h"
#include "tests/support/scriptedServer.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>

#if JUCE_LINUX

    #include <cerrno>
    #include <filesystem>
    #include <sys/stat.h>

/** How calls of the system fail that concern what lies below a folder. */
struct systemFault
{
    std::string folder;
    std::string call; /**< "short" for a write that takes half of it. */
    int number;       /**< Of the call that fails, from 1 on. */
    std::string
        later; /**< The calls that fail after it, too: none, those of a name, or "all" that change anything
                            below the folder, as if the program had been killed there. */
    int calls = 0;
    bool hasHappened = false;
};

static thread_local systemFault* fault = nullptr; // none; the product works on one thread

static std::string pathOf (const char* path)
{
    return path;
}

static std::string pathOf (int file)
{
    std::error_code none;
    return std::filesystem::read_symlink ("/proc/self/fd/" + std::to_string (file), none);
}

/** Whether a call fails now that concerns what lies there. */
template <typename Place>
static bool fails (const char* call, Place place)
{
    if (fault == nullptr || pathOf (place).rfind (fault->folder, 0) != 0)
        return false;

    if (fault->call == call && ++fault->calls == fault->number)
        return fault->hasHappened = true;

    return fault->hasHappened && (fault->later == call || fault->later == "all");
}

// The linker's --wrap leads the calls of these functions through here.
// NOLINTBEGIN(bugprone-reserved-identifier, readability-identifier-naming)
    #define WRAPPED(result, function, parameters, arguments, call, place, error) \
        result __real_##function parameters;                                     \
        result __wrap_##function parameters                                      \
        {                                                                        \
            if (! fails (call, place))                                           \
                return __real_##function arguments;                              \
                                                                                 \
            errno = error;                                                       \
            return -1;                                                           \
        }

extern "C"
{
    WRAPPED (int, open, (const char* path, int flags, mode_t mode), (path, flags, mode), "open", path, EMFILE)
    WRAPPED (int, openat, (int folder, const char* path, int flags, mode_t mode), (folder, path, flags, mode),
             "open", folder, EMFILE)
    WRAPPED (int, fsync, (int file), (file), "fsync", file, EIO)
    WRAPPED (int, mkdir, (const char* path, mode_t mode), (path, mode), "mkdir", path, ENOSPC)
    WRAPPED (int, stat, (const char* path, struct stat* status), (path, status), "stat", path, EIO)
    WRAPPED (int, stat64, (const char* path, struct stat64* status), (path, status), "stat", path, EIO)
    WRAPPED (int, fstat, (int file, struct stat* status), (file, status), "stat", file, EIO)
    WRAPPED (int, unlinkat, (int folder, const char* path, int flags), (folder, path, flags), "unlink",
             folder, EIO)
    WRAPPED (int, rmdir, (const char* path), (path), "rmdir", path, EIO)
    WRAPPED (int, renameat, (int from, const char* path, int to, const char* newPath),
             (from, path, to, newPath), "rename", from, EIO)

    int __real_close (int file);
    ssize_t __real_write (int file, const void* bytes, size_t size);

    /** Closes in any case. */
    int __wrap_close (int file)
    {
        const auto isFailure = fails ("close", file);
        const auto result = __real_close (file);
        errno = isFailure ? EIO : errno;
        return isFailure ? -1 : result;
    }

    ssize_t __wrap_write (int file, const void* bytes, size_t size)
    {
        if (fails ("write", file))
        {
            errno = ENOSPC;
            return -1;
        }

        return __real_write (file, bytes, fails ("short", file) ? (size + 1) / 2 : size);
    }
}
// NOLINTEND(bugprone-reserved-identifier, readability-identifier-naming)

static juce::MemoryBlock itemOfBuild (char build)
{
    const std::string sound (100000, build);
    return archiveWriter{ 4, { { "buildnumber.txt", { build } }, { "sound", sound } } }.write();
}

static const juce::StringArray targets{ "new/folder/item.sa", "old.sa" };

/** The build of the item at a target; 0 without one, and -1 for anything else that is there. */
static int buildAt (const juce::File& target)
{
    juce::MemoryBlock bytes;
    target.loadFileAsData (bytes);

    for (const auto build : { '1', '2' })
        if (bytes == itemOfBuild (build))
            return build - '0';

    return target.exists() ? -1 : 0;
}

/** Installs the second build of both items, with a fault or none, and returns the boxes. */
static juce::String install (const juce::File& folder, systemFault* planned = nullptr)
{
    const auto item = itemOfBuild ('2');
    scriptedServer server;
    juce::Array<DownloadItem> catalogue;

    for (auto& target : targets)
    {
        catalogue.add ({ server.origin(), target, target, 2 });

        if (buildAt (folder.getChildFile (target)) != 2)
            server.reply (okReply ({ item.begin(), item.end() }));
    }

    const juce::ScopedValueSetter<systemFault*> happening (fault, planned, nullptr);
    return runDownloads (catalogue).joinIntoString ("\n");
}

/** One installation with a fault, in a folder where one item is there in an older build, and the other not at all.
    Returns whether the fault happened. */
static bool installWith (const char* call, int number, const char* later)
{
    const temporaryInstallation installation;
    installation.write ("old.sa", itemOfBuild ('1'));
    systemFault planned{ installation.path.toStdString(), call, number, later };
    const auto boxes = install (installation.folder, &planned);
    const auto successes = boxes.fromFirstOccurrenceOf ("Successfully downloaded: ", false, false);
    const auto isDeath = planned.later == "all";
    auto others = installation.files();

    for (auto& target : targets)
    {
        const auto build = buildAt (installation.folder.getChildFile (target));
        CAPTURE (call, number, boxes, target, build);
        CHECK ((build == 2 || build == (target == "old.sa" ? 1 : 0)));
        CHECK ((isDeath || boxes.contains (target)));
        CHECK ((isDeath || build == 2 || ! successes.contains (target)));
        others.removeString (target);
    }

    CAPTURE (call, number, boxes);

    if (! isDeath)
    {
        CHECK (others == juce::StringArray()); // nothing else stays
        CHECK (installation.folder.getChildFile ("new").exists()
               == installation.files().contains (targets[0]));
    }
    else if (planned.hasHappened)
    {
        install (installation.folder); // which puts everything right
        CHECK (installation.files() == targets);

        for (auto& target : targets)
            CHECK (buildAt (installation.folder.getChildFile (target)) == 2);
    }

    return planned.hasHappened;
}

/** Lets each call of this name fail, one after the other. */
static void installWithEach (const char* call, const char* later)
{
    auto number = 1;

    while (installWith (call, number, later))
        ++number;

    INFO (call << " is never called");
    CHECK (number > 1);
}

TEST_CASE ("whichever call of the system fails, an item is old or new, and nothing else stays")
{
    const auto* call = GENERATE ("open", "write", "short", "fsync", "close", "rename", "mkdir", "stat");
    installWithEach (call, "none");
    installWithEach (call, call);
}

TEST_CASE ("wherever an installation is killed, an item is old or new, and the next one ends it")
{
    installWithEach (GENERATE ("open", "write", "rename", "mkdir"), "all");
}

#endif
