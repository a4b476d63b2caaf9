#pragma once

/** Shows the wait cursor while a call blocks the message thread, from construction to destruction. Before that,
    whatever waits to be repainted in the program's windows is painted, so that the screen shows the state that the
    user will look at meanwhile. May be nested. Message thread only. */
class busyCursor
{
public:
    busyCursor();
    ~busyCursor();

    busyCursor (const busyCursor&) = delete;
    busyCursor& operator= (const busyCursor&) = delete;

    /** Whether one of these lives. */
    static bool isShown();
};
