#include "tests/support/installationProbe.h"
#include <catch2/catch.hpp>
#include <future>

#if JUCE_LINUX

/** A folder of its own for one installation. */
struct probedFolder
{
    explicit probedFolder (const juce::String& name)
        : folder (juce::File::createTempFile (name))
    {
        folder.createDirectory();
        put (probeItem ("1"));
    }

    ~probedFolder() { folder.deleteRecursively(); }

    void put (const juce::MemoryBlock& bytes) const
    {
        folder.getChildFile (probeTargets[0]).appendData (bytes.getData(), bytes.getSize());
    }

    bool holds (const juce::String& target, const juce::MemoryBlock& bytes) const
    {
        juce::MemoryBlock found;
        return folder.getChildFile (target).loadFileAsData (found) && found == bytes;
    }

    juce::StringArray files() const
    {
        juce::StringArray paths;

        for (auto& file : folder.findChildFiles (juce::File::findFiles, true))
            paths.add (file.getRelativePathFrom (folder));

        return paths;
    }

    /** Runs the probe with a fault, and returns what it prints. */
    juce::String install (const juce::String& call, int number, const juce::String& how,
                          const juce::File& seen) const
    {
        const auto program = juce::File::getSpecialLocation (juce::File::currentExecutableFile);
        juce::ChildProcess process;
        process.start ({ "env", "LD_PRELOAD=" + program.getSiblingFile ("libfaults.so").getFullPathName(),
                         "FAULT_ROOT=" + folder.getFullPathName(), "FAULT_CALL=" + call,
                         "FAULT_AT=" + juce::String (number), "FAULT_HOW=" + how,
                         "FAULT_SEEN=" + seen.getFullPathName(), "INSTALLATION=" + folder.getFullPathName(),
                         program.getFullPathName(), "[.installation]" });
        return process.readAllProcessOutput();
    }

    const juce::File folder;
};

/** One installation with a fault. */
struct faultyRun
{
    juce::String said, complaint; // none when all is well
    bool happened = false;
};

static faultyRun runWithFault (const juce::String& call, int number, const juce::String& how)
{
    const auto older = probeItem ("1"), newer = probeItem ("2");
    const probedFolder place (call + how);
    const juce::TemporaryFile seen (call + how);
    faultyRun run;
    run.said = place.install (call, number, how, seen.getFile());
    run.happened = seen.getFile().exists();
    const auto successes = run.said.fromFirstOccurrenceOf ("Successfully downloaded: ", false, false);
    const auto files = place.files();
    const auto complain = [&] (bool wrong, const char* what) {
        if (wrong)
            run.complaint << how << ", " << call << " " << number << ": " << what << "\n";
    };

    for (auto& target : probeTargets)
    {
        const auto isNew = place.holds (target, newer);
        complain (! isNew && successes.contains (target), "a false success");
        complain (! isNew && files.contains (target) && ! place.holds (target, older), "neither old nor new");
    }

    complain (! files.contains (probeTargets[0]), "the old item is gone");

    if (how != "kill")
    {
        for (auto& file : files)
            complain (! probeTargets.contains (file), "a file is left behind");

        complain (place.folder.getChildFile ("new").exists() && ! files.contains (probeTargets[1]),
                  "a folder is left behind");
        complain (! run.said.contains (probeTargets[0]) || ! run.said.contains (probeTargets[1]),
                  "not a word");
    }
    else if (run.happened)
    {
        place.install ("none", 0, {}, {});
        complain (place.files().size() != 2 || ! place.holds (probeTargets[0], newer)
                      || ! place.holds (probeTargets[1], newer),
                  "the next run does not put everything right");
    }

    if (! run.happened)
        complain (! successes.contains (probeTargets.joinIntoString (", ")) || number == 1,
                  "no fault, no success");

    return run;
}

TEST_CASE (
    "whichever call of the system fails, an item is the old one or the new one, and nothing else stays")
{
    std::vector<std::future<juce::String>> sweeps;

    // Most of a run is waiting, so all the sweeps go on at the same time.
    for (auto* how : { "once", "always", "kill" })
        for (auto* call : { "open", "write", "short", "fsync", "close", "rename", "mkdir", "stat" })
            sweeps.push_back (std::async (std::launch::async, [how, call] {
                juce::String complaints;
                auto run = runWithFault (call, 1, how);

                for (int number = 2; run.happened; ++number)
                {
                    complaints << run.complaint;
                    run = runWithFault (call, number, how);
                }

                return complaints + run.complaint;
            }));

    for (auto& sweep : sweeps)
        CHECK (sweep.get() == juce::String());
}

#endif
