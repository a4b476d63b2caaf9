#include "tests/support/tlsServer.h"

#if JUCE_LINUX
    #include <atomic>
    #include <catch2/catch.hpp>
    #include <httplib.h>
    #include <openssl/pem.h>
    #include <openssl/x509v3.h>
    #include <thread>

using keyHandle = std::unique_ptr<EVP_PKEY, decltype (&EVP_PKEY_free)>;
using certificateHandle = std::unique_ptr<X509, decltype (&X509_free)>;

static void signCertificate (X509* certificate, EVP_PKEY* key)
{
    X509_set_version (certificate, X509_VERSION_3);
    X509_gmtime_adj (X509_getm_notBefore (certificate), -3600);
    X509_gmtime_adj (X509_getm_notAfter (certificate), 3600);
    X509_set_pubkey (certificate, key);

    auto* name = X509_get_subject_name (certificate);
    X509_NAME_add_entry_by_txt (name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*> ("test"), -1,
                                -1, 0);
    X509_set_issuer_name (certificate, name);

    auto* address = X509V3_EXT_conf_nid (nullptr, nullptr, NID_subject_alt_name, "IP:127.0.0.1");
    X509_add_ext (certificate, address, -1);
    X509_EXTENSION_free (address);
    REQUIRE (X509_sign (certificate, key, EVP_sha256()) > 0);
}

struct tlsServer::server
{
    explicit server (const juce::String& redirectsTo)
    {
        signCertificate (certificate.get(), key.get());
        http = std::make_unique<httplib::SSLServer> (certificate.get(), key.get());

        http->Post (".*", [this] (const httplib::Request&, httplib::Response& response) {
            ++requests;
            response.set_content ("<r/>", "text/xml");
        });
        http->Get (".*", [this, redirectsTo] (const httplib::Request&, httplib::Response& response) {
            ++requests;
            response.set_redirect (redirectsTo.toStdString());
        });

        port = http->bind_to_any_port ("127.0.0.1");
        REQUIRE (port > 0);
        thread = std::thread ([this] { http->listen_after_bind(); });

        while (! http->is_running())
            std::this_thread::yield();
    }

    ~server()
    {
        http->stop();
        thread.join();
    }

    keyHandle key{ EVP_EC_gen ("P-256"), EVP_PKEY_free };
    certificateHandle certificate{ X509_new(), X509_free };
    std::unique_ptr<httplib::SSLServer> http;
    std::atomic<int> requests{ 0 };
    int port = 0;
    std::thread thread;
};

tlsServer::tlsServer (const juce::String& redirectsTo)
    : running (std::make_unique<server> (redirectsTo))
{}

tlsServer::~tlsServer() = default;

juce::String tlsServer::origin() const
{
    return "https://127.0.0.1:" + juce::String (running->port);
}

std::string tlsServer::certificate() const
{
    const std::unique_ptr<BIO, decltype (&BIO_free)> text (BIO_new (BIO_s_mem()), BIO_free);
    PEM_write_bio_X509 (text.get(), running->certificate.get());
    char* bytes = nullptr;
    const auto size = BIO_get_mem_data (text.get(), &bytes);
    return { bytes, (size_t) size };
}

int tlsServer::requestCount() const
{
    return running->requests;
}
#endif
