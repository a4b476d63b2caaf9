/*  A library to preload: a chosen call of the system fails, or kills the process, when it concerns what lies below a
    folder. The environment says which:

        FAULT_ROOT   the folder
        FAULT_CALL   open, write, short (a write that takes half of it), fsync, close, rename, mkdir or stat
        FAULT_AT     the number of the call that fails, from 1 on
        FAULT_HOW    once, always (that call and all later ones) or kill
        FAULT_SEEN   a file that is made when it happens */

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
std::array<bool, 4096> below; // which descriptors lie below the folder
int calls = 0;

std::string_view setting (const char* name)
{
    const auto* value = std::getenv (name);
    return value != nullptr ? value : "";
}

template <typename Function>
Function* systemCall (const char* name)
{
    return reinterpret_cast<Function*> (dlsym (RTLD_NEXT, name));
}

bool concerns (int handle)
{
    return handle >= 0 && (size_t) handle < below.size() && below[(size_t) handle];
}

bool concerns (int folder, const char* path)
{
    static const auto root = setting ("FAULT_ROOT");
    return ! root.empty() && path != nullptr
           && (path[0] == '/' ? std::string_view (path).substr (0, root.size()) == root : concerns (folder));
}

/** Counts a call and says whether it is to fail. */
bool fails (std::string_view call)
{
    if (setting ("FAULT_CALL") != call)
        return false;

    const auto at = std::atoi (std::getenv ("FAULT_AT"));
    const auto how = setting ("FAULT_HOW");

    if (++calls != at && ! (calls > at && how == "always"))
        return false;

    const auto seen = systemCall<int (const char*, int, ...)> ("open") (std::getenv ("FAULT_SEEN"),
                                                                        O_CREAT | O_WRONLY, 0600);
    systemCall<int (int)> ("close") (seen);

    if (how == "kill")
        kill (getpid(), SIGKILL);

    return true;
}

int failWith (int error)
{
    errno = error;
    return -1;
}

int note (int handle, bool isBelow)
{
    if (handle >= 0 && (size_t) handle < below.size())
        below[(size_t) handle] = isBelow;

    return handle;
}

int openAt (int folder, const char* path, int flags, std::va_list arguments)
{
    const auto makesFile = (flags & (O_CREAT | __O_TMPFILE)) != 0;
    const auto mode = makesFile ? va_arg (arguments, mode_t) : 0;
    const auto isBelow = concerns (folder, path);

    if (isBelow && fails ("open"))
        return failWith (EMFILE);

    return note (systemCall<int (int, const char*, int, ...)> ("openat") (folder, path, flags, mode),
                 isBelow);
}

template <typename... Arguments>
int statusOf (const char* name, bool isBelow, Arguments... arguments)
{
    return isBelow && fails ("stat") ? failWith (EIO) : systemCall<int (Arguments...)> (name) (arguments...);
}
}

extern "C"
{
    int open (const char* path, int flags, ...)
    {
        std::va_list arguments;
        va_start (arguments, flags);
        const auto handle = openAt (AT_FDCWD, path, flags, arguments);
        va_end (arguments);
        return handle;
    }
    int open64 (const char* path, int flags, ...)
    {
        std::va_list arguments;
        va_start (arguments, flags);
        const auto handle = openAt (AT_FDCWD, path, flags, arguments);
        va_end (arguments);
        return handle;
    }
    int openat (int folder, const char* path, int flags, ...)
    {
        std::va_list arguments;
        va_start (arguments, flags);
        const auto handle = openAt (folder, path, flags, arguments);
        va_end (arguments);
        return handle;
    }
    int openat64 (int folder, const char* path, int flags, ...)
    {
        std::va_list arguments;
        va_start (arguments, flags);
        const auto handle = openAt (folder, path, flags, arguments);
        va_end (arguments);
        return handle;
    }

    ssize_t write (int handle, const void* bytes, size_t size)
    {
        if (concerns (handle) && fails ("write"))
            return failWith (ENOSPC);

        if (concerns (handle) && fails ("short"))
            size = (size + 1) / 2;

        return systemCall<ssize_t (int, const void*, size_t)> ("write") (handle, bytes, size);
    }

    int fsync (int handle)
    {
        return concerns (handle) && fails ("fsync") ? failWith (EIO)
                                                    : systemCall<int (int)> ("fsync") (handle);
    }

    int close (int handle)
    {
        const auto failed = concerns (handle) && fails ("close");
        note (handle, false);
        const auto result = systemCall<int (int)> ("close") (handle);
        return failed ? failWith (EIO) : result;
    }

    int rename (const char* from, const char* to) noexcept
    {
        return concerns (AT_FDCWD, from) && fails ("rename")
                   ? failWith (EIO)
                   : systemCall<int (const char*, const char*)> ("rename") (from, to);
    }

    int renameat (int folder, const char* from, int newFolder, const char* to) noexcept
    {
        return concerns (folder, from) && fails ("rename")
                   ? failWith (EIO)
                   : systemCall<int (int, const char*, int, const char*)> ("renameat") (folder, from,
                                                                                        newFolder, to);
    }

    int mkdir (const char* path, mode_t mode) noexcept
    {
        return concerns (AT_FDCWD, path) && fails ("mkdir")
                   ? failWith (ENOSPC)
                   : systemCall<int (const char*, mode_t)> ("mkdir") (path, mode);
    }

    int stat (const char* path, struct stat* status) noexcept
    {
        return statusOf ("stat", concerns (AT_FDCWD, path), path, status);
    }

    int stat64 (const char* path, struct stat64* status) noexcept
    {
        return statusOf ("stat64", concerns (AT_FDCWD, path), path, status);
    }

    int lstat (const char* path, struct stat* status) noexcept
    {
        return statusOf ("lstat", concerns (AT_FDCWD, path), path, status);
    }

    int lstat64 (const char* path, struct stat64* status) noexcept
    {
        return statusOf ("lstat64", concerns (AT_FDCWD, path), path, status);
    }

    int fstat (int handle, struct stat* status) noexcept
    {
        return statusOf ("fstat", concerns (handle), handle, status);
    }
}
