#include "sandbox/sandboxStore.h"
#include <chrono>
#include <juce_core/juce_core.h>
#include <thread>

/** A body is sent in pieces of this size, so that a slow line is slow evenly and a server that stops does so at
    once. */
static constexpr size_t pieceSize = 16384;

/** "name='value'" for an XML attribute, or nothing for an empty value. */
static std::string attribute (const char* name, const std::string& value)
{
    if (value.empty())
        return {};

    const auto escaped = juce::String::fromUTF8 (value.c_str())
                             .replace ("&", "&amp;")
                             .replace ("<", "&lt;")
                             .replace ("\"", "&quot;");
    return " " + std::string (name) + "=\"" + escaped.toStdString() + "\"";
}

static std::string element (const char* name, const std::string& text)
{
    return "<" + std::string (name) + ">" + text + "</" + name + ">";
}

sandboxStore::sandboxStore (settings wanted, std::vector<sandboxItem> offered, logger requestLogger)
    : options (std::move (wanted)),
      items (std::move (offered)),
      logLine (std::move (requestLogger)),
      wasCutShort (items.size())
{
    if (options.certificate.empty())
        server = std::make_unique<httplib::Server>();
    else
        server = std::make_unique<httplib::SSLServer> (options.certificate.c_str(), options.key.c_str());

    const auto post = [this] (const char* path,
                              void (sandboxStore::*handler) (const httplib::Request&, httplib::Response&)) {
        server->Post (path, [this, handler] (const httplib::Request& request, httplib::Response& response) {
            (this->*handler) (request, response);
        });
    };

    post ("/api/auth.cfm", &sandboxStore::logOn);
    post ("/api/register.cfm", &sandboxStore::createAccount);
    post ("/api/bin.cfm", &sandboxStore::listItems);
    server->Get (R"(/items/(\d+))", [this] (const httplib::Request& request, httplib::Response& response) {
        sendItem (request, response);
    });

    server->set_post_routing_handler ([this] (const httplib::Request&, httplib::Response&) {
        std::this_thread::sleep_for (std::chrono::milliseconds (options.delayMs));
    });
}

sandboxStore::~sandboxStore()
{
    stop();
}

bool sandboxStore::open()
{
    if (! server->is_valid())
        return false;

    boundPort = options.port;

    if (boundPort == 0)
        boundPort = server->bind_to_any_port (options.address);
    else if (! server->bind_to_port (options.address, boundPort))
        return false;

    return boundPort > 0;
}

std::string sandboxStore::origin() const
{
    return (options.certificate.empty() ? "http://" : "https://") + options.address + ":"
           + std::to_string (boundPort);
}

void sandboxStore::serve()
{
    server->listen_after_bind();
}

void sandboxStore::stop()
{
    server->stop();
}

void sandboxStore::log (const httplib::Request& request, const std::string& what)
{
    const std::lock_guard<std::mutex> guard (logLock);
    logLine (request.method + " " + request.path + " " + what);
}

void sandboxStore::answer (const httplib::Request& request, httplib::Response& response,
                           const std::string& what, const std::string& xml)
{
    log (request, what);
    response.set_content ("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + xml + "\n",
                          "text/xml; charset=UTF-8");
}

void sandboxStore::logOn (const httplib::Request& request, httplib::Response& response)
{
    const auto address = request.get_param_value ("emailaddr");
    const auto token = accounts.logOn (address, request.get_param_value ("password"));

    if (token.has_value())
        answer (request, response, "logged on " + address,
                element ("reply", element ("sessiontoken", *token) + element ("message", "Welcome back.")));
    else
        answer (request, response, "refused " + address,
                element ("reply", element ("sessiontoken", "")
                                      + element ("message", "Wrong email address or password.")));
}

void sandboxStore::createAccount (const httplib::Request& request, httplib::Response& response)
{
    const auto address = request.get_param_value ("email");

    if (accounts.create (address, request.get_param_value ("password")))
        answer (
            request, response, "created " + address,
            element ("reply", element ("status", "success") + element ("message", "Your account is ready.")));
    else
        answer (request, response, "not created " + address,
                element ("reply", element ("status", "failure")
                                      + element ("message", "There is an account with this email address "
                                                            "already.")));
}

void sandboxStore::listItems (const httplib::Request& request, httplib::Response& response)
{
    // This one service takes its whole form escaped once more, separators included.
    httplib::Params fields;
    httplib::detail::parse_query_text (httplib::detail::decode_url (request.body, false), fields);

    const auto field = [&fields] (const char* name) {
        const auto found = fields.find (name);
        return found == fields.end() ? std::string() : found->second;
    };

    const auto owner = accounts.ownerOf (request.get_header_value ("Authorization"));

    if (! owner.has_value() || *owner != field ("enduser"))
        return answer (request, response, "refused a list",
                       "<reply error=\"Your session has ended. Please log on again.\"/>");

    if (field ("list") != "mediareview")
        return answer (request, response, "refused an unknown action",
                       "<reply status=\"failure\" message=\"Unknown action.\"/>");

    std::string list;

    for (size_t i = 0; i < items.size(); ++i)
        list += "  <downloadable" + attribute ("url", origin() + "/items/" + std::to_string (i))
                + attribute ("target", items[i].target) + attribute ("name", items[i].name)
                + attribute ("buildnumber", items[i].buildnumber)
                + attribute ("builddaterequirement", items[i].builddaterequirement) + "/>\n";

    answer (request, response, "listed " + std::to_string (items.size()) + " items for " + *owner,
            "<reply status=\"success\">\n" + list + "</reply>");
}

void sandboxStore::sendItem (const httplib::Request& request, httplib::Response& response)
{
    const auto index = size_t (std::strtoul (request.matches[1].str().c_str(), nullptr, 10));

    if (index >= items.size())
    {
        log (request, "no such item");
        response.status = 404;
        return;
    }

    const auto& item = items[index];

    if (! accounts.ownerOf (request.get_header_value ("Authorization")).has_value())
    {
        log (request, "refused " + item.name);
        response.set_content ("<html><body><h1>Not licensed</h1><p>Please log on to download this item.</p>"
                              "</body></html>\n",
                              "text/html");
        return;
    }

    const auto cutShort = item.firstDownloadIsCutShort && ! wasCutShort[index].exchange (true);
    log (request, (cutShort ? "cut short " : "sent ") + item.name);

    response.set_content_provider (
        item.bytes.getSize(), "application/octet-stream",
        [this, &item, cutShort] (size_t offset, size_t length, httplib::DataSink& sink) {
            if (cutShort && offset >= item.bytes.getSize() / 2)
                return false;

            const auto piece = std::min (length, pieceSize);

            if (options.bytesPerSecond > 0)
                std::this_thread::sleep_for (
                    std::chrono::duration<double> (double (piece) / double (options.bytesPerSecond)));

            return sink.write (static_cast<const char*> (item.bytes.getData()) + offset, piece);
        });
}
