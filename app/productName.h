#pragma once

#include "app/programVersion.h"

/** The product that the store's content is for: the last component of its registry key, the title of
    every message box and, in lower case, the name of its interface data. */
inline constexpr const char* productName = PROGRAM_PRODUCT;
