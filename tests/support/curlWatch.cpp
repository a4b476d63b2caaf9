#include "tests/support/curlWatch.h"
#include <juce_core/juce_core.h>

#if JUCE_LINUX
    #include <algorithm>
    #include <catch2/catch.hpp>
    #include <cstdarg>
    #include <ctime>
    #include <curl/curl.h>

static curlWatch* watch = nullptr;

curlWatch::curlWatch()
{
    REQUIRE (watch == nullptr);
    watch = this;
}

curlWatch::~curlWatch()
{
    watch = nullptr;
}

/** The linker's --wrap turns each call of NAME into one of __wrap_NAME. */
extern "C"
{
    // NOLINTBEGIN(bugprone-reserved-identifier, readability-identifier-naming, clang-analyzer-valist.Uninitialized)
    CURL* __real_curl_easy_init();
    CURLcode __real_curl_easy_setopt (CURL* curl, CURLoption option, ...);
    int __real_nanosleep (const timespec* duration, timespec* remaining);

    CURL* __wrap_curl_easy_init()
    {
        auto* curl = __real_curl_easy_init();

        if (watch != nullptr && ! watch->authority.empty())
        {
            curl_blob blob{ watch->authority.data(), watch->authority.size(), CURL_BLOB_COPY };
            __real_curl_easy_setopt (curl, CURLOPT_CAINFO_BLOB, &blob);
        }

        return curl;
    }

    CURLcode __wrap_curl_easy_setopt (CURL* curl, CURLoption option, ...)
    {
        va_list arguments;
        va_start (arguments, option);

        if (option >= CURLOPTTYPE_OBJECTPOINT)
        {
            auto* value = va_arg (arguments, void*); // numbers of this kind are as wide
            va_end (arguments);
            return __real_curl_easy_setopt (curl, option, value);
        }

        auto value = va_arg (arguments, long);
        va_end (arguments);

        if (watch != nullptr)
        {
            if (option == CURLOPT_LOW_SPEED_LIMIT)
                watch->slowestSpeed = value;

            if (option == CURLOPT_CONNECTTIMEOUT || option == CURLOPT_LOW_SPEED_TIME)
            {
                (option == CURLOPT_CONNECTTIMEOUT ? watch->connectTimeOut : watch->silenceTimeOut) = value;

                if (watch->hurries)
                    value = 1;
            }
        }

        return __real_curl_easy_setopt (curl, option, value);
    }

    int __wrap_nanosleep (const timespec* duration, timespec* remaining)
    {
        if (watch != nullptr)
            watch->longestSleepMs = std::max (watch->longestSleepMs,
                                              (long) duration->tv_sec * 1000 + duration->tv_nsec / 1000000);

        return __real_nanosleep (duration, remaining);
    }
    // NOLINTEND(bugprone-reserved-identifier, readability-identifier-naming, clang-analyzer-valist.Uninitialized)
}
#endif
