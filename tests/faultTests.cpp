#include "sandbox/archiveWriter.h"
#include "tests/support/downloadsRun.h"
#include "tests/support/scriptedServer.h"
#include "tests/support/temporaryInstallation.h"
#include <catch2/catch.hpp>

#if JUCE_LINUX

    #include <cerrno>
    #include <fcntl.h>
    #include <sys/stat.h>
    #include <unistd.h>

/** How calls of the system fail that concern what lies below a folder. */
struct systemFault
{
    enum class kind
    {
        once,   /**< One call. */
        always, /**< That call, and all later ones of its name. */
        death   /**< Nothing below the folder changes any more, as if the program had been killed there. */
    };

    std::string folder;
    std::string call; /**< "short" for a write that takes half of it. */
    int number;       /**< Of the call that fails, from 1 on. */
    kind howLong;
    int calls = 0;
    bool hasHappened = false;
};

static systemFault* fault = nullptr; // none

static bool isBelow (const char* path)
{
    return fault != nullptr && std::string (path).compare (0, fault->folder.size(), fault->folder) == 0;
}

static bool isBelow (int file)
{
    char path[4096] = {};
    const auto link = "/proc/self/fd/" + std::to_string (file);
    return fault != nullptr && readlink (link.c_str(), path, sizeof (path) - 1) > 0 && isBelow (path);
}

/** Whether a call fails now that concerns what lies there. */
template <typename Place>
static bool fails (const char* call, Place place)
{
    if (! isBelow (place))
        return false;

    if (fault->call == call && ++fault->calls == fault->number)
        return fault->hasHappened = true;

    return fault->hasHappened
           && (fault->howLong == systemFault::kind::death
               || (fault->howLong == systemFault::kind::always && fault->call == call));
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

static juce::MemoryBlock itemOfBuild (const char* build)
{
    return archiveWriter{
        4, { { "buildnumber.txt", build }, { "sound", std::string (100000, *build) } }
    }.write();
}

static const juce::String oldTarget ("old.sa"), newTarget ("new/folder/item.sa");

static bool holds (const temporaryInstallation& installation, const juce::String& target, const char* build)
{
    juce::MemoryBlock bytes;
    return installation.folder.getChildFile (target).loadFileAsData (bytes) && bytes == itemOfBuild (build);
}

/** Installs the new build of both items, with a fault or none, and returns the boxes. */
static juce::String install (const temporaryInstallation& installation, systemFault* planned = nullptr)
{
    const auto item = itemOfBuild ("2");
    scriptedServer server;
    juce::Array<DownloadItem> catalogue;

    for (auto& target : { oldTarget, newTarget })
    {
        catalogue.add ({ server.origin(), target, target, 2 });

        if (! holds (installation, target, "2"))
            server.reply (okReply ({ item.begin(), item.end() }, "application/octet-stream"));
    }

    fault = planned;
    const auto boxes = runDownloads (catalogue);
    fault = nullptr;
    return boxes.joinIntoString ("\n");
}

/** One installation with a fault, in a folder where one item is there in an older build, and the other not at all.
    Returns whether the fault happened. */
static bool installWith (systemFault::kind howLong, const char* call, int number)
{
    const temporaryInstallation installation;
    installation.write (oldTarget, itemOfBuild ("1"));
    systemFault planned{ installation.folder.getFullPathName().toStdString(), call, number, howLong };
    const auto boxes = install (installation, &planned);
    CAPTURE (call, number, boxes);
    const auto isDeath = howLong == systemFault::kind::death;
    const auto successes = boxes.fromFirstOccurrenceOf ("Successfully downloaded: ", false, false);
    auto others = installation.files();

    for (auto& target : { oldTarget, newTarget })
    {
        INFO (target);
        const auto isNew = holds (installation, target, "2");
        const auto isAsBefore =
            target == oldTarget ? holds (installation, target, "1") : ! others.contains (target);
        CHECK (isNew != isAsBefore);
        others.removeString (target);

        if (! isDeath)
        {
            CHECK (boxes.contains (target));
            CHECK (successes.contains (target) <= isNew);
        }
    }

    if (! isDeath)
    {
        INFO ("nothing else stays");
        CHECK (others == juce::StringArray());
        CHECK (installation.folder.getChildFile ("new").exists() == holds (installation, newTarget, "2"));
    }
    else if (planned.hasHappened)
    {
        INFO ("the next installation puts everything right");
        install (installation);
        CHECK (installation.files() == juce::StringArray{ newTarget, oldTarget });
        CHECK (holds (installation, oldTarget, "2"));
        CHECK (holds (installation, newTarget, "2"));
    }

    return planned.hasHappened;
}

/** Lets each call of these names fail, one after the other. */
static void installWithEach (systemFault::kind howLong, std::initializer_list<const char*> calls)
{
    for (auto* call : calls)
    {
        auto number = 1;

        while (installWith (howLong, call, number))
            ++number;

        INFO (call << " is never called");
        CHECK (number > 1);
    }
}

TEST_CASE (
    "whichever call of the system fails, an item is the old one or the new one, and nothing else stays")
{
    const auto calls = { "open", "write", "short", "fsync", "close", "rename", "mkdir", "stat" };
    installWithEach (systemFault::kind::once, calls);
    installWithEach (systemFault::kind::always, calls);
}

TEST_CASE (
    "wherever an installation is killed, an item is the old one or the new one, and the next one ends it")
{
    installWithEach (systemFault::kind::death,
                     { "open", "write", "rename", "mkdir" }); // what changes anything
}

#endif
