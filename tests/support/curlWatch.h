#pragma once

#include <string>

/** While it lives it sees what the framework tells libcurl, and changes it where a test wants that. The test
    program's calls of libcurl are led through here by the linker. One at a time; on Linux only. */
class curlWatch
{
public:
    curlWatch();
    ~curlWatch();

    curlWatch (const curlWatch&) = delete;
    curlWatch& operator= (const curlWatch&) = delete;

    /** A certificate (PEM) to be trusted in place of the system's authorities; empty for these. */
    std::string authority;

    /** Makes libcurl's time limits one second instead of what the framework sets. */
    bool hurries = false;

    // What was set last, in seconds and in bytes per second; 0 for never.
    long connectTimeOut = 0, silenceTimeOut = 0, slowestSpeed = 0;

    /** The longest that a thread went to sleep meanwhile, other than waiting for the network. */
    long longestSleepMs = 0;
};
