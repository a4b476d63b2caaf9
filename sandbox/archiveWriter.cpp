#include "sandbox/archiveWriter.h"
#include "net/dataScrambler.h"

juce::MemoryBlock archiveWriter::write() const
{
    const auto hasHeader = version != 1, hasKey = version != 1 && version != 2;
    const size_t nameSize = version == 3 ? 252 : 60;

    juce::MemoryOutputStream file;
    std::string data;
    file.writeInt ((int) version);
    file.writeInt (wrongCount.value_or ((int) entries.size()));

    const auto writeField = [&file] (std::string text, size_t size) {
        text.resize (size);
        file.write (text.data(), size);
    };

    if (hasHeader)
        writeField (header, 148);

    if (hasKey)
    {
        file.writeInt ((int) keyWord);
        file.writeInt ((int) indexBase);
    }

    const auto dataStart = (size_t) file.getPosition() + entries.size() * (nameSize + 12);

    for (juce::uint32 i = 0; i < entries.size(); ++i)
    {
        const auto& e = entries[i];
        writeField (e.name, nameSize);
        file.writeInt (e.scrambled ? 1 : 0);
        file.writeInt (e.wrongSize.value_or ((int) e.bytes.size()));
        file.writeInt (e.wrongOffset.value_or ((int) (dataStart + data.size())));
        data += e.bytes;

        if (auto left = keyWord, right = indexBase + i; e.scrambled && hasKey)
            applyKeystream (data.data() + data.size() - e.bytes.size(), (int) e.bytes.size(), left, right);
    }

    file.write (data.data(), data.size());
    return file.getMemoryBlock();
}
