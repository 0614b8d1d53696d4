// Server: what keeps the module loaded, its objects and the locks that clients hold.
#pragma once

#include "com/base.h"

#include <atomic>

namespace tv {

class Server
{
  public:
    explicit Server(HMODULE module) : handle(module) {}
    HMODULE Module() const { return handle; }

    void Hold() { ++holds; }
    void LetGo() { --holds; }
    bool CanUnload() const { return holds == 0; }

  private:
    HMODULE handle;
    std::atomic<int32_t> holds{0};
};

/// The module's one server; it exists from the module's load on.
Server& ThisServer();
void StartServer(HMODULE module);

/// Keeps the module loaded for its own life; a member of every object that a client may hold.
class ServerHold
{
  public:
    ServerHold() { ThisServer().Hold(); }
    ServerHold(const ServerHold&) = delete;
    ServerHold& operator=(const ServerHold&) = delete;
    ~ServerHold() { ThisServer().LetGo(); }
};

} // namespace tv
