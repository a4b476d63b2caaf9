#include "base/ordinaryFile.h"

#if JUCE_WINDOWS

bool isOrdinaryFile (const juce::File& file)
{
    return file.existsAsFile();
}

#else

    #include <sys/stat.h>

bool isOrdinaryFile (const juce::File& file)
{
    struct stat status = {};
    return ::stat (file.getFullPathName().toRawUTF8(), &status) == 0 && S_ISREG (status.st_mode);
}

#endif
