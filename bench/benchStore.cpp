// A store that costs next to nothing. Whoever logs on as "COUNTxSIZE" owns so many items of so many bytes.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <httplib.h>
#include <iostream>
#include <memory>

static void answer (httplib::Response& response, const std::string& xml)
{
    response.set_content ("<reply>" + xml + "</reply>", "text/xml");
}

static void logOn (const httplib::Request& request, httplib::Response& response)
{
    answer (response, "<sessiontoken>" + request.get_param_value ("emailaddr") + "</sessiontoken>");
}

/** @param origin  the address under which the client knows the store, which may be a relay's */
static void list (const httplib::Request& request, httplib::Response& response, const std::string& origin)
{
    const auto wish = request.get_header_value ("Authorization");
    const auto size = wish.substr (wish.find ('x') + 1);
    std::string items;

    for (int i = 0; i < std::atoi (wish.c_str()); ++i)
    {
        const auto number = std::to_string (i);
        items.append ("<downloadable url=\"").append (origin).append ("/items/").append (size);
        items.append ("/").append (number).append ("\" target=\"item").append (number);
        items.append ("\" name=\"Item ").append (number).append ("\" buildnumber=\"1\"/>");
    }

    answer (response, items);
}

static void sendItem (const httplib::Request& request, httplib::Response& response)
{
    static const std::string piece (size_t (1024) * 1024, 'i');
    response.set_content_provider (size_t (std::strtoull (request.matches[1].str().c_str(), nullptr, 10)),
                                   "application/octet-stream",
                                   [] (size_t, size_t left, httplib::DataSink& sink) {
                                       return sink.write (piece.data(), std::min (left, piece.size()));
                                   });
}

// NOLINTNEXTLINE(bugprone-exception-escape): a wrong description of the options is a fault of this file
int main (int argc, char* argv[])
{
    std::string certificate, key;

    CLI::App options ("Prints its port, and when it is told to end, how many TLS handshakes it had in full.");
    auto* keyOption = options.add_option ("--key", key, "Of the certificate, a PEM file");
    options.add_option ("--certificate", certificate, "Serve HTTPS with it, a PEM file")->needs (keyOption);
    CLI11_PARSE (options, argc, argv);

    sigset_t ending; // blocked before the first thread starts, so that it waits here for its one taker
    sigemptyset (&ending);
    sigaddset (&ending, SIGTERM);
    pthread_sigmask (SIG_BLOCK, &ending, nullptr);

    std::unique_ptr<httplib::Server> server;
    SSL_CTX* tls = nullptr;

    if (certificate.empty())
    {
        server = std::make_unique<httplib::Server>();
    }
    else
    {
        auto secure = std::make_unique<httplib::SSLServer> (certificate.c_str(), key.c_str());
        tls = secure->ssl_context();
        server = std::move (secure);
    }

    server->set_tcp_nodelay (true);
    server->set_keep_alive_max_count (1'000'000);
    server->set_keep_alive_timeout (60);
    server->Post ("/api/auth.cfm", logOn);
    server->Post ("/api/bin.cfm", [tls] (const httplib::Request& request, httplib::Response& response) {
        list (request, response,
              (tls != nullptr ? "https://" : "http://") + request.get_header_value ("Host"));
    });
    server->Get (R"(/items/(\d+)/\d+)", sendItem);

    const auto port = server->is_valid() ? server->bind_to_any_port ("127.0.0.1") : -1;

    if (port < 0)
        return EXIT_FAILURE;

    std::thread serving ([&] { server->listen_after_bind(); });
    std::cout << port << std::endl;

    int signal = 0;
    sigwait (&ending, &signal);

    // Of the connections that go on nobody waits for the end.
    std::cout << (tls != nullptr ? SSL_CTX_sess_accept_good (tls) - SSL_CTX_sess_hits (tls) : 0) << std::endl;
    std::_Exit (EXIT_SUCCESS);
}
