#include "bench/runningProgram.h"
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <juce_core/juce_core.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

runningProgram::runningProgram (const std::string& name, const std::vector<std::string>& arguments)
{
    const auto here = juce::File::getSpecialLocation (juce::File::currentExecutableFile);
    auto path = here.getSiblingFile (name).getFullPathName().toStdString();
    auto texts = arguments;
    std::vector<char*> words{ path.data() };

    for (auto& text : texts)
        words.push_back (text.data());

    words.push_back (nullptr);

    int ends[2];

    if (pipe2 (ends, O_CLOEXEC) != 0)
        return;

    output = ends[0];
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init (&actions);
    posix_spawn_file_actions_adddup2 (&actions, ends[1], STDOUT_FILENO);

    if (posix_spawn (&id, path.c_str(), &actions, nullptr, words.data(), environ) != 0)
        id = -1;

    posix_spawn_file_actions_destroy (&actions);
    close (ends[1]);
}

runningProgram::~runningProgram()
{
    end();
    close (output);
}

bool runningProgram::isRunning()
{
    if (id > 0 && waitpid (id, nullptr, WNOHANG) != 0)
        id = -1;

    return id > 0;
}

std::string runningProgram::readLine() const
{
    std::string line;

    for (char byte; read (output, &byte, 1) == 1 && byte != '\n';)
        line += byte;

    return line;
}

void runningProgram::end()
{
    if (id <= 0)
        return;

    kill (id, SIGTERM);
    waitpid (id, nullptr, 0);
    id = -1;
}

double runningProgram::processorTime() const
{
    double total = 0;

    for (auto& thread : juce::File ("/proc/" + juce::String (id) + "/task")
                            .findChildFiles (juce::File::findDirectories, false))
    {
        double nanoseconds = 0;
        std::ifstream (thread.getChildFile ("schedstat").getFullPathName().toStdString()) >> nanoseconds;
        total += nanoseconds / 1e9;
    }

    return total;
}
