#include "phonesim/IrmcSync.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "phonesim/Utf7.h"
#include "phonesim/Vcalendar.h"
#include "phonesim/Vcard.h"

namespace phonesim {
namespace {

using namespace obex;

enum Parameter : std::uint8_t { kLuid = 0x01, kChangeCounter = 0x02 };

/// What stands in the Application Parameters of a delete: a header of the same kind again, and in
/// it the tag of a hard delete, 12, without a value. This phone takes it in no other form.
constexpr std::array<std::uint8_t, 5> kHardDelete = {0x4C, 0x00, 0x05, 0x12, 0x00};

struct Kind {
  std::string folder;
  std::string suffix;
  Book Books::*book;
  std::size_t Irmc::*maximum;
  bool Irmc::*quoteAll;
  std::string (*write)(const Book::Entry&, bool);
  Fields (*read)(const std::string&);
};

const std::array<Kind, 2>& Kinds() {
  static const std::array<Kind, 2> kinds = {
      {{"telecom/pb", ".vcf", &Books::contacts, &Irmc::contactMaximum, &Irmc::quoteAllInContacts,
        WriteVcard, ReadVcard},
       {"telecom/cal", ".vcs", &Books::events, &Irmc::eventMaximum, &Irmc::quoteAllInEvents,
        WriteVcalendar, ReadVcalendar}}};
  return kinds;
}

/// An object of the tree: its kind, and what its name says behind the kind's folder, such as
/// "/luid/cc.log".
struct Target {
  const Kind* kind;
  std::string rest;
};

Target FindTarget(const std::string& name) {
  for (const Kind& kind : Kinds()) {
    if (name.starts_with(kind.folder)) return {&kind, name.substr(kind.folder.size())};
  }
  throw ObexFault(kNotFound);
}

/// What stands between "/luid/" and `suffix`; nothing when the name has another form.
std::optional<std::string> LuidPart(const std::string& rest, const std::string& suffix) {
  constexpr std::string_view kFolder = "/luid/";
  const bool fits = rest.size() >= kFolder.size() + suffix.size() && rest.starts_with(kFolder) &&
                    rest.ends_with(suffix);
  if (!fits) return std::nullopt;
  return rest.substr(kFolder.size(), rest.size() - kFolder.size() - suffix.size());
}

std::string InfoLog(const Book& book, std::size_t maximum) {
  return "Total-Records:" + std::to_string(book.Entries().size()) +
         "\r\nMaximum-Records:" + std::to_string(maximum) +
         "\r\nIEL:8\r\nHD:YES\r\nSAT:CC\r\nDID:0C01\r\n";
}

/// All changes behind `since`, or "*" when the phone does not remember so far back.
std::string ChangesSince(const Book& book, std::uint32_t since) {
  const auto& changes = book.Changes();
  if (since > book.ChangeCounter()) return "*\r\n";
  if (since == book.ChangeCounter()) return {};
  if (changes.empty() || changes.front().counter > since + 1) return "*\r\n";
  std::string lines;
  for (const Book::Change& change : changes) {
    if (change.counter <= since) continue;
    lines += std::string(change.removed ? "H" : "M") + ":" + std::to_string(change.counter) +
             "::" + change.luid + "\r\n";
  }
  return lines;
}

std::string ChangeLog(const Book& book, std::size_t maximum, const std::string& digits) {
  std::uint32_t since = 0;
  const char* end = digits.data() + digits.size();
  const auto [at, error] = std::from_chars(digits.data(), end, since);
  if (digits.empty() || error != std::errc() || at != end) throw ObexFault(kNotFound);
  return InfoLog(book, maximum) + ChangesSince(book, since);
}

std::string WholeObject(const Book& book, const Kind& kind, const Irmc& irmc) {
  std::string text;
  for (const Book::Entry& entry : book.Entries()) text += kind.write(entry, irmc.*kind.quoteAll);
  return irmc.plainPlus ? text : Utf7FromAscii(text);
}

std::string OneEntry(const Book& book, const Kind& kind, const Irmc& irmc,
                     const std::string& luid) {
  const Fields* fields = book.Find(luid);
  if (fields == nullptr) throw ObexFault(kNotFound);
  const std::string text = kind.write({luid, *fields}, irmc.*kind.quoteAll);
  return irmc.plainPlus ? text : Utf7FromAscii(text);
}

bool IsLog(const std::string& rest) { return rest.ends_with(".log"); }

std::string ReadObject(const Target& target, const Book& book, const Irmc& irmc) {
  const std::size_t maximum = irmc.*target.kind->maximum;
  if (target.rest == target.kind->suffix) return WholeObject(book, *target.kind, irmc);
  if (target.rest == "/info.log") return InfoLog(book, maximum);
  if (target.rest == "/luid/cc.log") return std::to_string(book.ChangeCounter()) + "\r\n";
  if (const auto digits = LuidPart(target.rest, ".log")) return ChangeLog(book, maximum, *digits);
  if (const auto luid = LuidPart(target.rest, target.kind->suffix)) {
    return OneEntry(book, *target.kind, irmc, *luid);
  }
  throw ObexFault(kNotFound);
}

/// The identifier that a put or delete names, empty for a new entry.
std::string WrittenLuid(const Target& target) {
  const auto luid = LuidPart(target.rest, target.kind->suffix);
  if (!luid) throw ObexFault(kForbidden, "put of an object that cannot be written");
  return *luid;
}

/// Header of the last reply: 4C, length (2), 01 0C identifier (12), 02 length, counter in digits.
Bytes Receipt(const std::string& luid, const Book& book) {
  Bytes value;
  const auto add = [&value](std::uint8_t tag, const std::string& text) {
    value.push_back(tag);
    value.push_back(static_cast<std::uint8_t>(text.size()));
    Append(value, text);
  };
  add(kLuid, luid);
  add(kChangeCounter, std::to_string(book.ChangeCounter()));
  Bytes header;
  AppendObexHeader(header, kAppParameters, value);
  return header;
}

}  // namespace

ObexServiceRow IrmcSync::Row(Memory& memory, Settings& settings) {
  return {kTarget, ToBytes("IRMC-SYNC"), false,
          [&memory, &settings] { return std::make_unique<IrmcSync>(memory, settings); }};
}

IrmcSync::IrmcSync(Memory& memory, Settings& settings) : memory_(memory), settings_(settings) {
  memory_.With([](Books& books) { books.Reread(); });
}

void IrmcSync::SetPath(std::uint8_t /*flags*/, const ObexHeaders& /*headers*/) {
  throw ObexFault(kBadRequest, "SetPath in synchronisation");
}

/// Request: 83, length (2), 01, length (2), name, 0000.
ObexObject IrmcSync::Get(const ObexHeaders& headers) {
  RequireObexHeaders(headers, {kName});
  const Target target = FindTarget(ObexName(headers.front()));
  const Irmc irmc = settings_.With([](const Behaviour& b) { return b.irmc; });
  ObexObject object;
  object.data = ToBytes(memory_.With(
      [&](const Books& books) { return ReadObject(target, books.*target.kind->book, irmc); }));
  const bool log = IsLog(target.rest);
  if (log ? irmc.lengthBeforeLogs : irmc.lengthBeforeObjects) {
    AppendObexNumber(object.headers, kLength, static_cast<std::uint32_t>(object.data.size()));
  }
  object.emptyEnd = log && target.rest != "/luid/cc.log" && irmc.logsInTwoPackets;
  return object;
}

/// First packet: 02 or 82, length (2), 01, length (2), name, 0000, C3, size (4), Body.
ObexUpload IrmcSync::BeginPut(const ObexHeaders& headers) {
  RequireObexHeaders(headers, {kName, kLength});
  const std::string name = ObexName(headers[0]);
  const Target target = FindTarget(name);
  const std::string luid = WrittenLuid(target);
  const std::size_t maximum =
      settings_.With([&](const Behaviour& b) { return b.irmc.*target.kind->maximum; });
  memory_.With([&](const Books& books) {
    const Book& book = books.*target.kind->book;
    if (luid.empty() && book.Entries().size() >= maximum) throw ObexFault(kDatabaseFull);
    if (!luid.empty() && book.Find(luid) == nullptr) throw ObexFault(kNotFound);
  });
  return {name, Read32(headers[1].value), {}};
}

Bytes IrmcSync::FinishPut(const ObexUpload& upload) {
  const Target target = FindTarget(upload.name);
  std::string luid = WrittenLuid(target);
  const std::size_t limit = settings_.With([](const Behaviour& b) { return b.irmc.entryLimit; });
  if (upload.data.size() > limit) throw ObexFault(kEntityTooLarge);
  Fields fields = target.kind->read({upload.data.begin(), upload.data.end()});
  return memory_.With([&](Books& books) {
    Book& book = books.*target.kind->book;
    if (luid.empty()) {
      luid = book.Add(std::move(fields));
    } else if (!book.Replace(luid, std::move(fields))) {
      throw ObexFault(kNotFound);
    }
    return Receipt(luid, book);
  });
}

/// Request: 82, length (2), 01, length (2), name, 0000, 4C 0008 4C00051200.
Bytes IrmcSync::Delete(const ObexHeaders& headers) {
  RequireObexHeaders(headers, {kName, kAppParameters});
  if (!std::ranges::equal(headers[1].value, kHardDelete)) {
    throw ObexFault(kBadRequest, "Application Parameters are not those of a delete");
  }
  const Target target = FindTarget(ObexName(headers[0]));
  const std::string luid = WrittenLuid(target);
  return memory_.With([&](Books& books) {
    Book& book = books.*target.kind->book;
    if (!book.Remove(luid)) throw ObexFault(kNotFound);
    return Receipt(luid, book);
  });
}

}  // namespace phonesim
