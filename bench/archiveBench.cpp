#include "bench/figures.h"
#include "bench/scratchFolder.h"
#include "content/jSimpleArchive.h"
#include "net/dataScrambler.h"
#include "sandbox/archiveWriter.h"
#include <map>
#include <physfs.h>
#include <zip.h>

static constexpr int many = 100'000;
static constexpr int bigEntry = 16 * 1024 * 1024;

static std::string nameOf (int i)
{
    return "amps/model " + std::to_string (i * 7919) + "/impulse.wav";
}

/** Packed archive and zip file of the same names, made once for each number of entries. */
struct archivePair
{
    juce::File packed, zipped;

    static const archivePair& of (int entries)
    {
        static std::map<int, archivePair> made;
        auto& pair = made[entries];

        if (pair.packed == juce::File())
            pair.make (entries);

        return pair;
    }

private:
    void make (int entries)
    {
        packed = scratchFolder().getChildFile (juce::String (entries) + ".sa");
        zipped = packed.withFileExtension ("zip");

        archiveWriter writer;
        auto* zip = zip_open (zipped.getFullPathName().toRawUTF8(), ZIP_CREATE, nullptr);

        for (int i = 0; i < entries; ++i)
        {
            writer.entries.push_back ({ nameOf (i), "bytes" });
            const auto index =
                zip_file_add (zip, nameOf (i).c_str(), zip_source_buffer (zip, "bytes", 5, 0), 0);
            zip_set_file_compression (zip, zip_uint64_t (index), ZIP_CM_STORE, 0);
        }

        const auto bytes = writer.write();
        packed.replaceWithData (bytes.getData(), bytes.getSize());
        zip_close (zip);
    }
};

static zip_t* openZip (int entries)
{
    return zip_open (archivePair::of (entries).zipped.getFullPathName().toRawUTF8(), ZIP_RDONLY, nullptr);
}

static std::function<void (benchmark::State&)> openPacked (int entries)
{
    return [entries] (benchmark::State& state) {
        const auto path = archivePair::of (entries).packed.getFullPathName();

        for (auto _ : state)
        {
            jSimpleArchive archive;

            if (! archive.open (path) || ! archive.isValid())
                state.SkipWithError ("does not open");
        }
    };
}

static void openWithLibzip (benchmark::State& state)
{
    archivePair::of (many);

    for (auto _ : state)
        zip_discard (openZip (many));
}

/** Mounts the zip file in PhysicsFS, once in a run since that takes so long, and returns the seconds that took. */
static double mountWithPhysicsFs()
{
    static const auto seconds = [] {
        const auto path = archivePair::of (many).zipped.getFullPathName();
        const auto start = juce::Time::getMillisecondCounterHiRes();

        if (PHYSFS_init (nullptr) == 0 || PHYSFS_mount (path.toRawUTF8(), nullptr, 1) == 0)
            std::abort();

        return (juce::Time::getMillisecondCounterHiRes() - start) / 1000;
    }();

    return seconds;
}

static void openWithPhysicsFs (benchmark::State& state)
{
    for (auto _ : state)
        state.SetIterationTime (mountWithPhysicsFs());
}

/** Every seventh name, or a name beside it that does not exist. */
static juce::StringArray wantedNames (bool found)
{
    juce::StringArray names;

    for (int i = 0; i < many; i += 7)
        names.add (juce::String (nameOf (i)) + (found ? "" : "x"));

    return names;
}

static std::function<void (benchmark::State&)> lookUpPacked (bool found)
{
    return [found] (benchmark::State& state) {
        jSimpleArchive archive;
        archive.open (archivePair::of (many).packed.getFullPathName());
        const auto names = wantedNames (found);

        for (auto _ : state)
            for (auto& name : names)
                if (archive.contains (name) != found)
                    state.SkipWithError ("wrong answer");
    };
}

static std::function<void (benchmark::State&)> lookUpWithLibzip (bool found)
{
    return [found] (benchmark::State& state) {
        auto* zip = openZip (many);
        const auto names = wantedNames (found);

        for (auto _ : state)
            for (auto& name : names)
                if ((zip_name_locate (zip, name.toRawUTF8(), 0) >= 0) != found)
                    state.SkipWithError ("wrong answer");

        zip_discard (zip);
    };
}

static std::function<void (benchmark::State&)> lookUpWithPhysicsFs (bool found)
{
    return [found] (benchmark::State& state) {
        mountWithPhysicsFs();
        const auto names = wantedNames (found);

        for (auto _ : state)
            for (auto& name : names)
                if ((PHYSFS_exists (name.toRawUTF8()) != 0) != found)
                    state.SkipWithError ("wrong answer");
    };
}

static juce::File bigArchive()
{
    static const auto file = [] {
        archiveWriter writer;
        writer.entries = { { "plain", std::string (bigEntry, 'p') },
                           { "scrambled", std::string (bigEntry, 's'), true } };
        const auto bytes = writer.write();
        const auto made = scratchFolder().getChildFile ("big.sa");
        made.replaceWithData (bytes.getData(), bytes.getSize());
        scratchFolder().getChildFile ("big.bin").replaceWithData (bytes.getData(), bigEntry);
        return made;
    }();

    return file;
}

static std::function<void (benchmark::State&)> readEntry (const char* name)
{
    return [name] (benchmark::State& state) {
        jSimpleArchive archive;
        archive.open (bigArchive().getFullPathName());

        for (auto _ : state)
            if (archive.createInputStreamFor (name)->getTotalLength() != bigEntry)
                state.SkipWithError ("not whole");
    };
}

static std::function<void (benchmark::State&)> readFile (bool scrambled)
{
    return [scrambled] (benchmark::State& state) {
        const auto file = bigArchive().getSiblingFile ("big.bin");

        for (auto _ : state)
        {
            juce::MemoryBlock bytes (bigEntry, false);
            juce::FileInputStream stream (file);

            if (stream.read (bytes.getData(), bigEntry) != bigEntry)
                state.SkipWithError ("not whole");

            juce::uint32 left = 0, right = 1;

            if (scrambled)
                applyKeystream (bytes.getData(), bigEntry, left, right);
        }
    };
}

static const int registered = [] {
    const figure opening{ "opening an archive of 100,000 entries", "libzip, the same names", 10.0 };
    addFigure (opening, openPacked (many), openWithLibzip);
    addFigure ({ opening.name, "PhysicsFS, the same names, once", 0, true }, openPacked (many),
               openWithPhysicsFs);

    for (const auto found : { true, false })
    {
        const auto name = std::string ("14,286 names among 100,000, ") + (found ? "found" : "not found");
        addFigure ({ name, "libzip", 1.0 }, lookUpPacked (found), lookUpWithLibzip (found));
        addFigure ({ name, "PhysicsFS", 0 }, lookUpPacked (found), lookUpWithPhysicsFs (found));
    }

    addFigure ({ "a 16 MiB entry, plain", "reading a file", 0.9 }, readEntry ("plain"), readFile (false));
    addFigure ({ "a 16 MiB entry, scrambled", "reading a file, scrambling", 0.9 }, readEntry ("scrambled"),
               readFile (true));

    for (const auto entries : { 100, 1000, 10'000, many })
        addGrowth ("archive entries opened", entries, openPacked (entries));

    return 0;
}();
