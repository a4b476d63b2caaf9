#include "bench/figures.h"
#include "content/catalogue.h"
#include <pugixml.hpp>
#include <vector>

static constexpr int many = 100'000;

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

static std::function<void (benchmark::State&)> readWithOurs (int items)
{
    return [items] (benchmark::State& state) {
        const auto text = replyOf (items);

        for (auto _ : state)
        {
            juce::Array<DownloadItem> read;
            readCatalogue (*juce::parseXML (text), "/klangora", read);

            if (read.size() != items)
                state.SkipWithError ("not all read");
        }
    };
}

/** The part of it that is the framework's: to make a tree of the text, and to free that. */
static void parseAlone (benchmark::State& state)
{
    const auto text = replyOf (many);

    for (auto _ : state)
        if (juce::XmlDocument::parse (text) == nullptr)
            state.SkipWithError ("not parsed");
}

static void readWithPugixml (benchmark::State& state)
{
    const auto text = replyOf (many);

    struct item
    {
        std::string url, target, name, requirement;
        int build;
    };

    for (auto _ : state)
    {
        pugi::xml_document document;
        document.load_buffer (text.toRawUTF8(), text.getNumBytesAsUTF8());
        std::vector<item> read;

        for (const auto element : document.child ("reply").children ("downloadable"))
            read.push_back ({ element.attribute ("url").value(),
                              std::string ("/klangora/") + element.attribute ("target").value(),
                              element.attribute ("name").value(),
                              element.attribute ("builddaterequirement").value(),
                              element.attribute ("buildnumber").as_int() });

        if (int (read.size()) != many)
            state.SkipWithError ("not all read");
    }
}

static const int registered = [] {
    const std::string name = "a catalogue of 100,000 items, text to items";
    addFigure ({ name, "pugixml, the same attributes", 1.0 / 3 }, readWithOurs (many), readWithPugixml);
    addFigure ({ name, "the framework's parser alone", 0 }, readWithOurs (many), parseAlone);

    for (const auto items : { 100, 1000, 10'000, many })
        addGrowth ("catalogue items read", items, readWithOurs (items));

    return 0;
}();
