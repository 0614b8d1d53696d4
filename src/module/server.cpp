#include "module/server.h"

#include <optional>

namespace tv {

namespace {

std::optional<Server> server;

} // namespace

Server& ThisServer()
{
    return *server;
}

void StartServer(HMODULE module)
{
    server.emplace(module);
}

} // namespace tv
