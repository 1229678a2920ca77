#pragma once

// A session that is connected, with a line that answers the message commands from two stores. The
// stores hold the PDU of each location, behind an empty service centre address.

#include <map>

#include "codecs/modHexStr.h"
#include "messages/MessageJobs.h"
#include "messages/SmsPage.h"
#include "tests/support/ScriptedLine.h"
#include "tests/support/SessionBench.h"

namespace tessarin {

struct StoredPdu {
  int stat;
  std::string pdu;
};

class MessageBench : public SessionBench {
 protected:
  MessageBench() {
    line.answer = [this](const Text& sent) { return Answer(sent); };
    session.AddPage(page);
    StartAndConnect();
  }

  // A DELIVER from 1234 with a text of one character.
  static std::string Deliver(char text) {
    return "000404812143000040605131508100"
           "01" +
           modHexStr::BytesToHex({static_cast<std::uint8_t>(text)});
  }
  // One part of three with reference 7.
  static std::string PartOfThree(int part, char text) {
    const auto packed = static_cast<std::uint8_t>(text << 1);
    return "004404812143000040605131508100"
           "08"
           "0500030703" +
           modHexStr::BytesToHex({static_cast<std::uint8_t>(part), packed});
  }

  // A click, and the tick that does what it asked for.
  void Click(const std::string& action) {
    host.RunEvent([&] { session.Toolbar1.clicked(action); });
    Tick(session.Timer1);
  }
  void OpenPage() {
    host.RunEvent([this] { session.Toolbar2.clicked("SMS"); });
    Tick(session.Timer1);
  }
  void OpenFolder(const Text& key) {
    host.RunEvent([&] { session.tvwPhoneSMS.SelectByUser(key); });
  }
  void Select(const std::vector<int>& rows) {
    host.RunEvent([&] { session.lvwPhoneSMS.SelectByUser(rows, rows.back()); });
  }
  std::string Keys() const {
    std::string keys;
    for (const ListRow& row : session.lvwPhoneSMS.rows()) keys += row.key + " ";
    return keys;
  }
  bool CanDo(std::string_view action) const { return session.Toolbar1.Find(action)->enabled; }

  std::map<Text, std::map<int, StoredPdu>> stores{{u"\"SM\"", {}}, {u"\"ME\"", {}}};
  Text refuses;  // the command that is refused
  ScriptedLine line;
  ATMessages messages{line};
  frmSplashTransmission busyWindow{session};
  frmComposeSMS composer{session, messages};
  SmsPage page{
      session,  port,
      messages, busyWindow,
      composer, [](const Text& number) {
                 return number == u"1234" ? Text(u"Bob") : Text(); }};

 private:
  Text Answer(const Text& sent) {
    constexpr char16_t kOk[] = u"\r\nOK\r\n";
    constexpr char16_t kRefused[] = u"\r\n+CMS ERROR: 321\r\n";
    if (!refuses.empty() && sent.starts_with(refuses)) return kRefused;
    if (sent.starts_with(u"AT+CMGS=")) return u"\r\n> ";
    if (sent.starts_with(u"AT+CPMS=")) {
      store_ = sent.substr(8);
      return u"\r\n+CPMS: " + ToText(static_cast<long long>(stores[store_].size())) +
             u",20,9,9,9,9\r\n\r\nOK\r\n";
    }
    auto& store = stores[store_];
    const int location = sent.starts_with(u"raw:") ? 0 : std::stoi(ToUtf8(sent.substr(8)));
    if (sent.starts_with(u"AT+CMGD=")) store.erase(location);
    if (!sent.starts_with(u"AT+CMGR=")) return kOk;
    const auto message = store.find(location);
    if (message == store.end()) return kRefused;
    return u"\r\n+CMGR: " + ToText(message->second.stat) + u",,9\r\n" +
           FromLatin1(message->second.pdu) + u"\r\n\r\nOK\r\n";
  }

  Text store_;
};

}  // namespace tessarin
