#include "bench/figures.h"
#include "bench/scratchFolder.h"
#include "content/jSimpleArchive.h"
#include "sandbox/archiveWriter.h"
#include <zip.h>

static constexpr int many = 100'000;
static constexpr int bigEntry = 16 * 1024 * 1024;

static std::string nameOf (int i)
{
    return "amps/model " + std::to_string (i * 7919) + "/impulse.wav";
}

/** Packed archive and zip file of the same names. */
struct archivePair
{
    const juce::String packed = scratchFolder().getChildFile ("many.sa").getFullPathName(),
                       zipped = scratchFolder().getChildFile ("many.zip").getFullPathName();

    static const archivePair& made()
    {
        static const archivePair pair;
        return pair;
    }

private:
    archivePair()
    {
        archiveWriter writer;
        auto* zip = zip_open (zipped.toRawUTF8(), ZIP_CREATE, nullptr);

        for (int i = 0; i < many; ++i)
        {
            writer.entries.push_back ({ nameOf (i), "bytes" });
            const auto index =
                zip_file_add (zip, nameOf (i).c_str(), zip_source_buffer (zip, "bytes", 5, 0), 0);
            zip_set_file_compression (zip, zip_uint64_t (index), ZIP_CM_STORE, 0);
        }

        const auto bytes = writer.write();
        juce::File (packed).replaceWithData (bytes.getData(), bytes.getSize());
        zip_close (zip);
    }
};

static zip_t* openZip()
{
    return zip_open (archivePair::made().zipped.toRawUTF8(), ZIP_RDONLY, nullptr);
}

static bool openPacked()
{
    jSimpleArchive archive;
    return archive.open (archivePair::made().packed) && archive.isValid();
}

static bool openWithLibzip()
{
    auto* zip = openZip();
    zip_discard (zip);
    return zip != nullptr;
}

/** Every seventh name. */
static const juce::StringArray& wantedNames()
{
    static const auto all = [] {
        juce::StringArray names;

        for (int i = 0; i < many; i += 7)
            names.add (nameOf (i));

        return names;
    }();

    return all;
}

static double lookUpPacked()
{
    jSimpleArchive archive;
    archive.open (archivePair::made().packed);
    archive.contains (nameOf (0));

    return timed ([&] {
        return std::all_of (wantedNames().begin(), wantedNames().end(),
                            [&] (const juce::String& name) { return archive.contains (name); });
    })();
}

static double lookUpWithLibzip()
{
    auto* zip = openZip();
    const auto seconds = timed ([&] {
        return std::all_of (wantedNames().begin(), wantedNames().end(), [&] (const juce::String& name) {
            return zip_name_locate (zip, name.toRawUTF8(), 0) >= 0;
        });
    })();
    zip_discard (zip);
    return seconds;
}

static double readEntry()
{
    archiveWriter writer;
    writer.entries = { { "plain", std::string (bigEntry, 'p') } };
    const auto bytes = writer.write();
    const auto file = scratchFolder().getChildFile ("big.sa");
    file.replaceWithData (bytes.getData(), bytes.getSize());

    jSimpleArchive archive;
    archive.open (file.getFullPathName());
    return timed ([&] { return archive.createInputStreamFor ("plain")->getTotalLength() == bigEntry; })();
}

static double readFile()
{
    const auto file = scratchFolder().getChildFile ("big.bin");
    const juce::MemoryBlock content (bigEntry, true);
    file.replaceWithData (content.getData(), bigEntry);

    return timed ([&] {
        juce::MemoryBlock bytes (bigEntry, false);
        juce::FileInputStream stream (file);
        return stream.read (bytes.getData(), bigEntry) == bigEntry;
    })();
}

static const int registered = [] {
    addFigure ({ "opening an archive of 100,000 entries", "libzip, the same names", 10, 5 },
               timed (openPacked), timed (openWithLibzip));
    addFigure ({ "14,286 names among 100,000, found", "libzip", 1, 15 }, lookUpPacked, lookUpWithLibzip);
    addFigure ({ "a 16 MiB entry", "reading a file", 0.9, 15 }, readEntry, readFile);
    return 0;
}();
