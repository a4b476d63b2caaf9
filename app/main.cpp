#include "app/theApp.h"

START_JUCE_APPLICATION (theApp)
