#include "store/showAttention.h"
#include "app/productName.h"
#include <juce_gui_basics/juce_gui_basics.h>

void showAttention (const juce::String& message)
{
    const juce::String title (productName);

    juce::AlertWindow::showMessageBox (juce::MessageBoxIconType::InfoIcon,
                                       title.isEmpty() ? juce::String ("Attention") : title, message, "Ok");
}
