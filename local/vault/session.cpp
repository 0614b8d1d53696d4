#include "vault/text.h"
#include "vault/vault_records.h"

#include "com/base.h"

#include <cstdlib>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace tv::local {

namespace {

std::string Environment(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::string MachineName()
{
#ifdef _WIN32
    return Environment("COMPUTERNAME");
#else
    char name[256] = {};
    return ::gethostname(name, sizeof name - 1) == 0 ? name : "";
#endif
}

std::string UserName()
{
#ifdef _WIN32
    return Environment("USERNAME");
#else
    const std::string user = Environment("USER");
    return user.empty() ? Environment("LOGNAME") : user;
#endif
}

} // namespace

Session CurrentSession()
{
    Session session{UserName(), MachineName()};
    if (session.user.empty()) {
        session.user = "user";
    }
    if (session.machine.empty()) {
        session.machine = "machine";
    }
    return session;
}

} // namespace tv::local
