#pragma once

#include "store/genericlistener.h"
#include "ui/baselineLabel.h"
#include "ui/firstFocus.h"
#include "ui/pageBanner.h"
#include "ui/pageContent.h"
#include "ui/pageLabel.h"

/** The welcome page: what the program is for, and the button that leads on. Sends the message "intro done". */
class store_intro : public juce::Component, public juce::Button::Listener
{
public:
    /** Does not own the listener, which outlives the page. */
    explicit store_intro (genericlistener&);

    void paint (juce::Graphics&) override;
    void resized() override;
    void buttonClicked (juce::Button*) override;
    void buttonStateChanged (juce::Button*) override;

private:
    pageLabel background;
    juce::TextButton logOnButton;
    baselineLabel dropCap;
    pageLabel body;
    baselineLabel welcome;
    const pageContent content;
    const firstFocus focus;
    genericlistener& listener;
    pageBanner banner;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (store_intro)
};
