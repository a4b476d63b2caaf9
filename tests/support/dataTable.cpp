#include "tests/support/dataTable.h"
#include <catch2/catch.hpp>

juce::File testFile (const juce::String& path)
{
    return juce::File (TESTS_FOLDER).getChildFile (path);
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

static juce::StringArray split (const juce::String& text, const juce::String& separator)
{
    juce::StringArray parts;

    for (auto rest = text + separator; rest.isNotEmpty();
         rest = rest.fromFirstOccurrenceOf (separator, false, false))
        parts.add (rest.upToFirstOccurrenceOf (separator, false, false));

    return parts;
}

void checkTable (const char* name,
                 const std::function<std::string (const std::vector<std::string>& columns)>& outcome)
{
    const auto file = testFile ("data/" + juce::String (name) + ".txt");
    auto rows = juce::StringArray::fromLines (file.loadFileAsString());
    rows.removeEmptyStrings();
    REQUIRE_FALSE (rows.isEmpty());

    for (auto& row : rows)
    {
        if (row.startsWith ("# "))
            continue;

        INFO (file.getFileName() << ": " << row);
        const auto sides = split (row, " =>");
        REQUIRE (sides.size() >= 2);
        std::vector<std::string> columns;

        for (auto& column : split (sides[0], " |"))
            columns.push_back (expanded (column.trim().toStdString()));

#if JUCE_WINDOWS
        const auto& wanted = sides[sides.size() - 1];
#else
        const auto& wanted = sides[1];
#endif
        CHECK (outcome (columns) == expanded (wanted.trim().toStdString()));
    }
}
