#include "net/rememberedLogin.h"
#include "base/boundedReading.h"
#include "base/ordinaryFile.h"
#include "base/safeFileWriter.h"
#include "base/validText.h"
#include "net/dataScrambler.h"

static constexpr juce::uint32 leftCounter = 5172093, rightCounter = 41927506;
static constexpr juce::int64 maximumSize = 1 << 20; // of the file, bytes

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
    juce::FileInputStream stream (file);

    if (stream.failedToOpen() || stream.getTotalLength() > maximumSize)
        return {};

    const auto bytes = readAtMost (stream, (size_t) maximumSize);
    const auto decoded = decodedText (bytes.getData(), bytes.getSize());
    auto lines = juce::StringArray::fromLines (validText (decoded.data(), decoded.size()));
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

    if ((juce::int64) text.getNumBytesAsUTF8() > maximumSize)
        return;

    safeFileWriter writer (file, safeFileWriter::readers::owner);
    writer.write (text.toRawUTF8(), text.getNumBytesAsUTF8());
    writer.commit();
}

void rememberedLogin::forget() const
{
    if (isOrdinaryFile (file))
        file.deleteFile();
}
