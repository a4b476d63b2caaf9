#include "ui/drawProgress.h"
#include "ui/palette.h"
#include <array>
#include <catch2/catch.hpp>
#include <cmath>

// What a person with weak sight needs: 4.5 : 1 between a text and what it stands on, 3 : 1 between the edge of a
// control and what is around it. Controls that are disabled are exempt, as they are in the usual guidelines.

static constexpr double forText = 4.5, forEdges = 3.0;

static double luminance (juce::Colour c)
{
    const auto linear = [] (float channel) {
        return channel <= 0.04045f ? channel / 12.92 : std::pow ((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear (c.getFloatRed()) + 0.7152 * linear (c.getFloatGreen())
           + 0.0722 * linear (c.getFloatBlue());
}

static double contrast (juce::Colour a, juce::Colour b)
{
    const auto lighter = juce::jmax (luminance (a), luminance (b)),
               darker = juce::jmin (luminance (a), luminance (b));
    return (lighter + 0.05) / (darker + 0.05);
}

/** The lightest and the darkest colour of the part of the skin that the window shows, noise of single pixels aside. */
static std::array<juce::Colour, 2> extremesOfSkin()
{
    const auto skin = juce::ImageFileFormat::loadFrom (juce::File (SKIN_PICTURE));
    REQUIRE (skin.isValid());
    const auto part = skin.getClippedImage ({ (skin.getWidth() - 700) / 2, 0, 700, 548 }).rescaled (350, 274);
    std::vector<juce::Colour> colours;

    for (int y = 0; y < part.getHeight(); ++y)
        for (int x = 0; x < part.getWidth(); ++x)
            colours.push_back (part.getPixelAt (x, y));

    const auto [darkest, lightest] =
        std::minmax_element (colours.begin(), colours.end(),
                             [] (juce::Colour a, juce::Colour b) { return luminance (a) < luminance (b); });
    return { *darkest, *lightest };
}

/** A component on a plain ground. */
struct onGround : juce::Component
{
    onGround (juce::Component& component, juce::Colour colourOfGround)
        : ground (colourOfGround)
    {
        setSize (300, 60);
        addAndMakeVisible (component);
        component.setBounds (20, 20, 200, 24);
        picture = createComponentSnapshot (getLocalBounds());
    }

    void paint (juce::Graphics& g) override { g.fillAll (ground); }

    /** The strongest contrast with the ground around the component's left end. */
    double edge (int inset = 0) const
    {
        double best = 1.0;

        for (int x = 19 + inset; x < 24 + inset; ++x)
            best = juce::jmax (best, contrast (ground, picture.getPixelAt (x, 32)));

        return best;
    }

    juce::Colour inside() const { return picture.getPixelAt (200, 32); }

    juce::Colour ground;
    juce::Image picture;
};

TEST_CASE ("every text can be read on what it stands on")
{
    for (auto skin : extremesOfSkin())
    {
        const auto panel = skin.overlaidWith (juce::Colour (palette::pagePanel));
        const auto list = panel.overlaidWith (juce::Colour (palette::well));
        const auto box = skin.overlaidWith (juce::Colour (palette::panel).withAlpha (0.7f));
        const auto menu =
            skin.overlaidWith (juce::Colour (0x55000000)).overlaidWith (juce::Colour (0x40ffffff));
        const std::tuple<const char*, juce::Colour, std::vector<juce::uint32>> rows[] = {
            { "a page's text, and Caps Lock", panel, { palette::text, palette::accent } },
            { "the password hint, with its address, and a heading",
              skin,
              { palette::text, palette::accent } },
            { "a button of the bar", skin, { 0xa8000000 | (palette::text & 0xffffff) } },
            { "an item that is installed, current, failed or too new",
              list,
              { palette::text, palette::quietText, palette::failure, palette::accent } },
            { "the title", skin.overlaidWith (juce::Colour (0x33ffffff)), { palette::text } },
            { "a menu's chosen item", menu, { palette::brightText } },
            { "a message box", box, { palette::text } },
            { "a tooltip", juce::Colour (palette::panel), { palette::text } },
            { "selected text",
              panel.overlaidWith (juce::Colour (palette::selection)),
              { palette::brightText } },
        };

        for (auto& [where, ground, texts] : rows)
            for (const auto text : texts)
            {
                INFO (where << ": " << juce::String::toHexString ((int) text) << " on " << ground.toString());
                CHECK (contrast (ground, ground.overlaidWith (juce::Colour (text))) >= forText);
            }
    }
}

TEST_CASE ("every control stands out from its ground, and its text from its body")
{
    juce::TextButton button, pointedAt, pressed;
    juce::ToggleButton toggle;
    juce::TextEditor editor;
    struct : juce::Component
    {
        void paint (juce::Graphics& g) override { drawProgress (g, getLocalBounds(), 0.5); }
    } progress;
    pointedAt.setState (juce::Button::buttonOver);
    pressed.setState (juce::Button::buttonDown);
    const std::pair<const char*, juce::Component*> controls[] = {
        { "a button", &button },       { "a button under the mouse", &pointedAt },
        { "a pressed one", &pressed }, { "a toggle", &toggle },
        { "an editor", &editor },      { "a progress bar", &progress },
    };

    for (auto skin : extremesOfSkin())
        for (auto ground : { skin, skin.overlaidWith (juce::Colour (palette::pagePanel)) })
            for (auto& [name, control] : controls)
            {
                const onGround shown (*control, ground);
                INFO (name << " on " << ground.toDisplayString (false));
                CHECK (shown.edge (control == &toggle ? 8 : 0) >= forEdges);
                CHECK (contrast (shown.inside(), juce::Colour (palette::text)) >= forText);

                if (control == &progress)
                    CHECK (contrast (shown.inside(), shown.picture.getPixelAt (60, 32)) >= forEdges);
            }
}
