#pragma once

/** Starts the framework with a settings folder of its own, and with the program-wide paths empty. */
void startFramework();

/** Lets go of every window and ends the framework. An assertion of the framework since startFramework fails
    the test program. */
void stopFramework();
