#pragma once

// The only module that touches the port: tests on a COM port, writing a command, reading a reply.
// AT traffic is lines of text that end in a result code (ITU-T V.250); OBEX traffic is binary and
// travels as hexadecimal text.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "codecs/ATLine.h"
#include "link/PortMap.h"
#include "link/linkport.h"

namespace tessarin {

class modComLib : public ATLine {
 public:
  // The port names of configured printers ("COM3:", "LPT1:").
  using PrinterPorts = std::function<std::vector<std::string>()>;

  // All must outlive the module. `printers` may be empty: no printer sits on a port.
  modComLib(linkport& port, const PortMap& map, PrinterPorts printers = nullptr);

  // Speed for the next OpenPhonePort; 0 is the port's own default.
  void SetBaudRate(std::int32_t baudRate) { baudRate_ = baudRate; }

  // True if the device exists, also when another program holds it.
  bool PortExists(int port) const;
  // `portName` is "COM3". True if the port opened and a phone answered AT+CGMM with OK. The port
  // stays open also when a device opened and nobody answered; the caller closes it.
  bool OpenPhonePort(const std::string& portName);
  void ClosePhonePort();
  // True if a configured printer's port is exactly that name.
  bool PortHasPrinter(const std::string& portName) const;

  bool SendATCommand(TextView command) override;
  bool SendATRaw(TextView text) override;
  bool SendATText(TextView command) override;
  Text ReadATResponse() override;
  bool IsReplyOwed() const override { return isReplyOwed_; }
  Text ReadATResponseWait() override;
  Text ReadLongResponse() override;

  // Sends the bytes of the hexadecimal text. True when all went out.
  [[nodiscard]] bool SendOBEXPacket(const std::string& hex);
  // Reads one whole OBEX packet into `hex`: as many bytes as the length at its bytes 1 and 2 says,
  // compared for equality. Waits without limit: never returns when the phone stays silent, or when
  // more bytes follow the packet in the same read.
  bool ReadOBEXResponse(std::string& hex);
  // Sends one packet and reads its reply. False, and nothing is sent, for a packet longer than the
  // 512 bytes that both sides keep to.
  bool ExchangeOBEX(const std::string& packet, std::string& reply);
  // Reads the reply to a Disconnect. In OBEX mode that is A0 00 03 and the phone's own CR LF "OK"
  // CR LF, handed out as text; in AT mode the phone's echo 81 00 03, handed out as hexadecimal
  // text. False at once when the first byte is neither. Waits without limit for both.
  bool ReadOBEXCloseResponse(Text& text);

 private:
  bool Write(const Bytes& bytes, std::size_t count);

  linkport& port_;
  const PortMap& map_;
  PrinterPorts printers_;
  std::int32_t baudRate_ = 0;
  bool isReplyOwed_ = false;
};

}  // namespace tessarin
