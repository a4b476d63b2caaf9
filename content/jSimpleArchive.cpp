#include "content/jSimpleArchive.h"
#include "base/byteCursor.h"
#include "base/validText.h"
#include "net/dataScrambler.h"
#include "store/showAttention.h"
#include <algorithm>

static constexpr int fixedSize = 8; // version and number of entries
static constexpr int mostEntries = 1 << 20;
static constexpr size_t keyWordPosition = 148, indexBasePosition = 152;

/** What differs between the versions. */
struct jSimpleArchive::versionLayout
{
    int headerSize;
    size_t nameSize;

    size_t recordSize() const { return nameSize + 12; }
};

const jSimpleArchive::versionLayout* jSimpleArchive::layoutOf (int version)
{
    static constexpr versionLayout layouts[] = { { 0, 60 }, { 148, 60 }, { 156, 252 }, { 156, 60 } };

    return version >= 1 && version <= (int) std::size (layouts) ? &layouts[version - 1] : nullptr;
}

static juce::uint32 hashOf (std::string_view name)
{
    return (juce::uint32) std::hash<std::string_view>{}(name);
}

bool jSimpleArchive::isDirectory() const
{
    return false;
}

juce::String jSimpleArchive::getArchivePath() const
{
    return archivePath;
}

void jSimpleArchive::findEntries (const juce::String& pattern, juce::StringArray& results) const
{
    for (auto& entry : entries)
    {
        const auto name = juce::String::fromUTF8 (entry.name.data(), (int) entry.name.size());

        if (name.matchesWildcard (pattern, true))
            results.add (name);
    }

    if (fallback != nullptr)
        fallback->findEntries (pattern, results);
}

bool jSimpleArchive::open (const juce::String& path)
{
    if (archivePath.isNotEmpty())
        return ! failed;

    archivePath = path;
    failed = true;

    juce::FileInputStream stream (absoluteFile (path));

    if (stream.failedToOpen())
        return false;

    const auto start = readPiece (stream, 0, fixedSize + (juce::int64) header.size());
    byteCursor cursor (start.getData(), start.getSize());
    const auto announcedVersion = (int) cursor.takeWord();
    const auto announced = juce::jmin ((int) cursor.takeWord(), mostEntries);
    const auto* layout = layoutOf (announcedVersion);

    if (layout == nullptr)
    {
        if (path.endsWith (".sa"))
            showAttention ("The packed archive " + path + " can't be opened because it's a old version.");

        return false;
    }

    version = announcedVersion;
    const auto headerBytes = juce::jmin ((size_t) layout->headerSize,
                                         juce::jmax (start.getSize(), (size_t) fixedSize) - fixedSize);
    std::copy_n (cursor.take (headerBytes), headerBytes, header.begin());

    try
    {
        directory = readPiece (stream, fixedSize + layout->headerSize,
                               (juce::int64) announced * (juce::int64) layout->recordSize());
        readEntries (*layout, announced);
        buildIndex();
    }
    catch (const std::bad_alloc&)
    {
        entries.clear();
        index.clear();
        return false;
    }

    failed = false;
    return true;
}

bool jSimpleArchive::isValid() const
{
    return ! entries.empty();
}

void jSimpleArchive::readHeaderBytes (void* buffer, int offset) const
{
    auto* bytes = static_cast<char*> (buffer);

    for (juce::int64 i = offset; i < (juce::int64) offset + 16; ++i)
        *bytes++ = i >= 0 && i < (juce::int64) header.size() ? header[(size_t) i] : (char) 0;
}

std::unique_ptr<juce::InputStream> jSimpleArchive::createInputStreamFor (const juce::String& name,
                                                                         int maximum) const
{
    const auto position = findEntry (name);

    if (position < 0)
        return fallback != nullptr ? fallback->createInputStreamFor (name, maximum) : nullptr;

    const auto& entry = entries[(size_t) position];
    juce::FileInputStream stream (absoluteFile (archivePath));
    auto bytes = readPiece (stream, entry.offset, juce::jmin (entry.size, maximum));

    if (entry.scrambled && version >= 3)
    {
        auto left = juce::ByteOrder::littleEndianInt (&header[keyWordPosition]);
        auto right = juce::ByteOrder::littleEndianInt (&header[indexBasePosition]) + (juce::uint32) position;
        applyKeystream (bytes.getData(), (int) bytes.getSize(), left, right);
    }

    return std::make_unique<juce::MemoryInputStream> (std::move (bytes));
}

bool jSimpleArchive::contains (const juce::String& name) const
{
    return findEntry (name) >= 0 || (fallback != nullptr && fallback->contains (name));
}

juce::File jSimpleArchive::absoluteFile (const juce::String& path)
{
    return juce::File::isAbsolutePath (path) ? juce::File (path) : juce::File();
}

juce::MemoryBlock jSimpleArchive::readPiece (juce::FileInputStream& stream, juce::int64 offset,
                                             juce::int64 size)
{
    if (stream.failedToOpen() || offset < 0)
        return {};

    const auto available = juce::jlimit ((juce::int64) 0, (juce::int64) std::numeric_limits<int>::max(),
                                         juce::jmin (size, stream.getTotalLength() - offset));

    if (available == 0 || ! stream.setPosition (offset))
        return {};

    try
    {
        juce::MemoryBlock piece ((size_t) available, false);
        piece.setSize ((size_t) stream.read (piece.getData(), (int) available));
        return piece;
    }
    catch (const std::bad_alloc&)
    {
        return {};
    }
}

void jSimpleArchive::readEntries (const versionLayout& layout, int announced)
{
    byteCursor cursor (directory.getData(), directory.getSize());
    entries.reserve (directory.getSize() / layout.recordSize());

    for (int i = 0; i < announced; ++i)
    {
        const auto* field = cursor.take (layout.nameSize);
        const auto scrambled = cursor.takeWord() != 0;
        const auto size = (int) cursor.takeWord();
        const auto offset = (int) cursor.takeWord();

        if (cursor.hasFailed())
            break;

        const auto name = nameIn (field, layout.nameSize);
        entries.push_back ({ name, hashOf (name), size, offset, scrambled });
    }
}

std::string_view jSimpleArchive::nameIn (const char* field, size_t fieldSize)
{
    const std::string_view name (field, (size_t) (std::find (field, field + fieldSize, '\0') - field));

    if (isValidText (name.data(), name.size()))
        return name;

    return repairedNames.emplace_back (validText (name.data(), name.size()).toStdString());
}

void jSimpleArchive::buildIndex()
{
    size_t slots = 1;

    while (slots <= 2 * entries.size())
        slots *= 2;

    index.assign (slots, -1);

    for (size_t i = 0; i < entries.size(); ++i)
        if (auto& slot = index[slotOf (entries[i].name, entries[i].hash)]; slot < 0)
            slot = (int) i;
}

size_t jSimpleArchive::slotOf (std::string_view name, juce::uint32 hash) const
{
    const auto mask = index.size() - 1;
    const auto isAnother = [&] (const ArchiveEntry& entry) {
        return entry.hash != hash || entry.name != name;
    };
    auto slot = hash & mask;

    while (index[slot] >= 0 && isAnother (entries[(size_t) index[slot]]))
        slot = (slot + 1) & mask;

    return slot;
}

int jSimpleArchive::findEntry (const juce::String& name) const
{
    if (index.empty())
        return -1;

    const std::string_view bytes (name.toRawUTF8(), name.getNumBytesAsUTF8());
    return index[slotOf (bytes, hashOf (bytes))];
}
