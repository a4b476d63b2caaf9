#include "base/safeFileWriter.h"
#include "bench/figures.h"
#include "bench/scratchFolder.h"
#include <fcntl.h>
#include <unistd.h>
#include <vector>

static constexpr size_t size = size_t (256) * 1024 * 1024;
static constexpr size_t pieceSize = size_t (1024) * 1024;

static const std::vector<char>& piece()
{
    static const std::vector<char> bytes (pieceSize, 'w');
    return bytes;
}

static bool writeSafely()
{
    safeFileWriter writer (scratchFolder().getChildFile ("safe.bin"));

    for (size_t done = 0; done < size; done += pieceSize)
        writer.write (piece().data(), pieceSize);

    return writer.commit();
}

/** What dd with conv=fsync does. */
static bool writeAndSync()
{
    const auto path = scratchFolder().getChildFile ("synced.bin").getFullPathName();
    const auto file = open (path.toRawUTF8(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    auto whole = file >= 0;

    for (size_t done = 0; done < size; done += pieceSize)
        whole = write (file, piece().data(), pieceSize) == ssize_t (pieceSize) && whole;

    return fsync (file) == 0 && close (file) == 0 && whole;
}

static const int registered = [] {
    addFigure ({ "writing 256 MiB safely", "dd conv=fsync style write", 0.8, 25 }, timed (writeSafely),
               timed (writeAndSync));
    return 0;
}();
