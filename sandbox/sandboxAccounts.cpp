#include "sandbox/sandboxAccounts.h"
#include <random>

/** 32 hexadecimal digits that nobody can guess. */
static std::string newToken()
{
    static constexpr char digits[] = "0123456789abcdef";
    std::random_device source;
    std::uniform_int_distribution<size_t> digit (0, 15);
    std::string token;

    while (token.size() < 32)
        token += digits[digit (source)];

    return token;
}

bool sandboxAccounts::create (const std::string& address, const std::string& password)
{
    const std::lock_guard<std::mutex> guard (lock);
    return ! address.empty() && ! password.empty() && passwords.emplace (address, password).second;
}

std::optional<std::string> sandboxAccounts::logOn (const std::string& address, const std::string& password)
{
    const std::lock_guard<std::mutex> guard (lock);
    const auto account = passwords.find (address);

    if (account == passwords.end() || account->second != password)
        return {};

    for (auto session = sessions.begin(); session != sessions.end();)
        session = session->second == address ? sessions.erase (session) : std::next (session);

    return sessions.emplace (newToken(), address).first->first;
}

std::optional<std::string> sandboxAccounts::ownerOf (const std::string& token) const
{
    const std::lock_guard<std::mutex> guard (lock);
    const auto session = sessions.find (token);

    if (session == sessions.end())
        return {};

    return session->second;
}
