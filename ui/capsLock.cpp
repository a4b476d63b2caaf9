#include "ui/capsLock.h"
#include <juce_core/juce_core.h>

#if JUCE_WINDOWS

    #include <windows.h>

bool isCapsLockOn()
{
    return (GetKeyState (VK_CAPITAL) & 1) != 0;
}

#else

namespace
{
/** A connection of its own to the X server. The framework keeps its one to itself, and loads the library in the same
    way: the program starts where there is none. */
class keyboardLights
{
public:
    keyboardLights()
    {
        using openFunction = void* (*) (const char*);

        if (auto* open = (openFunction) library.getFunction ("XOpenDisplay"))
            display = open (nullptr);

        getState = (stateFunction) library.getFunction ("XkbGetIndicatorState");
    }

    bool isCapsLockOn() const
    {
        constexpr unsigned int coreKeyboard = 0x100, capsLockLight = 1; // XkbUseCoreKbd; the first indicator
        unsigned int lights = 0;
        return display != nullptr && getState != nullptr && getState (display, coreKeyboard, &lights) == 0
               && (lights & capsLockLight) != 0;
    }

private:
    using stateFunction = int (*) (void* display, unsigned int device, unsigned int* lights);

    juce::DynamicLibrary library{ "libX11.so.6" };
    void* display = nullptr;
    stateFunction getState = nullptr;
};
}

bool isCapsLockOn()
{
    static const keyboardLights lights;
    return lights.isCapsLockOn();
}

#endif
