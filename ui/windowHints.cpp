#define JUCE_GUI_BASICS_INCLUDE_XHEADERS 1
#include "ui/windowHints.h"
#include "assets.h"

#if JUCE_WINDOWS
    #include <windows.h>
#endif

#if JUCE_LINUX

namespace
{
void setProperty (juce::Component& window, const char* property, Atom type, const std::vector<long>& values)
{
    const auto& system = *juce::XWindowSystem::getInstance();
    const auto atom = juce::XWindowSystemUtilities::Atoms::getCreating (system.getDisplay(), property);

    juce::X11Symbols::getInstance()->xChangeProperty (
        system.getDisplay(), (::Window) window.getWindowHandle(), atom, type, 32, PropModeReplace,
        reinterpret_cast<const unsigned char*> (values.data()), (int) values.size());
}

long atomNamed (const char* name)
{
    return (long) juce::XWindowSystemUtilities::Atoms::getCreating (
        juce::XWindowSystem::getInstance()->getDisplay(), name);
}

/** Width, height, and the pixels as ARGB, row by row. */
void appendIcon (std::vector<long>& values, const void* png, int size)
{
    const auto image = juce::ImageCache::getFromMemory (png, size);
    values.push_back (image.getWidth());
    values.push_back (image.getHeight());

    for (int y = 0; y < image.getHeight(); ++y)
        for (int x = 0; x < image.getWidth(); ++x)
            values.push_back ((long) image.getPixelAt (x, y).getARGB());
}
}

void windowHints::setIcon (juce::Component& window)
{
    window.getPeer()->setIcon (juce::ImageCache::getFromMemory (assets::icon48_png, assets::icon48_pngSize));

    std::vector<long> icons;
    appendIcon (icons, assets::icon16_png, assets::icon16_pngSize);
    appendIcon (icons, assets::icon32_png, assets::icon32_pngSize);
    appendIcon (icons, assets::icon48_png, assets::icon48_pngSize);
    appendIcon (icons, assets::icon64_png, assets::icon64_pngSize);
    appendIcon (icons, assets::icon128_png, assets::icon128_pngSize);
    appendIcon (icons, assets::icon256_png, assets::icon256_pngSize);
    setProperty (window, "_NET_WM_ICON", XA_CARDINAL, icons);
}

void windowHints::setDialogOf (juce::Component& window, juce::Component& owner)
{
    setProperty (window, "WM_TRANSIENT_FOR", XA_WINDOW, { (long) owner.getWindowHandle() });
    setProperty (window, "_NET_WM_WINDOW_TYPE", XA_ATOM, { atomNamed ("_NET_WM_WINDOW_TYPE_DIALOG") });
    setProperty (window, "_NET_WM_STATE", XA_ATOM,
                 { atomNamed ("_NET_WM_STATE_MODAL"), atomNamed ("_NET_WM_STATE_SKIP_TASKBAR") });
}

#else

void windowHints::setIcon (juce::Component&)
{}

void windowHints::setDialogOf (juce::Component& window, juce::Component& owner)
{
    auto* handle = static_cast<HWND> (window.getWindowHandle());
    SetWindowLongPtrW (handle, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR> (owner.getWindowHandle()));
    SetWindowLongPtrW (handle, GWL_EXSTYLE, GetWindowLongPtrW (handle, GWL_EXSTYLE) & ~WS_EX_APPWINDOW);
}

#endif
