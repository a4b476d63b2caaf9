#include "sandbox/sandboxContent.h"
#include "sandbox/sandboxStore.h"
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>

static constexpr const char* help = R"(A store for trying and testing the client against, on this machine.

Usage: sandboxStore [options]
  --port N              listen on this port (any free one)
  --address A           listen on this address (127.0.0.1)
  --tls CERT KEY        serve HTTPS with this certificate and key, PEM files
  --account MAIL PASS   an account that exists from the start; may be repeated
  --log FILE            append a line for every request (no passwords, no tokens)
  --delay MS            wait before every reply
  --bytes-per-second N  send items this slowly, so that progress can be watched

  --install FOLDER --skin PICTURE
                        prepare a product installation below FOLDER and exit
  --export FOLDER       write every item on offer below FOLDER and exit
  --help                this text

Prints its address once it listens, and ends on SIGTERM or Ctrl-C.
)";

/** The words of the command line, taken one after the other. */
class words
{
public:
    words (int argc, char* argv[])
        : remaining (argv + 1, argv + argc)
    {}

    bool areLeft() const { return ! remaining.empty(); }

    /** The next word; says what is missing and ends the program when there is none. */
    std::string next (const std::string& meaning)
    {
        if (remaining.empty())
        {
            std::cerr << meaning << " is missing; see --help\n";
            std::exit (2);
        }

        auto word = remaining.front();
        remaining.erase (remaining.begin());
        return word;
    }

    int number (const std::string& meaning)
    {
        const auto word = next (meaning);
        char* end = nullptr;
        const auto value = std::strtol (word.c_str(), &end, 10);

        if (word.empty() || *end != 0 || value < 0 || value > 1'000'000'000)
        {
            std::cerr << meaning << " is a number, not \"" << word << "\"\n";
            std::exit (2);
        }

        return int (value);
    }

    juce::File file (const std::string& meaning)
    {
        return juce::File::getCurrentWorkingDirectory().getChildFile (
            juce::String::fromUTF8 (next (meaning).c_str()));
    }

private:
    std::vector<std::string> remaining;
};

/** Reports a message of the preparing functions and gives the exit status. */
static int finish (const juce::String& message)
{
    if (message.isNotEmpty())
        std::cerr << message << "\n";

    return message.isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE;
}

/** Serves until the process is told to end. */
static int serve (sandboxStore& store)
{
    // Blocked before the first thread starts, so that the signal waits here for its one taker.
    sigset_t ending;
    sigemptyset (&ending);
    sigaddset (&ending, SIGINT);
    sigaddset (&ending, SIGTERM);
    pthread_sigmask (SIG_BLOCK, &ending, nullptr);

    if (! store.open())
    {
        std::cerr << "The port is taken, or the certificate cannot be used.\n";
        return EXIT_FAILURE;
    }

    std::thread server ([&store] { store.serve(); });
    std::cout << store.origin() << std::endl;

    int signal = 0;
    sigwait (&ending, &signal);
    store.stop();
    server.join();
    return EXIT_SUCCESS;
}

int main (int argc, char* argv[])
{
    sandboxStore::settings settings;
    std::vector<std::pair<std::string, std::string>> accounts;
    std::ofstream log;
    juce::File installation, exported, skin;
    words line (argc, argv);

    while (line.areLeft())
    {
        const auto option = line.next ("an option");

        if (option == "--help")
            return std::cout << help, EXIT_SUCCESS;
        else if (option == "--port")
            settings.port = line.number ("the port");
        else if (option == "--address")
            settings.address = line.next ("the address");
        else if (option == "--delay")
            settings.delayMs = line.number ("the delay");
        else if (option == "--bytes-per-second")
            settings.bytesPerSecond = size_t (line.number ("the speed"));
        else if (option == "--log")
            log.open (line.next ("the log file"), std::ios::app);
        else if (option == "--install")
            installation = line.file ("the installation folder");
        else if (option == "--skin")
            skin = line.file ("the skin picture");
        else if (option == "--export")
            exported = line.file ("the folder");
        else if (option == "--tls")
        {
            settings.certificate = line.next ("the certificate");
            settings.key = line.next ("the key");
        }
        else if (option == "--account")
        {
            auto address = line.next ("the address of the account");
            accounts.emplace_back (std::move (address), line.next ("its password"));
        }
        else
        {
            std::cerr << "There is no option " << option << "; see --help\n";
            return 2;
        }
    }

    if (installation != juce::File())
        return finish (installSandbox (installation, skin));

    if (exported != juce::File())
        return finish (exportSandboxItems (exported));

    sandboxStore store (settings, makeSandboxItems(),
                        [&log] (const std::string& request) { log << request << std::endl; });

    for (const auto& [address, password] : accounts)
        store.accounts.create (address, password);

    return serve (store);
}
