#include "sandbox/sandboxContent.h"
#include "sandbox/sandboxStore.h"
#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>

/** What the command line asks for. */
struct wishes
{
    sandboxStore::settings store;
    std::vector<std::pair<std::string, std::string>> accounts;
    std::string log, installation, skin, exported;
    int smallItems = -1; // instead of the usual ones; below 0: the usual ones
};

static void describe (CLI::App& line, wishes& wanted)
{
    const CLI::Range upToABillion (0, 1'000'000'000);
    const auto takeCertificate = [&wanted] (const std::vector<std::string>& files) {
        wanted.store.certificate = files[0];
        wanted.store.key = files[1];
        return true;
    };

    line.add_option ("--port", wanted.store.port, "Listen on this port; any free one without it")
        ->check (CLI::Range (0, 65535));
    line.add_option ("--address", wanted.store.address, "Listen on this address")->capture_default_str();
    line.add_option ("--tls", takeCertificate, "Serve HTTPS with this certificate and key, PEM files")
        ->expected (2)
        ->type_name ("CERTIFICATE KEY");
    line.add_option ("--account", wanted.accounts, "An account that exists from the start; may be repeated")
        ->type_name ("MAIL PASSWORD");
    line.add_option ("--log", wanted.log, "Append a line for every request: no passwords, no tokens")
        ->type_name ("FILE");
    line.add_option ("--delay", wanted.store.delayMs, "Wait so many milliseconds before every reply")
        ->check (upToABillion);
    line.add_option ("--bytes-per-second", wanted.store.bytesPerSecond,
                     "Send items this slowly, so that progress can be watched")
        ->check (upToABillion);

    line.add_option ("--items", wanted.smallItems,
                     "Offer so many small items, or none, instead of the usual ones")
        ->check (CLI::Range (0, 100'000));

    auto* install = line.add_option ("--install", wanted.installation,
                                     "Prepare a product installation below this folder and exit");
    install->type_name ("FOLDER");
    line.add_option ("--skin", wanted.skin, "The background picture of that installation")
        ->type_name ("PICTURE")
        ->needs (install);
    line.add_option ("--export", wanted.exported, "Write every item on offer below this folder and exit")
        ->type_name ("FOLDER")
        ->excludes (install);
}

static juce::File fileAt (const std::string& path)
{
    return juce::File::getCurrentWorkingDirectory().getChildFile (juce::String::fromUTF8 (path.c_str()));
}

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

// NOLINTNEXTLINE(bugprone-exception-escape): a wrong description of the options is a fault of this file
int main (int argc, char* argv[])
{
    CLI::App line ("A store for trying and testing the client against, on this machine.\n"
                   "Prints its address once it listens, and ends on SIGTERM or Ctrl-C.");
    wishes wanted;
    describe (line, wanted);
    CLI11_PARSE (line, argc, argv);

    if (! wanted.installation.empty())
        return finish (installSandbox (fileAt (wanted.installation), fileAt (wanted.skin)));

    if (! wanted.exported.empty())
        return finish (exportSandboxItems (fileAt (wanted.exported)));

    std::ofstream log;

    if (! wanted.log.empty())
        log.open (wanted.log, std::ios::app);

    auto items = wanted.smallItems < 0 ? makeSandboxItems() : makeSmallSandboxItems (wanted.smallItems);
    sandboxStore store (wanted.store, std::move (items),
                        [&log] (const std::string& request) { log << request << std::endl; });

    for (const auto& [address, password] : wanted.accounts)
        store.accounts.create (address, password);

    return serve (store);
}
