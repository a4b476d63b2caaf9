#pragma once

#include <juce_core/juce_core.h>
#include <optional>

/** The login that the user wants to find again at the next start: the file "rememberme.txt" in the installation
    folder, readable by its owner only. Two lines, each ended by CR LF: the e-mail address and the password, both
    scrambled, in printable form.

    Without an installation folder there is nothing to load and nothing is written. Failures are not reported: a
    login that cannot be remembered must be typed, no more. */
class rememberedLogin
{
public:
    struct login
    {
        juce::String address, password;
    };

    explicit rememberedLogin (const juce::String& installationFolder);

    /** What the file holds, sensible or not: a line that was not scrambled by us gives some text or none. Nothing
        when there is no file, when it has other than two lines that are not blank, or when it is larger than 1 MB.
        Reads line ends of every kind, with or without a byte-order mark. */
    std::optional<login> load() const;

    /** Replaces the file wholly or not at all; not at all for a login that would make it larger than load() reads. */
    void save (const login&) const;

    /** Deletes the file. */
    void forget() const;

private:
    const juce::File file; // none without an installation folder
};
