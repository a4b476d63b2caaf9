#include "base/privateFile.h"

#if JUCE_WINDOWS

    #include <windows.h>

    #include <sddl.h> // wants the former

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

bool createPrivateFile (const juce::File& file)
{
    SECURITY_ATTRIBUTES security{ sizeof (security), nullptr, FALSE };

    if (! ConvertStringSecurityDescriptorToSecurityDescriptorW (
            ownerOnly().toWideCharPointer(), SDDL_REVISION_1, &security.lpSecurityDescriptor, nullptr))
        return false;

    const auto handle = CreateFileW (file.getFullPathName().toWideCharPointer(), GENERIC_WRITE, 0, &security,
                                     CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    LocalFree (security.lpSecurityDescriptor);
    return handle != INVALID_HANDLE_VALUE && CloseHandle (handle);
}

#else

    #include <fcntl.h>
    #include <sys/stat.h>
    #include <unistd.h>

bool createPrivateFile (const juce::File& file)
{
    const auto handle =
        ::open (file.getFullPathName().toRawUTF8(), O_CREAT | O_EXCL | O_WRONLY, S_IRUSR | S_IWUSR);
    return handle >= 0 && ::close (handle) == 0;
}

#endif
