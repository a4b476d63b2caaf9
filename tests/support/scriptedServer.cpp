#include "tests/support/scriptedServer.h"
#include "net/storeAddress.h"
#include <algorithm>
#include <catch2/catch.hpp>
#include <chrono>
#include <cstdlib>
#include <utility>

#if JUCE_WINDOWS
    #include <winsock2.h>
using nativeSocket = SOCKET;
using socketLength = int;
using socketSize = int;
static constexpr int noSignal = 0, bothWays = SD_BOTH;
#else
    #include <arpa/inet.h>
    #include <netinet/in.h>
    #include <sys/select.h>
    #include <sys/socket.h>
    #include <unistd.h>
using nativeSocket = int;
using socketLength = socklen_t;
using socketSize = size_t;
static constexpr int noSignal = MSG_NOSIGNAL, bothWays = SHUT_RDWR;
static constexpr auto closesocket = ::close;
#endif

static std::vector<const scriptedServer*> servers; // the living ones

juce::String storeAddress()
{
    return servers.empty() ? "http://127.0.0.1:1" : servers.front()->origin(); // where nobody listens
}

//==============================================================================
std::string recordedRequest::line() const
{
    return bytes.substr (0, bytes.find ("\r\n"));
}

std::string recordedRequest::header (const std::string& name) const
{
    juce::StringArray values;
    const auto head = juce::String (bytes.substr (0, bytes.find ("\r\n\r\n")));

    for (auto& headerLine : juce::StringArray::fromLines (head))
        if (headerLine.startsWithIgnoreCase (name + ": "))
            values.add (headerLine.fromFirstOccurrenceOf (": ", false, false));

    return values.joinIntoString ("|").toStdString();
}

std::string recordedRequest::body() const
{
    const auto end = bytes.find ("\r\n\r\n");
    return end == std::string::npos ? std::string() : bytes.substr (end + 4);
}

std::string replyWith (const std::string& status, const std::string& headers, const std::string& body)
{
    return "HTTP/1.1 " + status + "\r\nConnection: close\r\n" + headers
           + "Content-Length: " + std::to_string (body.size()) + "\r\n\r\n" + body;
}

std::string okReply (const std::string& body, const std::string& contentType)
{
    return replyWith ("200 OK", "Content-Type: " + contentType + "\r\n", body);
}

//==============================================================================
/** Waits a little for a connection or for bytes. */
static bool isReadable (std::intptr_t socket)
{
    fd_set set;
    FD_ZERO (&set);
    FD_SET ((nativeSocket) socket, &set);
    timeval wait{ 0, 10000 };
    return select ((int) socket + 1, &set, nullptr, nullptr, &wait) > 0;
}

/** Appends what has come; false when the client has hung up. */
static bool receive (std::intptr_t socket, std::string& bytes)
{
    char piece[65536];
    const auto count = recv ((nativeSocket) socket, piece, sizeof (piece), 0);

    if (count <= 0)
        return false;

    bytes.append (piece, (size_t) count);
    return true;
}

static bool isComplete (const recordedRequest& request)
{
    return request.bytes.find ("\r\n\r\n") != std::string::npos
           && request.body().size() >= (size_t) std::atoi (request.header ("Content-Length").c_str());
}

scriptedServer::scriptedServer()
{
#if JUCE_WINDOWS
    WSADATA version;
    REQUIRE (WSAStartup (MAKEWORD (2, 2), &version) == 0);
#else
    setenv ("no_proxy", "127.0.0.1", 1); // libcurl takes the proxy from the environment
#endif

    sockaddr_in local{};
    local.sin_family = AF_INET;
    local.sin_addr.s_addr = htonl (INADDR_LOOPBACK);
    socketLength length = sizeof (local);
    auto* localAddress = reinterpret_cast<sockaddr*> (&local);

    const auto socket = ::socket (AF_INET, SOCK_STREAM, 0);
    REQUIRE (bind (socket, localAddress, length) == 0);
    REQUIRE (listen (socket, 16) == 0);
    REQUIRE (getsockname (socket, localAddress, &length) == 0);

    listener = (socketHandle) socket;
    address = "http://127.0.0.1:" + juce::String (ntohs (local.sin_port));
    servers.push_back (this);
    thread = std::thread ([this] { run(); });
}

scriptedServer::~scriptedServer()
{
    {
        const std::lock_guard<std::mutex> guard (lock);
        stopping = true;

        if (client != -1)
            shutdown ((nativeSocket) client, bothWays); // no longer waits for the client to send or to read
    }

    changed.notify_all();
    thread.join();
    closesocket ((nativeSocket) listener);
    servers.erase (std::find (servers.begin(), servers.end(), this));

    if (! replies.empty())
        FAIL_CHECK (replies.size() << " replies were not asked for");

    if (withoutReply > 0)
        FAIL_CHECK (withoutReply << " requests had no reply, the last one " << received.back().line());
}

scriptedServer& scriptedServer::reply (const std::string& bytes)
{
    {
        const std::lock_guard<std::mutex> guard (lock);
        replies.emplace_back();
    }

    return send (bytes);
}

scriptedServer& scriptedServer::add (step next)
{
    const std::lock_guard<std::mutex> guard (lock);
    replies.back().steps.push_back (std::move (next));
    return *this;
}

scriptedServer& scriptedServer::send (const std::string& bytes)
{
    return add ({ bytes });
}

scriptedServer& scriptedServer::pause (int milliseconds)
{
    return add ({ {}, milliseconds });
}

scriptedServer& scriptedServer::stall()
{
    return add ({ {}, 0, true });
}

scriptedServer& scriptedServer::reset()
{
    const std::lock_guard<std::mutex> guard (lock);
    replies.back().resets = true;
    return *this;
}

std::vector<recordedRequest> scriptedServer::requests() const
{
    const std::lock_guard<std::mutex> guard (lock);
    return received;
}

//==============================================================================
void scriptedServer::run()
{
    for (;;)
    {
        const auto ready = isReadable (listener);
        std::unique_lock<std::mutex> guard (lock);

        if (stopping)
            return;

        if (ready)
        {
            client = (socketHandle) accept ((nativeSocket) listener, nullptr, nullptr);
            guard.unlock();
            serve();
        }
    }
}

void scriptedServer::serve()
{
    recordedRequest request;

    while (! isComplete (request) && receive (client, request.bytes))
    {}

    script todo;

    {
        const std::lock_guard<std::mutex> guard (lock);
        received.push_back (request);

        if (replies.empty())
        {
            ++withoutReply;
        }
        else
        {
            todo = std::move (replies.front());
            replies.pop_front();
        }
    }

    for (auto& next : todo.steps)
        play (next);

    const std::lock_guard<std::mutex> guard (lock);

    if (todo.resets)
    {
        const linger atOnce{ 1, 0 };
        setsockopt ((nativeSocket) client, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*> (&atOnce),
                    sizeof (atOnce));
    }

    closesocket ((nativeSocket) std::exchange (client, -1));
}

void scriptedServer::play (const step& now)
{
    for (size_t sent = 0; sent < now.bytes.size();)
    {
        const auto piece = juce::jmin (now.bytes.size() - sent, (size_t) 65536);
        const auto count =
            ::send ((nativeSocket) client, now.bytes.data() + sent, (socketSize) piece, noSignal);

        if (count <= 0)
            return; // the client has hung up

        sent += (size_t) count;
    }

    std::unique_lock<std::mutex> guard (lock);
    changed.wait_for (guard, std::chrono::milliseconds (now.pauseMs), [this] { return stopping; });

    for (auto hungUp = false; now.stalls && ! hungUp && ! stopping;)
    {
        guard.unlock();
        std::string ignored;
        hungUp = isReadable (client) && ! receive (client, ignored);
        guard.lock();
    }
}
