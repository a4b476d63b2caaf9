#pragma once

#include "content/jSimpleArchive.h"

/** Serves an ordinary folder through the interface of a packed archive. */
class jSimpleArchiveDirectory : public jSimpleArchive
{
public:
};
