#include "base/validText.h"
#include "content/catalogue.h"
#include "content/targetPath.h"
#include "net/acceptableAddress.h"
#include "net/dataScrambler.h"
#include "net/escapeText.h"
#include "net/webStream.h"
#include "tests/support/dataTable.h"
#include "ui/imageOperations.h"
#include <catch2/catch.hpp>

using columns = std::vector<std::string>;

static std::string catalogueOf (const columns& a)
{
    const auto reply = juce::parseXML ("<reply>" + juce::String (a[0]) + "</reply>");
    REQUIRE (reply != nullptr);
    juce::Array<DownloadItem> items;
    readCatalogue (*reply, "/inst", items);
    juce::StringArray found;

    for (auto& item : items)
        found.add (item.url + ", " + item.target + ", " + item.name + ", " + juce::String (item.buildnumber)
                   + ", " + item.builddaterequirement);

    return found.joinIntoString ("; ").toStdString();
}

static std::string keystreamOf (const columns& a)
{
    auto left = (juce::uint32) std::stoul (a[0]), right = (juce::uint32) std::stoul (a[1]);
    juce::MemoryBlock zeros (24, true);
    applyKeystream (zeros.getData(), std::stoi (a[2]), left, right);
    return juce::String::toHexString (zeros.getData(), 24, 8).toStdString() + ", " + std::to_string (left)
           + ", " + std::to_string (right);
}

static std::string redirectOf (const columns& a)
{
    const auto next = redirected ({ a[0], a[1], "token", {} }, std::stoi (a[2]), a[3]);
    return next ? (next->address + ", " + next->token + ", " + next->postData).toStdString() : "none";
}

/** Without a folder a path is one below the folder for temporary files. */
static std::string targetOf (const columns& a)
{
    const auto temporary = juce::File::getSpecialLocation (juce::File::tempDirectory).getFullPathName();
    const auto path = a.size() > 1 ? targetPath (a[0], a[1]) : targetPath (temporary + "/" + a[0], temporary);
    return path ? path->fromFirstOccurrenceOf (temporary + "/", false, false).toStdString() : "refused";
}

/** All the text of a document. */
static std::string documentOf (const columns& a)
{
    const auto root = juce::parseXML (juce::String (a[0]));
    return root != nullptr ? root->getAllSubText().toStdString() : "none";
}

static juce::Image plainImage (juce::Colour colour)
{
    juce::Image image (juce::Image::ARGB, 2, 1, true);
    image.clear (image.getBounds(), colour);
    return image;
}

/** The last pixel's premultiplied bytes, as 0xAARRGGBB in hexadecimal. */
static std::string rawPixel (const juce::Image& image)
{
    const juce::Image::BitmapData pixels (image, juce::Image::BitmapData::readOnly);
    const auto* pixel = reinterpret_cast<const juce::PixelARGB*> (pixels.getPixelPointer (1, 0));
    return juce::String::toHexString ((int) pixel->getInARGBMaskOrder()).paddedLeft ('0', 8).toStdString();
}

static std::string overAndTint (const columns& a)
{
    const auto colour = juce::Colour::fromString (a[0]), under = juce::Colour::fromString (a[1]);
    auto combined = plainImage (under), tinted = plainImage (under);
    combineOver (combined, plainImage (colour));
    tintImage (tinted, colour);
    return rawPixel (combined) + ", " + rawPixel (tinted);
}

/** What makes the outcome of a row, by the name of its table. Behind a text in memory stands what would complete it. */
static const std::map<juce::String, std::function<std::string (const columns&)>> functions
{
    { "acceptableAddress", [] (auto& a) { return isAcceptableAddress (a[0]) ? "yes" : "no"; } },
        { "catalogue", catalogueOf },
        { "decodedText", [] (auto& a) { return decodedText ((a[0] + "\xb8\xdf").data(), a[0].size()); } },
        { "escapeFormText", [] (auto& a) { return escapeFormText (a[0]).toStdString(); } },
        { "keystream", keystreamOf }, { "overAndTint", overAndTint }, { "redirects", redirectOf },
        { "scrambled", [] (auto& a) { return scrambleText (a[0], 5172093, 41927506).toStdString(); } },
        { "targetPath", targetOf },
        { "unscrambled", [] (auto& a) { return unscrambleText (a[0], 5172093, 41927506).toStdString(); } },
        { "validText",
          [] (auto& a) { return validText ((a[0] + "\x80\x80").data(), a[0].size()).toStdString(); } },
        { "xmlDocuments", documentOf },
#if ! JUCE_DEBUG // whose assertions look through the rest of the text at every piece
        { "xmlLongTexts", documentOf },
#endif
};

TEST_CASE ("each function does what its table of tests/data says")
{
    for (auto& [table, function] : functions)
        DYNAMIC_SECTION (table)
        {
            checkTable (table, function);
        }
}
