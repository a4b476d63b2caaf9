#pragma once

#include "sandbox/sandboxAccounts.h"
#include "sandbox/sandboxContent.h"
#include <atomic>
#include <functional>
#include <httplib.h>
#include <memory>

/** The store's web service in small: accounts, sessions, the catalogue and the items' downloads, answered as the
    real service answers. */
class sandboxStore
{
public:
    struct settings
    {
        std::string address = "127.0.0.1"; /**< Interface to listen on. */
        int port = 0;                      /**< 0: any free one. */
        std::string certificate, key;      /**< PEM files; both given: HTTPS. */
        int delayMs = 0;                   /**< Waited before every reply, after it is logged. */
        size_t bytesPerSecond = 0;         /**< Of an item's body; 0: as fast as it goes. */
    };

    /** A line for every request that was answered; never with a password or a token in it. Called from the
        server's threads, one at a time. */
    using logger = std::function<void (const std::string&)>;

    sandboxStore (settings wanted, std::vector<sandboxItem> offered, logger requestLogger);
    ~sandboxStore();

    /** Opens the port. Returns false when it is taken or the certificate cannot be used. */
    bool open();

    /** Scheme, host and port, once open. */
    std::string origin() const;

    /** Serves until stop is called, from another thread. */
    void serve();
    void stop();

    sandboxAccounts accounts;

private:
    void answer (const httplib::Request& request, httplib::Response& response, const std::string& what,
                 const std::string& xml);
    void logOn (const httplib::Request& request, httplib::Response& response);
    void createAccount (const httplib::Request& request, httplib::Response& response);
    void listItems (const httplib::Request& request, httplib::Response& response);
    void sendItem (const httplib::Request& request, httplib::Response& response);
    void log (const httplib::Request& request, const std::string& what);

    const settings options;
    const std::vector<sandboxItem> items;
    const logger logLine;
    std::mutex logLock;
    std::vector<std::atomic<bool>> wasCutShort; // by item: its first download has broken off
    std::unique_ptr<httplib::Server> server;
    int boundPort = 0;
};
