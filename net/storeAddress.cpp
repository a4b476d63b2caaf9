#include "net/storeAddress.h"

juce::String storeAddress()
{
    return STORE_URL;
}
