#include "fuzz/inputFile.h"
#include "fuzz/readItems.h"
#include "net/storeService.h"
#include <cstdint>
#include <cstdlib>
#include <string>
#include <sys/socket.h>
#include <thread>

namespace
{
/** A server on the loopback interface that answers whatever it is asked with the same bytes, and hangs up. It is the
    proxy for every other server, so that a redirect leads nowhere else. */
struct sameAnswerServer
{
    sameAnswerServer()
    {
        listener.createListener (0, "127.0.0.1");
        const auto address = "http://127.0.0.1:" + juce::String (listener.getBoundPort());

        for (auto* variable : { "http_proxy", "https_proxy" })
            setenv (variable, address.toRawUTF8(), 1);

        unsetenv ("no_proxy");
        std::thread ([this] { serve(); }).detach(); // for as long as the process lives
    }

    [[noreturn]] void serve()
    {
        for (;;)
            if (const std::unique_ptr<juce::StreamingSocket> client{ listener.waitForNextConnection() })
            {
                readRequest (*client);
                ::send (client->getRawSocketHandle(), answer.data(), answer.size(), MSG_NOSIGNAL);
            }
    }

    static void readRequest (juce::StreamingSocket& client)
    {
        std::string request;
        size_t head = 0;
        char piece[4096];

        for (int count = 1; count > 0 && (head == 0 || request.size() < head + bodyLength (request));)
        {
            count = client.read (piece, (int) sizeof (piece), false);
            request.append (piece, (size_t) juce::jmax (0, count));

            if (const auto end = request.find ("\r\n\r\n"); end != std::string::npos)
                head = end + 4;
        }
    }

    static size_t bodyLength (const std::string& request)
    {
        const std::string name ("Content-length: ");
        const auto line = request.find (name);
        return line == std::string::npos ? 0 : (size_t) std::atoi (request.c_str() + line + name.size());
    }

    juce::StreamingSocket listener;
    std::string answer; // changed only while no request is on its way
};
}

/** Bytes from the network to the items of the catalogue: transport, redirects, body, text and parser. */
extern "C" int LLVMFuzzerTestOneInput (const std::uint8_t* data, size_t size)
{
    static auto& server = *new sameAnswerServer;
    static const juce::String token ("token"), enduser ("a@x.org");
    static const auto folder = inputFile ("reply", data, size).getParentDirectory().getFullPathName();
    static const storeService service ("http://store.example", folder, token, enduser,
                                       [] (const std::function<void()>& call) { call(); });

    server.answer.assign (reinterpret_cast<const char*> (data), size);
    juce::String error;
    const auto reply = service.requestBin (error, "list", "mediareview");

    if (reply != nullptr)
        readItems (*reply);

    return 0;
}
