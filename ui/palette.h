#pragma once

#include <juce_core/juce_core.h>

/** The colours of the product's interface, ARGB; `assets/README.md` has the ones that its drawings share. */
struct palette
{
    static constexpr juce::uint32 dark = 0xff16181c;      /**< Where no picture shows. */
    static constexpr juce::uint32 panel = 0xff24272d;     /**< Boxes and menus. */
    static constexpr juce::uint32 pagePanel = 0x4d000000; /**< Under the texts and controls of a page. */
    static constexpr juce::uint32 pagePanelEdge = 0x1affffff;
    static constexpr juce::uint32 body = 0xff4b525d; /**< Of buttons. */
    static constexpr juce::uint32 text = 0xffeeece6;
    static constexpr juce::uint32 quietText = 0xffb9b8b2;  /**< On all of these but the body. */
    static constexpr juce::uint32 brightText = 0xffffffff; /**< On a selection. */
    static constexpr juce::uint32 accent = 0xffffb454;     /**< Focus, ticks, headings, progress. */
    static constexpr juce::uint32 failure = 0xffff8f80;    /**< What went wrong. */
    static constexpr juce::uint32 selection = 0x66ffb454;
    static constexpr juce::uint32 sunken = 0xd908090b;   /**< Text editors; brightened where it is painted. */
    static constexpr juce::uint32 hairline = 0x66ffffff; /**< Around boxes and lists. */
    static constexpr juce::uint32 edge = 0x8cffffff;     /**< Of controls. */
    static constexpr juce::uint32 faintLine = 0x40ffffff; /**< Around what is no control. */
    static constexpr juce::uint32 well = 0x66000000;      /**< Sunken areas: lists, tracks, text boxes. */
};
