#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <exception>
#include <fstream>
#include <iostream>

#include "phonesim/Options.h"
#include "phonesim/PhoneLine.h"
#include "phonesim/SampleContent.h"

namespace {

using namespace phonesim;

enum Status { kWell = 0, kFailed = 1, kUsage = 2, kBreaches = 3 };

/// A descriptor that becomes readable when the program is asked to end.
int EndSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGTERM);
  sigaddset(&signals, SIGINT);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  return signalfd(-1, &signals, SFD_CLOEXEC);
}

void PrintTraffic(bool fromPhone, ByteView bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) {
    text += byte >= 0x20 && byte < 0x7F ? static_cast<char>(byte) : '.';
  }
  std::cerr << (fromPhone ? "< " : "> ") << ToHex(bytes) << "  |" << text << "|\n";
}

void PrintSent(const SentMessage& message) {
  std::cerr << "message to " << message.recipient << " in " << message.parts
            << (message.coding == SmsCoding::Ucs2 ? " part(s) of UCS2: " : " part(s) of GSM text: ")
            << message.text << "\n";
}

Status Run(const Options& options) {
  Reports reports;
  std::ofstream file;
  if (options.reports) file.open(*options.reports);
  reports.SetListener([&file](const std::string& line) {
    std::cerr << "protocol: " << line << "\n";
    if (file.is_open()) file << line << std::endl;
  });
  const int end = EndSignals();
  if (FillWithSamples(options.content)) std::cerr << "filled " << options.content.string() << "\n";
  Settings settings(options.behaviour);
  Phone phone(options.content, settings, reports);
  phone.GetMemory().With([](Books& books) { books.sent.SetListener(PrintSent); });
  PhoneLine line(phone, settings, options.link);
  if (options.verbose) line.SetListener(PrintTraffic);
  std::cerr << "phone at " << options.link.string() << "\n";
  if (line.Run(end) == PhoneLine::End::Dropped) std::cerr << "hung up\n";
  close(end);
  return reports.Count() == 0 ? kWell : kBreaches;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const Options options = ParseOptions({argv + 1, argv + argc});
    if (!options.help) return Run(options);
    std::cout << HelpText();
    return kWell;
  } catch (const UsageError& error) {
    std::cerr << error.what() << "; --help tells more\n";
    return kUsage;
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return kFailed;
  }
}
