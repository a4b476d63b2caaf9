#include "base/temporaryFile.h"
#include <random>

#if JUCE_WINDOWS
    #include <windows.h>

    #include <sddl.h> // wants the former
#else
    #include <cerrno>
    #include <dirent.h>
    #include <fcntl.h>
    #include <sys/file.h>
    #include <sys/stat.h>
    #include <unistd.h>
#endif

namespace
{
// Short: the path of a file with a longer name is the one that may meet the system's limit.
constexpr auto prefix = "rigmart-", suffix = ".tmp";
constexpr int prefixLength = 8, suffixLength = 4, wordLength = 8; // two hexadecimal words stand in between
constexpr int mostAttempts = 100;                                 // at a name that is not taken

/** Follows from the first word of a name, so that nobody has such a name by accident. */
juce::String checkOf (const juce::String& word)
{
    juce::uint32 hash = 0x811c9dc5; // FNV-1a, from here on

    for (auto character : word)
        hash = (hash ^ (juce::uint32) character) * 0x01000193;

    return juce::String::toHexString ((int) hash).paddedLeft ('0', wordLength);
}

juce::String makeUpName()
{
    std::random_device random;
    const auto word = juce::String::toHexString ((int) random()).paddedLeft ('0', wordLength);
    return prefix + word + checkOf (word) + suffix;
}
}

bool temporaryFile::isTemporaryName (const juce::String& name)
{
    const auto text = name.toLowerCase();
    const auto word = text.substring (prefixLength, prefixLength + wordLength);

    return text.length() == prefixLength + 2 * wordLength + suffixLength && text.startsWith (prefix)
           && text.endsWith (suffix) && word.containsOnly ("0123456789abcdef")
           && text.substring (prefixLength + wordLength).startsWith (checkOf (word));
}

#if JUCE_WINDOWS

struct temporaryFile::openFile
{
    juce::File path;
    HANDLE handle = INVALID_HANDLE_VALUE;
};

/** Full access for the user who runs the program, nothing for others, nothing inherited from the folder. Empty when
    the system does not say who that is. */
static juce::String ownerOnly()
{
    HANDLE token = nullptr;
    alignas (TOKEN_USER) char user[sizeof (TOKEN_USER) + SECURITY_MAX_SID_SIZE];
    DWORD size = 0;
    LPWSTR name = nullptr;
    juce::String descriptor;

    if (! OpenProcessToken (GetCurrentProcess(), TOKEN_QUERY, &token))
        return {};

    if (GetTokenInformation (token, TokenUser, user, sizeof (user), &size)
        && ConvertSidToStringSidW (reinterpret_cast<const TOKEN_USER*> (user)->User.Sid, &name))
    {
        descriptor << "D:P(A;;FA;;;" << name << ")";
        LocalFree (name);
    }

    CloseHandle (token);
    return descriptor;
}

temporaryFile::temporaryFile (const juce::File& folder, readers whoMayRead)
{
    SECURITY_ATTRIBUTES security{ sizeof (security), nullptr, FALSE };

    if (whoMayRead == readers::owner
        && ! ConvertStringSecurityDescriptorToSecurityDescriptorW (
            ownerOnly().toWideCharPointer(), SDDL_REVISION_1, &security.lpSecurityDescriptor, nullptr))
        return;

    auto taken = true;

    for (int attempt = 0; taken && attempt < mostAttempts; ++attempt)
    {
        const auto path = folder.getChildFile (makeUpName());

        // Others may rename or remove it, which is what replace() does; nobody can read or write it.
        const auto handle =
            CreateFileW (path.getFullPathName().toWideCharPointer(), GENERIC_WRITE, FILE_SHARE_DELETE,
                         &security, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        taken = handle == INVALID_HANDLE_VALUE && GetLastError() == ERROR_FILE_EXISTS;

        if (handle != INVALID_HANDLE_VALUE)
            file = std::make_unique<openFile> (openFile{ path, handle });
    }

    LocalFree (security.lpSecurityDescriptor);
}

temporaryFile::~temporaryFile()
{
    if (file == nullptr)
        return;

    CloseHandle (file->handle);
    DeleteFileW (file->path.getFullPathName().toWideCharPointer());
}

bool temporaryFile::write (const void* bytes, size_t size)
{
    DWORD count = 0;

    if (file == nullptr || ! WriteFile (file->handle, bytes, (DWORD) size, &count, nullptr) || count != size)
        return false;

    written += (juce::int64) size;
    return true;
}

bool temporaryFile::replace (const juce::String& name)
{
    LARGE_INTEGER size{};

    if (file == nullptr || ! FlushFileBuffers (file->handle) || ! GetFileSizeEx (file->handle, &size)
        || size.QuadPart != written)
        return false;

    const auto target = file->path.getSiblingFile (name);

    // A virus scanner may hold a new file open for a moment.
    for (int attempt = 0; attempt < 5; ++attempt)
    {
        if (MoveFileExW (file->path.getFullPathName().toWideCharPointer(),
                         target.getFullPathName().toWideCharPointer(),
                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        {
            CloseHandle (file->handle);
            file.reset();
            return true;
        }

        juce::Thread::sleep (100);
    }

    return false;
}

void temporaryFile::removeAbandoned (const juce::File& folder)
{
    for (const auto& child :
         juce::RangedDirectoryIterator (folder, false, juce::String (prefix) + "*" + suffix))
    {
        if (! isTemporaryName (child.getFile().getFileName()))
            continue;

        // Not shared with anybody: this fails while it is being written.
        const auto handle =
            CreateFileW (child.getFile().getFullPathName().toWideCharPointer(), GENERIC_READ | DELETE, 0,
                         nullptr, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr);

        if (handle == INVALID_HANDLE_VALUE)
            continue;

        BY_HANDLE_FILE_INFORMATION information{};
        FILE_DISPOSITION_INFO disposition{ TRUE };

        if (GetFileInformationByHandle (handle, &information)
            && (information.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT))
                   == 0)
            SetFileInformationByHandle (handle, FileDispositionInfo, &disposition, sizeof (disposition));

        CloseHandle (handle);
    }
}

#else

/** A descriptor that is closed with the object; -1 for none. */
struct descriptor
{
    explicit descriptor (int number)
        : value (number)
    {}

    descriptor (descriptor&& other) noexcept
        : value (std::exchange (other.value, -1))
    {}

    ~descriptor()
    {
        if (value >= 0)
            ::close (value);
    }

    int value;
};

/** Names are looked up in the open folder, whatever becomes of its path meanwhile. */
struct temporaryFile::openFile
{
    descriptor folder;
    std::string name;
    descriptor handle;
};

/** Whether a new file is now locked and still there. One that is not yet locked looks abandoned to another program,
    which may remove it. A file system without locks is one on which nothing is ever taken for abandoned. */
static bool lockNew (int handle)
{
    struct stat status = {};
    const auto locked = ::flock (handle, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    return locked && ::fstat (handle, &status) == 0 && status.st_nlink > 0;
}

temporaryFile::temporaryFile (const juce::File& folder, readers whoMayRead)
{
    const auto mode =
        whoMayRead == readers::owner ? S_IRUSR | S_IWUSR : S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH;
    descriptor parent (::open (folder.getFullPathName().toRawUTF8(), O_PATH | O_DIRECTORY | O_CLOEXEC));

    for (int attempt = 0; parent.value >= 0 && attempt < mostAttempts; ++attempt)
    {
        auto name = makeUpName().toStdString();
        descriptor handle (::openat (parent.value, name.c_str(),
                                     O_CREAT | O_EXCL | O_WRONLY | O_NOFOLLOW | O_CLOEXEC, mode));

        if (handle.value < 0 && errno != EEXIST && errno != EINTR)
            return;

        if (handle.value < 0)
            continue;

        if (lockNew (handle.value))
        {
            file.reset (new openFile{ std::move (parent), std::move (name), std::move (handle) });
            return;
        }

        ::unlinkat (parent.value, name.c_str(), 0);
    }
}

temporaryFile::~temporaryFile()
{
    if (file != nullptr)
        ::unlinkat (file->folder.value, file->name.c_str(), 0);
}

bool temporaryFile::write (const void* bytes, size_t size)
{
    const auto* next = static_cast<const char*> (bytes);
    written += (juce::int64) size;

    while (file != nullptr && size > 0)
    {
        const auto count = ::write (file->handle.value, next, size);

        if (count < 0 && errno == EINTR)
            continue;

        if (count <= 0)
            return false;

        next += count;
        size -= (size_t) count;
    }

    return file != nullptr;
}

bool temporaryFile::replace (const juce::String& name)
{
    struct stat status = {};

    if (file == nullptr || ::fsync (file->handle.value) != 0 || ::fstat (file->handle.value, &status) != 0
        || status.st_size != written)
        return false;

    // The lock holds until the file has its name: nobody takes it for abandoned before.
    if (::renameat (file->folder.value, file->name.c_str(), file->folder.value, name.toRawUTF8()) != 0)
        return false;

    file.reset();
    return true;
}

/** Removes a file if it is an ordinary one of this user's that nobody writes to. */
static void removeIfAbandoned (int folder, const char* name)
{
    struct stat status = {};
    const descriptor handle (
        ::openat (folder, name, O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));

    if (handle.value >= 0 && ::fstat (handle.value, &status) == 0 && S_ISREG (status.st_mode)
        && status.st_uid == ::geteuid() && ::flock (handle.value, LOCK_EX | LOCK_NB) == 0)
        ::unlinkat (folder, name, 0);
}

void temporaryFile::removeAbandoned (const juce::File& folder)
{
    const auto handle = ::open (folder.getFullPathName().toRawUTF8(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    auto* entries = handle >= 0 ? ::fdopendir (handle) : nullptr;

    if (entries == nullptr)
    {
        if (handle >= 0)
            ::close (handle);

        return;
    }

    while (const auto* entry = ::readdir (entries))
        if (juce::CharPointer_ASCII::isValidString (entry->d_name, NAME_MAX)
            && isTemporaryName (entry->d_name))
            removeIfAbandoned (handle, entry->d_name);

    ::closedir (entries);
}

#endif
