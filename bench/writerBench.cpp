#include "base/safeFileWriter.h"
#include "bench/figures.h"
#include "bench/scratchFolder.h"
#include <fcntl.h>
#include <unistd.h>

static constexpr size_t size = 256 * 1024 * 1024;
static constexpr size_t pieceSize = 1024 * 1024;

static const std::vector<char>& piece()
{
    static const std::vector<char> bytes (pieceSize, 'w');
    return bytes;
}

static void writeSafely (benchmark::State& state)
{
    const auto file = scratchFolder().getChildFile ("safe.bin");

    for (auto _ : state)
    {
        safeFileWriter writer (file);

        for (size_t done = 0; done < size; done += pieceSize)
            writer.write (piece().data(), pieceSize);

        if (! writer.commit())
            state.SkipWithError ("not written");
    }
}

/** What dd with conv=fsync does. */
static void writeAndSync (benchmark::State& state)
{
    const auto path = scratchFolder().getChildFile ("synced.bin").getFullPathName();

    for (auto _ : state)
    {
        const auto file = open (path.toRawUTF8(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        auto whole = file >= 0;

        for (size_t done = 0; done < size; done += pieceSize)
            whole = write (file, piece().data(), pieceSize) == ssize_t (pieceSize) && whole;

        if (fsync (file) != 0 || close (file) != 0 || ! whole)
            state.SkipWithError ("not written");
    }
}

static const int registered = [] {
    addFigure ({ "writing 256 MiB safely", "dd conv=fsync style write", 0.8 }, writeSafely, writeAndSync);
    return 0;
}();
