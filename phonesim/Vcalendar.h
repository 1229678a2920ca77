#pragma once

#include <string>

#include "phonesim/Book.h"

/// Calendar entries as vCalendar 1.0, each in a wrapper of its own. The fields of an entry, all
/// UTF-8:
///
///     kind (EVENT or TASK), start, end, alarm, due (20040229T080000, with a Z when in UTC),
///     summary, location, category, status
namespace phonesim {

/// The phone's own way to write an entry. "all" quotes every byte of a value that needs quoting.
std::string WriteVcalendar(const Book::Entry& entry, bool quoteAll);

/// An entry as the client writes it. A category that this phone does not have becomes
/// MISCELLANEOUS. Throws `ObexFault`, a breach, for what is no vCalendar 1.0 of one event with the
/// properties above.
Fields ReadVcalendar(const std::string& object);

/// True for a time stamp as above, of a day that there is.
bool IsStamp(const std::string& text);

}  // namespace phonesim
