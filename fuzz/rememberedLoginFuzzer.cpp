#include "base/validText.h"
#include "fuzz/inputFile.h"
#include "net/rememberedLogin.h"
#include <cstdlib>

/** A file that somebody else wrote, and what is loaded of it saved and loaded again. */
extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, size_t size)
{
    const auto file = inputFile ("rememberme.txt", data, size);
    const rememberedLogin remembered (file.getParentDirectory().getFullPathName());
    const auto login = remembered.load();

    if (! login.has_value())
        return 0;

    for (auto& text : { login->address, login->password })
        if (! isValidText (text.toRawUTF8(), text.getNumBytesAsUTF8()))
            std::abort();

    remembered.save (*login);
    const auto again = remembered.load();

    if (! again.has_value() || again->address != login->address || again->password != login->password)
        std::abort();

    return 0;
}
