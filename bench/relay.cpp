// Stands between a client and a server on this machine and makes the line between them long and narrow.

#include <CLI/CLI.hpp>
#include <arpa/inet.h>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <deque>
#include <iostream>
#include <list>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

using timer = std::chrono::steady_clock;
using moment = timer::time_point;
using seconds = std::chrono::duration<double>;

static volatile std::sig_atomic_t mustEnd = 0;

static moment after (moment start, seconds time)
{
    return start + std::chrono::duration_cast<timer::duration> (time);
}

namespace
{
/** One direction of the line, which all connections share. What enters it waits for its turn on the narrow part,
    and then travels. */
struct line
{
    seconds delay;
    double bytesPerSecond; // 0: as wide as the machine is
    moment busyUntil{};

    /** Puts so many bytes on the line and tells when the last of them is at its far end. */
    moment send (size_t bytes, moment time)
    {
        busyUntil = std::max (busyUntil, time);

        if (bytesPerSecond > 0)
            busyUntil = after (busyUntil, seconds (double (bytes) / bytesPerSecond));

        return after (busyUntil, delay);
    }

    /** When it takes more: what waits in front of it is never more than some milliseconds. */
    moment takesMoreAt() const { return after (busyUntil, seconds (-0.002)); }

    /** Bytes that enter it at once, so that others get their turn: those of about a millisecond. */
    size_t pieceSize() const
    {
        static constexpr size_t largest = size_t (256) * 1024, smallest = 1500;
        return bytesPerSecond > 0 ? std::clamp (size_t (bytesPerSecond / 1000), smallest, largest) : largest;
    }
};

/** What one side of a connection says to the other. */
class flow
{
public:
    flow (int sourceSocket, int targetSocket, line& way, moment openFrom)
        : from (sourceSocket),
          to (targetSocket),
          direction (way),
          opening (openFrom)
    {}

    bool isDone() const { return sourceEnded && underway.empty(); }

    /** What to wait for: a socket, or else a time. */
    void prepare (moment time, std::vector<pollfd>& sockets, moment& wakeUp) const
    {
        if (! underway.empty())
        {
            if (underway.front().due <= time)
                sockets.push_back ({ to, POLLOUT, 0 });
            else
                wakeUp = std::min (wakeUp, underway.front().due);
        }

        const auto readable = std::max (opening, direction.takesMoreAt());

        if (sourceEnded || held >= window)
            return;

        if (readable <= time)
            sockets.push_back ({ from, POLLIN, 0 });
        else
            wakeUp = std::min (wakeUp, readable);
    }

    /** Takes and delivers what is there and due. False when a side is gone. */
    bool work (moment time)
    {
        if (! sourceEnded && held < window && std::max (opening, direction.takesMoreAt()) <= time
            && ! take (time))
            return false;

        while (! underway.empty() && underway.front().due <= time)
        {
            auto& next = underway.front();

            if (next.bytes.empty())
            {
                shutdown (to, SHUT_WR);
            }
            else
            {
                const auto count = send (to, next.bytes.data() + next.sent, next.bytes.size() - next.sent,
                                         MSG_NOSIGNAL | MSG_DONTWAIT);

                if (count < 0)
                    return errno == EAGAIN || errno == EINTR;

                held -= size_t (count);
                next.sent += size_t (count);

                if (next.sent < next.bytes.size())
                    return true;
            }

            underway.pop_front();
        }

        return true;
    }

private:
    static constexpr size_t window = size_t (16) * 1024 * 1024; // more than is ever on the longest line

    struct piece
    {
        moment due;
        std::vector<char> bytes; // none: the end
        size_t sent = 0;
    };

    bool take (moment time)
    {
        std::vector<char> bytes (direction.pieceSize());
        const auto count = recv (from, bytes.data(), bytes.size(), MSG_DONTWAIT);

        if (count < 0)
            return errno == EAGAIN || errno == EINTR;

        bytes.resize (size_t (count));
        sourceEnded = count == 0;
        held += bytes.size();
        const auto due = direction.send (bytes.size(), time);
        underway.push_back ({ due, std::move (bytes) });
        return true;
    }

    const int from, to;
    line& direction;
    const moment opening;
    std::deque<piece> underway;
    size_t held = 0; // bytes of those
    bool sourceEnded = false;
};

/** A client's connection and the one to the server that goes with it. */
class connection
{
public:
    connection (int clientSocket, int serverSocket, line& up, line& down)
        : client (clientSocket),
          server (serverSocket),
          // This machine connects at once. Over the line that takes a journey to the server and back.
          upwards (client, server, up, after (timer::now(), up.delay + down.delay)),
          downwards (server, client, down, {})
    {
        for (const auto socket : { client, server })
        {
            const int on = 1;
            setsockopt (socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof (on));
        }
    }

    ~connection()
    {
        close (client);
        close (server);
    }

    connection (const connection&) = delete;
    connection& operator= (const connection&) = delete;

    void prepare (moment time, std::vector<pollfd>& sockets, moment& wakeUp) const
    {
        upwards.prepare (time, sockets, wakeUp);
        downwards.prepare (time, sockets, wakeUp);
    }

    /** False when it is over. */
    bool work (moment time)
    {
        return upwards.work (time) && downwards.work (time) && ! (upwards.isDone() && downwards.isDone());
    }

private:
    const int client, server;
    flow upwards, downwards;
};
}

static sockaddr_in loopback (int port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl (INADDR_LOOPBACK);
    address.sin_port = htons (uint16_t (port));
    return address;
}

/** A socket that listens on any free port; negative when there is none. */
static int listenAnywhere (int& port)
{
    const auto listener = socket (AF_INET, SOCK_STREAM, 0);
    auto address = loopback (0);
    socklen_t length = sizeof (address);
    auto* anyAddress = reinterpret_cast<sockaddr*> (&address);

    if (bind (listener, anyAddress, length) != 0 || listen (listener, 64) != 0
        || getsockname (listener, anyAddress, &length) != 0)
        return -1;

    port = ntohs (address.sin_port);
    return listener;
}

/** Relays until the process is told to end; returns how many connections there were. */
static int serve (int listener, int serverPort, line up, line down)
{
    std::list<connection> open;
    int count = 0;

    while (mustEnd == 0)
    {
        const auto time = timer::now();
        auto wakeUp = time + std::chrono::seconds (1);
        std::vector<pollfd> sockets{ { listener, POLLIN, 0 } };

        for (auto& each : open)
            each.prepare (time, sockets, wakeUp);

        const auto wait = std::chrono::duration_cast<std::chrono::nanoseconds> (wakeUp - time).count();
        const timespec atMost{ wait / 1'000'000'000, wait % 1'000'000'000 };
        sigset_t none;
        sigemptyset (&none); // the signal to end comes here and nowhere else
        ppoll (sockets.data(), sockets.size(), &atMost, &none);

        if ((sockets[0].revents & POLLIN) != 0)
        {
            const auto client = accept (listener, nullptr, nullptr);
            const auto server = socket (AF_INET, SOCK_STREAM, 0);
            const auto address = loopback (serverPort);

            if (connect (server, reinterpret_cast<const sockaddr*> (&address), sizeof (address)) != 0)
            {
                close (client);
                close (server);
                continue;
            }

            open.emplace_back (client, server, up, down);
            ++count;
        }

        open.remove_if ([] (connection& each) { return ! each.work (timer::now()); });
    }

    return count;
}

// NOLINTNEXTLINE(bugprone-exception-escape): a wrong description of the options is a fault of this file
int main (int argc, char* argv[])
{
    int serverPort = 0;
    double delayMs = 0, megabits = 0;

    CLI::App options ("Relays connections to a server on this machine over a long, narrow line.\n"
                      "Prints its port, and when it is told to end, how many connections it had.");
    options.add_option ("server", serverPort, "Port of the server")->required();
    options.add_option ("--delay", delayMs, "Milliseconds in each direction, half of what a ping takes")
        ->check (CLI::Range (0.0, 10e3));
    options.add_option ("--rate", megabits, "Megabits a second in each direction; 0 for no limit")
        ->check (CLI::Range (0.0, 100e3));
    CLI11_PARSE (options, argc, argv);

    sigset_t ending;
    sigemptyset (&ending);
    sigaddset (&ending, SIGTERM);
    sigprocmask (SIG_BLOCK, &ending, nullptr);
    std::signal (SIGTERM, [] (int) { mustEnd = 1; });

    int port = 0;
    const auto listener = listenAnywhere (port);

    if (listener < 0)
        return EXIT_FAILURE;

    std::cout << port << std::endl;
    const line direction{ seconds (delayMs / 1000), megabits * 1e6 / 8 };
    std::cout << serve (listener, serverPort, direction, direction) << std::endl;
    return EXIT_SUCCESS;
}
