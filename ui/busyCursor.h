#pragma once

/** Shows the wait cursor while a call blocks the message thread, from construction to destruction. Before that,
    whatever waits to be repainted in the program's windows is painted, so that the screen shows the state that the
    user will look at meanwhile. Keys and clicks of that time are dropped at its end: what they would reach then, such
    as a message box, is nothing that the user has seen. May be nested. Message thread only. */
class busyCursor
{
public:
    busyCursor();
    ~busyCursor();

    busyCursor (const busyCursor&) = delete;
    busyCursor& operator= (const busyCursor&) = delete;

    /** Keys and clicks are not dropped: what they will reach is what the user has seen all the time. */
    void keepInput() { dropsInput = false; }

    /** Whether one of these lives. */
    static bool isShown();

private:
    bool dropsInput = true;
};
