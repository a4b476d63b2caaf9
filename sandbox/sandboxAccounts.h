#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>

/** The accounts and sessions of a sandbox store, in memory only. Safe from several threads. */
class sandboxAccounts
{
public:
    /** Makes an account. Returns false when the address is taken, or when either text is empty. */
    bool create (const std::string& address, const std::string& password);

    /** Opens a session: its token, or nothing when the account or its password is wrong. A new session ends the
        account's earlier one. */
    std::optional<std::string> logOn (const std::string& address, const std::string& password);

    /** The address of the account that a session token belongs to, or nothing. */
    std::optional<std::string> ownerOf (const std::string& token) const;

private:
    mutable std::mutex lock;
    std::map<std::string, std::string> passwords; // by address
    std::map<std::string, std::string> sessions;  // address by token
};
