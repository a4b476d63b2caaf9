#include "tests/support/dataTable.h"
#include <catch2/catch.hpp>

juce::File testFile (const juce::String& path)
{
    return juce::File (TESTS_FOLDER).getChildFile (path);
}

std::string bytesOf (const juce::File& file)
{
    juce::MemoryBlock bytes;
    REQUIRE (file.loadFileAsData (bytes));
    return { bytes.begin(), bytes.end() };
}

std::string expanded (const std::string& text)
{
    std::string bytes;

    for (size_t i = 0; i < text.size(); ++i)
    {
        if (text.compare (i, 2, "@{") == 0)
        {
            const auto star = text.find ('*', i), end = text.find ('}', i);
            const auto unit = expanded (text.substr (star + 1, end - star - 1));

            for (auto left = std::stoi (text.substr (i + 2)); left > 0; --left)
                bytes += unit;

            i = end;
        }
        else if (text[i] != '\\')
        {
            bytes += text[i];
        }
        else if (const auto code = text[++i]; code == 'x')
        {
            bytes += (char) std::stoi (text.substr (i + 1, 2), nullptr, 16);
            i += 2;
        }
        else
        {
            bytes += code == 'r' ? '\r' : code == 'n' ? '\n' : code;
        }
    }

    return bytes;
}

std::string escaped (const std::string& bytes)
{
    std::string text;

    for (auto byte : bytes)
        text += juce::isPositiveAndBelow (byte, ' ')
                    ? "\\x" + juce::String::toHexString (byte).paddedLeft ('0', 2).toStdString()
                    : std::string (1, byte);

    return text;
}

void checkTable (const juce::String& name,
                 const std::function<std::string (const std::vector<std::string>& columns)>& outcome)
{
    const auto file = testFile ("data/" + name + ".txt");
    const auto rows = juce::StringArray::fromLines (file.loadFileAsString());
    REQUIRE (rows.size() > 1);

    for (auto& row : rows)
    {
        if (row.isEmpty() || row.startsWith ("# "))
            continue;

        INFO (file.getFileName() << ": " << row);
        REQUIRE (row.contains (" =>"));
        const auto call = row.upToFirstOccurrenceOf (" =>", false, false) + " ";
        std::vector<std::string> columns;

        for (auto& column : juce::StringArray::fromTokens (call, "|", {}))
            columns.push_back (expanded (column.trim().toStdString()));

        auto wanted = row.fromFirstOccurrenceOf (" =>", false, false);
#if JUCE_WINDOWS
        wanted = wanted.fromLastOccurrenceOf (" =>", false, false);
#else
        wanted = wanted.upToFirstOccurrenceOf (" =>", false, false);
#endif
        CHECK (outcome (columns) == expanded (wanted.trim().toStdString()));
    }
}
