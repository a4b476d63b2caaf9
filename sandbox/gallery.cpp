// Paints every widget of the look and feel in its states, the message boxes, and the pages into pictures to look at, at
// each of some scales of the screen: see --help. It needs a display, because a component that has the keyboard focus
// lies in a window.

#include "app/installationPaths.h"
#include "app/productName.h"
#include "content/store_downloads.h"
#include "net/storeAddress.h"
#include "net/store_auth.h"
#include "sandbox/plainLetters.h"
#include "store/jStoreDialog.h"
#include "store/showAttention.h"
#include "ui/jpseudomodaldialog.h"
#include "ui/lookAndFeelKlangora.h"
#include <CLI/CLI.hpp>
#include <iostream>

using look = juce::LookAndFeel;

/** Draws what is no component of its own through the look and feel. */
struct painted : juce::Component
{
    std::function<void (juce::Graphics&, look&, int width, int height)> onPaint;

    void paint (juce::Graphics& g) override { onPaint (g, getLookAndFeel(), getWidth(), getHeight()); }
};

/** The sheet with all widgets. */
class sheet : public juce::Component
{
public:
    sheet()
    {
        setSize (1200, 1060);
        addButtons();
        addToggles();
        addEditors();
        addComboBoxes();
        addSliders();
        addScrollBars();
        addFileRows();
        addMenu();
        addTooltips();
        addDialogs();
    }

    /** The samples that show the keyboard focus. */
    std::vector<juce::Component*> focused;

private:
    void paint (juce::Graphics& g) override
    {
        dynamic_cast<lookAndFeelKlangora&> (getLookAndFeel())
            .renderDialogBackground (background, *this, getWidth(), getHeight(), true);
        g.drawImageAt (background, 0, 0);
    }

    template <typename Widget>
    Widget& add (Widget* widget, juce::Rectangle<int> bounds)
    {
        widgets.add (widget);
        addAndMakeVisible (widget);
        widget->setBounds (bounds);
        return *widget;
    }

    void caption (const juce::String& text, int x, int y)
    {
        add (new juce::Label ({}, text), { x - 5, y, 300, 22 })
            .setFont (juce::Font (13.0f, juce::Font::bold));
    }

    void addButtons()
    {
        caption ("Buttons", 20, 16);
        const juce::Button::ButtonState states[] = { juce::Button::buttonNormal, juce::Button::buttonOver,
                                                     juce::Button::buttonDown };

        for (int i = 0; i < 7; ++i)
        {
            auto& button = add (new juce::TextButton ("Authenticate"), { 20, 44 + 32 * i, 150, 24 });
            button.setState (states[i < 3 ? i : 0]);
            button.setEnabled (i != 3);
            button.setToggleState (i == 5, juce::dontSendNotification);

            if (i == 4)
                focused.push_back (&button);

            if (i == 6)
                button.setButtonText ("A text that is too long for its button");
        }

        for (int type = 0; type < 3; ++type)
        {
            for (int state = 0; state < 4; ++state)
            {
                const int types[] = { juce::DocumentWindow::minimiseButton,
                                      juce::DocumentWindow::maximiseButton,
                                      juce::DocumentWindow::closeButton };
                auto* button = getLookAndFeel().createDocumentWindowButton (types[type]);
                add (button, { 20 + 30 * type, 276 + 30 * state, 26, 26 }).setEnabled (state != 3);
                button->setState (states[state % 3]);
            }
        }

        std::unique_ptr<juce::Button> up (getLookAndFeel().createFileBrowserGoUpButton());
        add (up.release(), { 120, 280, 50, 22 });
    }

    void addToggles()
    {
        caption ("Toggles: off and on", 200, 16);

        for (int i = 0; i < 10; ++i)
        {
            auto& toggle = add (new juce::ToggleButton ("Remember me"),
                                { 196 + 140 * (i % 2), 44 + 28 * (i / 2), 130, 24 });
            toggle.setToggleState (i % 2 != 0, juce::dontSendNotification);
            toggle.setState (i / 2 == 1
                                 ? juce::Button::buttonOver
                                 : (i / 2 == 2 ? juce::Button::buttonDown : juce::Button::buttonNormal));
            toggle.setEnabled (i / 2 != 3);

            if (i / 2 == 4)
                focused.push_back (&toggle);
        }
    }

    void addEditors()
    {
        add (new juce::GroupComponent ({}, "Authenticate"), { 200, 196, 280, 232 });
        const char* names[] = { "Email address", "Password", "Focused, selected", "Disabled" };

        for (int i = 0; i < 4; ++i)
        {
            add (new juce::Label ({}, names[i]), { 220, 214 + 50 * i, 150, 24 });
            auto& editor = add (new juce::TextEditor ({}, i == 1 ? '*' : (juce::juce_wchar) 0),
                                { 220, 238 + 50 * i, 240, 24 });
            editor.setText ("someone@example.org");
            editor.setEnabled (i != 3);

            if (i == 2)
            {
                editor.setHighlightedRegion ({ 8, 15 });
                focused.push_back (&editor);
            }
        }
    }

    void addComboBoxes()
    {
        caption ("Combo boxes: normal, disabled, focused, lower", 20, 440);

        for (int i = 0; i < 4; ++i)
        {
            auto& box = add (new juce::ComboBox(), { 20, 468 + 32 * i + (i == 3 ? 180 : 0), 180, 24 });
            box.addItem ("Plexi, modified 1968", 1);
            box.setSelectedId (1);
            box.setEnabled (i != 1);

            if (i == 2)
                focused.push_back (&box);
        }
    }

    void addSliders()
    {
        using slider = juce::Slider;
        caption ("Sliders", 520, 16);
        const slider::SliderStyle styles[] = { slider::LinearHorizontal,   slider::LinearHorizontal,
                                               slider::TwoValueHorizontal, slider::ThreeValueHorizontal,
                                               slider::LinearBar,          slider::LinearVertical,
                                               slider::LinearVertical,     slider::Rotary };

        for (int i = 0; i < 8; ++i)
        {
            const auto isTall = i >= 5;
            const auto bounds = isTall ? juce::Rectangle<int> (520 + 90 * (i - 5), 210, 80, 150)
                                       : juce::Rectangle<int> (520, 44 + 32 * i, 280, 24);
            auto& sample =
                add (new slider (styles[i], isTall ? slider::TextBoxBelow : slider::TextBoxRight), bounds);
            sample.setTextBoxStyle (sample.getTextBoxPosition(), false, 70, 22);
            sample.setEnabled (i != 1 && i != 6);
            sample.setRange (0.0, 10.0, 0.1);

            if (sample.isTwoValue() || sample.isThreeValue())
                sample.setMinAndMaxValues (2.0, 8.0);

            if (! sample.isTwoValue())
                sample.setValue (6.2);
        }
    }

    void addScrollBars()
    {
        caption ("Scroll bars: normal, hover, pressed", 520, 380);

        for (int i = 0; i < 3; ++i)
        {
            for (auto isVertical : { false, true })
            {
                auto& bar =
                    add (new painted(), isVertical ? juce::Rectangle<int> (760 + 22 * i, 408, 12, 80)
                                                   : juce::Rectangle<int> (520, 408 + 22 * i, 220, 12));
                bar.onPaint = [this, i, isVertical] (juce::Graphics& g, look& l, int width, int height) {
                    l.drawScrollbar (g, scrollBar, 0, 0, width, height, isVertical, 20, 40, i > 0, i > 1);
                };
            }
        }
    }

    void addFileRows()
    {
        caption ("File rows", 240, 510);
        add (new painted(), { 240, 538, 580, 144 }).onPaint = [this] (juce::Graphics& g, look& l, int width,
                                                                      int) {
            juce::Image icon (juce::Image::ARGB, 16, 16, true);
            juce::Graphics (icon).fillAll (juce::Colours::seagreen);
            g.fillAll (findColour (juce::ListBox::backgroundColourId));
            const char* names[] = {
                "Sounds",
                "Plexi.sa",
                "Plexi, modified 1968.sa",
                "Cabinet with an icon.sa",
                "Selected with an icon.sa",
                "A name that is very much too long for the place that a row of a file list has for it.sa"
            };

            for (int i = 0; i < 6; ++i)
            {
                juce::Graphics::ScopedSaveState state (g);
                g.setOrigin (0, 24 * i);
                g.reduceClipRegion (0, 0, width, 24);
                l.drawFileBrowserRow (g, width, 24, {}, names[i], i == 3 || i == 4 ? &icon : nullptr,
                                      "1.2 MB", "6 Apr 2015", i == 0, i == 2 || i == 4, i, fileList);
            }
        };
    }

    void addMenu()
    {
        caption ("Popup menu", 860, 16);
        add (new painted(), { 860, 44, 300, 180 }).onPaint = [] (juce::Graphics& g, look& l, int width,
                                                                 int height) {
            l.drawPopupMenuBackground (g, width, height);
            const char* names[] = { "Plain",
                                    "Highlighted",
                                    "Disabled",
                                    "Ticked",
                                    "",
                                    "Sub-menu",
                                    "With a shortcut",
                                    "A text that is much too long for the menu that it stands in" };
            int y = 4;

            for (int i = 0; i < 8; ++i)
            {
                const auto isSeparator = i == 4;
                const juce::Rectangle<int> area (0, y, width, isSeparator ? 10 : 23);
                l.drawPopupMenuItem (g, area, isSeparator, i != 2, i == 1, i == 3, i == 5, names[i],
                                     i == 6 ? "Ctrl + S" : "", nullptr, nullptr);
                y += area.getHeight();
            }
        };
    }

    void addTooltips()
    {
        caption ("Tooltips", 860, 240);
        const char* texts[] = {
            "Click here to download everything that is yours! It will automatically be installed.",
            "Your user name and password will be stored on the disk of this computer. It will be not be "
            "stored in clear text but may be a security concern none the less.",
            "<BETA>Short"
        };

        for (int i = 0; i < 3; ++i)
        {
            const juce::String text (texts[i]);
            const auto bounds = getLookAndFeel().getTooltipBounds (text, {}, { 0, 0, 1000, 1000 });
            add (new painted(), bounds.withPosition (860, 268 + 66 * i)).onPaint =
                [text] (juce::Graphics& g, look& l, int width, int height) {
                    l.drawTooltip (g, text, width, height);
                };
        }
    }

    void addDialogs()
    {
        caption ("Dialogs in a holder: one button; hovered; focused", 20, 830);

        for (int i = 0; i < 3; ++i)
        {
            auto& holder = add (new painted(), { 20 + 390 * i, 858, 380, 186 });
            holder.onPaint = [] (juce::Graphics& g, look&, int width, int height) {
                g.fillCheckerBoard ({ (float) width, (float) height }, 40.0f, 40.0f, juce::Colours::grey,
                                    juce::Colours::darkgrey);
            };

            const char* titles[] = { "Notice", "Replace the installed item?",
                                     "A title that is too long for the strip above so narrow a dialog" };
            auto* dialog =
                new jpseudomodaldialog (&holder, nullptr, titles[i], i > 0 ? "Replace" : "", {},
                                        i > 0 ? "Keep" : "", {}, i > 1 ? "A long label here" : "", {}, false);
            dialog->setDialogSize (300, 80);

            auto* bar = dialog->getParentComponent()->getChildComponent (1);
            const juce::Point<float> overFirst (20.0f, 12.0f);

            if (i == 1)
                bar->mouseMove ({ juce::Desktop::getInstance().getMainMouseSource(),
                                  overFirst,
                                  {},
                                  0.0f,
                                  0.0f,
                                  0.0f,
                                  0.0f,
                                  0.0f,
                                  bar,
                                  bar,
                                  {},
                                  overFirst,
                                  {},
                                  0,
                                  false });

            if (i == 2)
                focused.push_back (bar->getChildComponent (1));
        }
    }

    juce::Image background;
    juce::ScrollBar scrollBar{ true };
    juce::TimeSliceThread thread{ "unused" };
    juce::DirectoryContentsList files{ nullptr, thread };
    juce::FileListComponent fileList{ files };
    juce::OwnedArray<juce::Component> widgets;
};

/** The message boxes worth a look. */
static juce::OwnedArray<juce::AlertWindow> messageBoxes()
{
    juce::String names ("Successfully downloaded: Amp module 0"),
        path ("Failed to write file:\n/home/someone"), page ("The store refuses:\n\n");

    for (int i = 1; i <= 100; ++i)
        names << ", Amp module " << i;

    while (path.length() < 320)
        path << "/a folder with blanks/AndOneWithoutAnyBlanks-"
             << juce::String::repeatedString ("InItsName", 10);

    while (page.length() < 6000)
        page << "The requested item cannot be served to this account at the moment. Please try again later. ";

    const juce::String texts[] = { "Your account could not be found.", names, path, page,
                                   "Do you want to quit?" };
    juce::OwnedArray<juce::AlertWindow> boxes;
    auto& l = juce::LookAndFeel::getDefaultLookAndFeel();

    for (auto& text : texts)
    {
        const auto isQuestion = text.endsWith ("?");
        boxes.add (l.createAlertWindow (
            productName, text, isQuestion ? "Quit" : "Ok", isQuestion ? "Go back" : "", {},
            isQuestion ? juce::MessageBoxIconType::QuestionIcon : juce::MessageBoxIconType::InfoIcon,
            isQuestion ? 2 : 1, nullptr));
    }

    return boxes;
}

/** Gives a component the keyboard focus; false when the window manager does not play along. */
static bool focus (juce::Component& component)
{
    const auto deadline = juce::Time::getMillisecondCounter() + 10000;

    while (! component.hasKeyboardFocus (true) && juce::Time::getMillisecondCounter() < deadline)
    {
        component.grabKeyboardFocus();
        juce::MessageManager::getInstance()->runDispatchLoopUntil (20);
    }

    return component.hasKeyboardFocus (true);
}

static juce::Image paintAll (sheet& widgets, const juce::OwnedArray<juce::AlertWindow>& boxes, float scale)
{
    constexpr int gap = 20;
    auto height = widgets.getHeight() + gap;

    for (auto* box : boxes)
        height += box->getHeight() + gap;

    juce::Image image (juce::Image::RGB, juce::roundToInt ((float) widgets.getWidth() * scale),
                       juce::roundToInt ((float) height * scale), true);
    juce::Graphics g (image);
    g.fillAll (juce::Colours::grey);

    const auto draw = [&] (juce::Component& component, juce::Rectangle<int> area, int x, int y) {
        g.drawImageAt (component.createComponentSnapshot (area, true, scale),
                       juce::roundToInt ((float) x * scale), juce::roundToInt ((float) y * scale));
    };

    widgets.unfocusAllComponents();
    draw (widgets, widgets.getLocalBounds(), 0, 0);

    for (auto* component : widgets.focused)
    {
        if (! focus (*component))
            std::cerr << "no keyboard focus for " << component->getName() << std::endl;

        const auto area = widgets.getLocalArea (component, component->getLocalBounds());
        draw (widgets, area, area.getX(), area.getY());
    }

    auto y = widgets.getHeight() + gap;

    for (auto* box : boxes)
    {
        draw (*box, box->getLocalBounds(), gap, y);
        y += box->getHeight() + gap;
    }

    return image;
}

/** Nobody is there to close a message box. */
void showAttention (const juce::String&)
{}

/** The same wherever this is built. */
juce::String storeAddress()
{
    return "https://store.dorvik.example";
}

static void write (const juce::Image& picture, const juce::File& folder, const juce::String& name,
                   int percent)
{
    const auto file = folder.getChildFile (name + "-" + juce::String (percent) + ".png");
    file.deleteFile();
    juce::FileOutputStream stream (file);

    if (! stream.openedOk() || ! juce::PNGImageFormat().writeImageToStream (picture, stream))
    {
        std::cerr << "cannot write " << file.getFullPathName() << std::endl;
        std::exit (1);
    }
}

/** The window with each of its pages, which ask this for what the store would tell. */
class pagesInWindow : private genericlistener
{
public:
    /** Scales are in percent. */
    pagesInWindow (const juce::File& outputFolder, std::vector<int> scalesOfScreen)
        : output (outputFolder),
          scales (std::move (scalesOfScreen))
    {
        current.getChildFile ("current").createDirectory();
        current.getChildFile ("current/buildnumber.txt").replaceWithText ("1");
    }

    ~pagesInWindow()
    {
        delete &dialog;
        current.deleteRecursively();
    }

    void writeAll()
    {
        show ("welcome", nullptr);
        store_auth account (*this, current.getFullPathName());

        // One form filled, the other begun.
        for (int i = 0, field = 0; i < account.getNumChildComponents(); ++i)
            if (auto* editor = dynamic_cast<juce::TextEditor*> (account.getChildComponent (i));
                editor != nullptr && ++field <= 3)
                editor->setText ("me@mail.example");

        show ("account", &account);
        store_downloads downloads (*this, current.getFullPathName());
        show ("downloads-idle", &downloads);
        downloads.buttonClicked (dynamic_cast<juce::Button*> (downloads.getChildComponent (1)));
        dialog.showPage (nullptr, 0);
    }

private:
    void show (const char* name, juce::Component* page)
    {
        if (page != nullptr)
            dialog.showPage (page, 1);

        while (juce::Desktop::getInstance().getAnimator().isAnimating())
            juce::MessageManager::getInstance()->runDispatchLoopUntil (20);

        take (name);
    }

    void take (const char* name)
    {
        auto& window = *dialog.getTopLevelComponent();

        for (auto percent : scales)
            write (window.createComponentSnapshot (window.getLocalBounds(), true, (float) percent / 100.0f),
                   output, name, percent);
    }

    void handleMessage (const juce::String&, const juce::var&, const juce::var&, const juce::var&) override {}

    /** A run through a dozen items. It ends when the last one is to be downloaded, with its picture. */
    juce::var handleRequest (const juce::String& text, const juce::var& index, const juce::var&,
                             const juce::var&) override
    {
        const char* names[] = { "Amber Twin", "Velvet Drive", "Plate Room",
                                "A Collection of Impulse Responses of Cabinets from All Over the World, "
                                "Recorded with Twelve Microphones Each, Second Edition" };
        const auto isLast = (int) index == 9;

        if (text == "dl_auth")
            take ("downloads");

        if (text == "dl_total")
            return 12;

        if (text == "dl_url")
            return (int) index < 10 ? "none:" : "";

        if (text == "dl_name")
            return names[isLast ? 3 : (int) index % 4];

        if (text == "dl_target")
            return current.getFullPathName() + (isLast ? "/missing" : "/current");

        return text == "dl_bdr" ? ((int) index % 3 == 2 ? "999999" : "000000") : "1";
    }

    const juce::File output;
    const std::vector<int> scales;
    const juce::File current = juce::File::createTempFile ("gallery");
    jStoreDialog& dialog = *new jStoreDialog (nullptr);
};

// NOLINTNEXTLINE(bugprone-exception-escape): a wrong description of the options is a fault of this file
int main (int argc, char* argv[])
{
    std::string interfacePictures, pictures;
    std::vector<int> scales{ 100, 125, 150, 200 };
    auto plain = false;

    CLI::App line ("Paints the widgets, message boxes and pages for looking at.");
    line.add_option ("INTERFACE", interfacePictures, "Folder of the product's interface pictures")
        ->required();
    line.add_option ("OUTPUT", pictures, "Folder for what is painted")
        ->required()
        ->check (CLI::ExistingDirectory);
    line.add_option ("--scale", scales, "Scales of the screen in percent")->capture_default_str();
    line.add_flag ("--plain", plain, "For comparing: with bars for letters, and nothing that blinks");
    CLI11_PARSE (line, argc, argv);

    const auto folder = [] (const std::string& path) {
        return juce::File::getCurrentWorkingDirectory().getChildFile (juce::String::fromUTF8 (path.c_str()));
    };
    juce::JUCEApplicationBase::createInstance = []() -> juce::JUCEApplicationBase* { return nullptr; };
    const juce::ScopedJuceInitialiser_GUI framework;

    guiFolderSource.open (folder (interfacePictures).getFullPathName());
    guiDataSource = &guiFolderSource;
    lookAndFeelKlangora::install();

    if (plain)
    {
        auto& installed = juce::LookAndFeel::getDefaultLookAndFeel();
        installed.setDefaultSansSerifTypeface (new plainLetters());
        installed.setColour (juce::CaretComponent::caretColourId, juce::Colours::transparentBlack);
    }

    sheet widgets;
    widgets.addToDesktop (0);
    widgets.setVisible (true);
    const auto boxes = messageBoxes();
    const auto output = folder (pictures);

    for (auto percent : scales)
        write (paintAll (widgets, boxes, (float) percent / 100.0f), output, "gallery", percent);

    pagesInWindow (output, scales).writeAll();
    return 0;
}
