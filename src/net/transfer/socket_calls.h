#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

// The calls of Windows Sockets that the transports are written with, on the sockets of the system: the one place
// that knows these. IPv4 addresses are in network order, ports are not. No call raises a signal or is ended by one.
namespace morvex::sockets {

using SOCKET = int;
inline constexpr SOCKET INVALID_SOCKET = -1;
inline constexpr std::uint32_t INADDR_LOCAL = 0x0100007F;  // 127.0.0.1 in network order

enum class Receive { kTake, kPeek };

// The first IPv4 address of a name, 0 if there is none. Any thread.
std::uint32_t gethostbyname(const std::string& name);

// A TCP socket whose waits end after the time-out, and which sends at once what it is given.
SOCKET socket(std::chrono::milliseconds timeout);
// Waits for the time-out at most, and no longer than until `stop` is set.
bool connect(SOCKET socket, std::uint32_t address, std::uint16_t port, std::chrono::milliseconds timeout,
             const std::atomic<bool>& stop);
bool bind(SOCKET socket, std::uint32_t address, std::uint16_t port);
bool listen(SOCKET socket, int backlog);
SOCKET accept(SOCKET socket, std::chrono::milliseconds timeout);

// Bytes received or sent; 0 at the end of the stream, negative on an error and when the time is over.
std::ptrdiff_t recv(SOCKET socket, void* buffer, std::size_t length, Receive how);
std::ptrdiff_t send(SOCKET socket, const void* buffer, std::size_t length);
// FIONREAD: how many bytes wait to be read.
bool ioctlsocket(SOCKET socket, unsigned long& waiting);

// Ends every wait on the socket, in whichever thread, and all later ones. The handle stays.
void shutdown(SOCKET socket);
void closesocket(SOCKET socket);

// Why the calling thread's last call failed, and the same in words.
int WSAGetLastError();
std::string ErrorText(int error);

}  // namespace morvex::sockets
