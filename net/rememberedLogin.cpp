#include "net/rememberedLogin.h"
#include "base/boundedReading.h"
#include "base/safeFileWriter.h"
#include "base/validText.h"
#include "net/dataScrambler.h"

static constexpr juce::uint32 leftCounter = 5172093, rightCounter = 41927506;
static constexpr juce::int64 maximumSize = 65536; // of the file, bytes

static juce::File fileIn (const juce::String& installationFolder)
{
    if (! juce::File::isAbsolutePath (installationFolder))
        return {};

    return juce::File (installationFolder).getChildFile ("rememberme.txt");
}

rememberedLogin::rememberedLogin (const juce::String& installationFolder)
    : file (fileIn (installationFolder))
{}

std::optional<rememberedLogin::login> rememberedLogin::load() const
{
    if (! file.existsAsFile() || file.getSize() > maximumSize)
        return {};

    juce::FileInputStream stream (file);

    if (stream.failedToOpen())
        return {};

    const auto bytes = readAtMost (stream, (size_t) maximumSize);
    auto lines = juce::StringArray::fromLines (validText (bytes.getData(), bytes.getSize()));
    lines.removeEmptyStrings (true);

    if (lines.size() != 2)
        return {};

    return login{ unscrambleText (lines[0], leftCounter, rightCounter),
                  unscrambleText (lines[1], leftCounter, rightCounter) };
}

void rememberedLogin::save (const login& toSave) const
{
    if (! file.getParentDirectory().isDirectory())
        return;

    const auto text = scrambleText (toSave.address, leftCounter, rightCounter) + "\r\n"
                      + scrambleText (toSave.password, leftCounter, rightCounter) + "\r\n";
    safeFileWriter writer (file, safeFileWriter::readers::owner);
    writer.write (text.toRawUTF8(), text.getNumBytesAsUTF8());
    writer.commit();
}

void rememberedLogin::forget() const
{
    if (file.existsAsFile())
        file.deleteFile();
}
