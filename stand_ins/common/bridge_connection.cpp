#include "stand_ins/common/bridge_connection.h"

#include <winsock2.h>

#include <cstdlib>

namespace kestrelmoor::stand_in {
namespace {

class Socket {
  public:
    Socket() : mSocket(::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP)) {}
    ~Socket() {
        if (mSocket != INVALID_SOCKET)
            closesocket(mSocket);
    }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;

    bool Connect(const std::string& host, unsigned short port) const {
        sockaddr_in place{};
        place.sin_family = AF_INET;
        place.sin_addr.s_addr = inet_addr(host.c_str());
        place.sin_port = htons(port);
        return connect(mSocket, reinterpret_cast<const sockaddr*>(&place), sizeof place) == 0;
    }

    bool Send(const std::string& bytes) const {
        std::size_t sent = 0;
        while (sent < bytes.size()) {
            const int step = send(mSocket, bytes.data() + sent, static_cast<int>(bytes.size() - sent), 0);
            if (step <= 0)
                return false;
            sent += static_cast<std::size_t>(step);
        }
        return true;
    }

    std::optional<std::string> ReceiveLine() const {
        std::string line;
        char piece[1024];
        while (line.find('\n') == std::string::npos) {
            const int step = recv(mSocket, piece, sizeof piece, 0);
            if (step <= 0)
                return std::nullopt;
            line.append(piece, static_cast<std::size_t>(step));
        }
        return line.substr(0, line.find('\n'));
    }

  private:
    SOCKET mSocket;
};

} // namespace

BridgeConnection::BridgeConnection(const std::string& address) {
    const std::size_t colon = address.find(':');
    mHost = address.substr(0, colon);
    if (colon != std::string::npos)
        mPort = static_cast<unsigned short>(std::strtoul(address.c_str() + colon + 1, nullptr, 10));
    WSADATA data;
    WSAStartup(MAKEWORD(2, 2), &data);
}

BridgeConnection::~BridgeConnection() {
    WSACleanup();
}

std::optional<std::string> BridgeConnection::Exchange(const std::string& line) const {
    const Socket link;
    if (!link.Connect(mHost, mPort) || !link.Send(line + '\n'))
        return std::nullopt;
    return link.ReceiveLine();
}

} // namespace kestrelmoor::stand_in
