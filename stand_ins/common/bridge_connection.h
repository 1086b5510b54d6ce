#pragma once

#include <optional>
#include <string>

namespace kestrelmoor::stand_in {

/// The way to the bridge: one TCP connection per exchange, so that a bridge may come and go.
class BridgeConnection {
  public:
    /// `address` is "127.0.0.1:1234".
    explicit BridgeConnection(const std::string& address);
    ~BridgeConnection();
    BridgeConnection(const BridgeConnection&) = delete;
    BridgeConnection& operator=(const BridgeConnection&) = delete;

    /// Sends one line (given without its end) and waits for the answer's line; no value where the bridge
    /// can't be reached or breaks off.
    std::optional<std::string> Exchange(const std::string& line) const;

  private:
    std::string mHost;
    unsigned short mPort = 0;
};

} // namespace kestrelmoor::stand_in
