#pragma once

#include <functional>

/** Lets the message loop run until a condition holds. Fails the test, naming what it waited for, when the
    deadline passes first: 20 seconds unless told, which no healthy run comes near. */
void waitFor (const char* what, const std::function<bool()>& condition, int deadlineMs = 20000);

/** Lets every message that is already queued, and those that these queue, be handled. */
void drainMessages();
