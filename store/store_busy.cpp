#include "store/store_busy.h"

store_busy::store_busy()
{
    setSize (600, 400);
}

void store_busy::paint (juce::Graphics& g)
{
    g.fillAll (juce::Colours::white);
}

void store_busy::resized()
{}
