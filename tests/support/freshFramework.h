#pragma once

/** Starts the framework with a settings folder of its own, and with the program-wide paths empty. */
void startFramework();

/** Lets go of every window and ends the framework. An assertion of the framework since startFramework fails
    the test program. */
void stopFramework();

/** Puts the program-wide paths and readers back into the state in which the program starts. */
void forgetInstallation();
