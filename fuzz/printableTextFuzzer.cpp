#include "base/validText.h"
#include "net/dataScrambler.h"
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, size_t size)
{
    const auto printable = validText (data, size);
    const auto text = unscrambleText (printable, 5172093, 41927506);

    if (! isValidText (text.toRawUTF8(), text.getNumBytesAsUTF8()))
        std::abort();

    if (unscrambleText (scrambleText (printable, 1, 2), 1, 2) != printable)
        std::abort();

    return 0;
}
