#include "bench/figures.h"
#include "content/catalogue.h"
#include <pugixml.hpp>
#include <vector>

static constexpr int few = 10'000, many = 100'000, most = 1'000'000;

static juce::String replyOf (int items)
{
    juce::MemoryOutputStream text;
    text << "<reply status=\"success\">\n";

    for (int i = 0; i < items; ++i)
        text << "<downloadable url=\"https://store.dorvik.example/items/" << i << "\" target=\"amps/model "
             << i << ".sa\" name=\"Model " << i << "\" buildnumber=\"" << i % 50
             << "\" builddaterequirement=\"150406\"/>\n";

    text << "</reply>\n";
    return text.toUTF8();
}

static bool readWithOurs (const juce::String& text, int items)
{
    juce::Array<DownloadItem> read;
    readCatalogue (*juce::parseXML (text), "/klangora", read);
    return read.size() == items;
}

static bool readWithPugixml (const juce::String& text)
{
    struct item
    {
        std::string url, target, name, requirement;
        int build;
    };

    pugi::xml_document document;
    document.load_string (text.toRawUTF8());
    std::vector<item> read;

    for (const auto element : document.child ("reply").children ("downloadable"))
        read.push_back ({ element.attribute ("url").value(),
                          std::string ("/klangora/") + element.attribute ("target").value(),
                          element.attribute ("name").value(),
                          element.attribute ("builddaterequirement").value(),
                          element.attribute ("buildnumber").as_int() });

    return read.size() == many;
}

/** Seconds for so many items of a catalogue of a size. */
static reading secondsFor (int items, int size)
{
    return [=] {
        const auto text = replyOf (size);
        return timed ([&] { return readWithOurs (text, size); })() * items / size;
    };
}

static const int registered = [] {
    addFigure ({ "a catalogue of 100,000 items, text to items", "pugixml, the same attributes", 0.4, 15 },
               secondsFor (many, many), [] {
                   const auto text = replyOf (many);
                   return timed ([&] { return readWithPugixml (text); })();
               });
    addFigure ({ "10,000 items of a catalogue of a million", "of a catalogue of 10,000", 0.67, 3 },
               secondsFor (few, most), secondsFor (few, few));
    return 0;
}();
