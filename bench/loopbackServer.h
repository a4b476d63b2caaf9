#pragma once

#include <arpa/inet.h>
#include <cstdlib>
#include <netinet/in.h>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

/** An HTTP server on the loopback interface that costs next to nothing: whatever is asked for as "/N" is a reply of
    N bytes. One connection after the other. */
class loopbackServer
{
public:
    loopbackServer()
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl (INADDR_LOOPBACK);
        socklen_t length = sizeof (address);
        auto* anyAddress = reinterpret_cast<sockaddr*> (&address);

        if (bind (listener, anyAddress, length) != 0 || listen (listener, 16) != 0
            || getsockname (listener, anyAddress, &length) != 0)
            std::abort();

        port = ntohs (address.sin_port);
        thread = std::thread ([this] { serve(); });
    }

    ~loopbackServer()
    {
        shutdown (listener, SHUT_RDWR);
        thread.join();
        close (listener);
    }

    std::string origin() const { return "http://127.0.0.1:" + std::to_string (port); }

private:
    void serve() const
    {
        for (int client; (client = accept (listener, nullptr, nullptr)) >= 0; close (client))
            answer (client);
    }

    static void answer (int client)
    {
        static const std::vector<char> piece (1024 * 1024, 'i');
        std::string request;
        char bytes[4096];

        while (request.find ("\r\n\r\n") == std::string::npos)
        {
            const auto got = recv (client, bytes, sizeof (bytes), 0);

            if (got <= 0)
                return;

            request.append (bytes, size_t (got));
        }

        auto left = size_t (std::atoll (request.c_str() + request.find ('/') + 1));
        const auto head = "HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Type: application/octet-stream\r\n"
                          "Content-Length: "
                          + std::to_string (left) + "\r\n\r\n";
        send (client, head.data(), head.size(), MSG_NOSIGNAL);

        while (left > 0)
        {
            const auto sent = send (client, piece.data(), std::min (left, piece.size()), MSG_NOSIGNAL);

            if (sent <= 0)
                return;

            left -= size_t (sent);
        }
    }

    const int listener = socket (AF_INET, SOCK_STREAM, 0);
    int port = 0;
    std::thread thread;
};
