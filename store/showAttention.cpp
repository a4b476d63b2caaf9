#include "store/showAttention.h"
#include "app/productName.h"
#include "ui/focusKeeper.h"

void showAttention (const juce::String& message)
{
    const focusKeeper focus;
    const juce::String title (productName);

    juce::AlertWindow::showMessageBox (juce::MessageBoxIconType::InfoIcon,
                                       title.isEmpty() ? juce::String ("Attention") : title, message, "Ok");
}
