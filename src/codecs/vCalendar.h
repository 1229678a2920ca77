// The phone's calendar objects: vCalendar 1.0 as this make of phone writes and takes it.
//
// A calendar is one text in which each entry stands in a wrapper of its own, lines ended by CR LF:
//
//   BEGIN:VCALENDAR          END:VEVENT
//   VERSION:1.0              END:VCALENDAR
//   BEGIN:VEVENT             BEGIN:VCALENDAR
//   DTSTART:20040615T...     VERSION:1.0
//   ...                      BEGIN:VTODO ...
//
// Reading goes by the position of lines and by exact property names, as the phone writes them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "codecs/Faults.h"
#include "codecs/FixedText.h"
#include "codecs/modDate.h"

namespace tessarin {

// One entry between the phone and the list. The times are date text (modDate.h).
struct CalendarRecord {
  FixedText<20> StartTime;  // DTSTART
  FixedText<20> EndTime;    // DTEND
  FixedText<100> Summary;
  FixedText<50> Location;
  FixedText<20> AlarmTime;  // AALARM; empty when the entry has none
  FixedText<20> Category;   // CATEGORIES as the phone gives it
  FixedText<12> Luid;       // X-IRMC-LUID
  std::int32_t Spare = 0;   // no object sets it
  Text EntryType;           // "EVENT"; empty for a task
};

namespace vcard {

// A time of an entry does not read.
class EntryTimeError : public ConversionError {
 public:
  explicit EntryTimeError(std::size_t entry) : entry_(entry) {}
  // Its place among the records, from 0. Its words were read.
  std::size_t entry() const noexcept { return entry_; }

 private:
  std::size_t entry_;
};

// Reads the first `count` entries into the elements of `records`, which must be as many at least.
// An entry without a start, end, category or LUID of its own keeps what its element held; "EVENT"
// is stored for BEGIN:VEVENT only. Parameters on DTSTART, DTEND and AALARM make the line another
// property than those read.
// Throws EntryTimeError for a time that does not read, and BoundsError when the text or `records`
// ends too early; the entries before that one stay filled.
void DecodeVCalendars(TextView text, std::int16_t count, std::vector<CalendarRecord>& records,
                      const Clock& clock);

// The text of a quoted-printable value. As long as the line behind `index` holds neither ";" nor
// ":" it goes on there (the soft break, the value's last unit, is dropped), and `index` moves to
// it. Bytes are UTF-8. Blanks where plain text and escapes meet get lost, and so do blanks around a
// "|" and the "|" itself. Throws BoundsError when the lines end.
Text DecodeCalendarText(Text value, const std::vector<Text>& lines, std::size_t& index);

// The entry as a whole object, 2-digit hexadecimal text, for the phone to take: always a VEVENT,
// and without LUID, which the phone assigns. In a summary or location of units up to U+00FF line
// breaks become "=0A", in the record's field as well, which cuts at its width.
// Throws ConversionError when a time does not read, an empty start or end included.
std::string EncodeVCalendar(CalendarRecord& record, const Clock& clock);

}  // namespace vcard
}  // namespace tessarin
