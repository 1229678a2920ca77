// Time stamps of the phone's cards and calendar entries, "yyyymmddTHHMMSSZ".
//
// Both directions move by whole hours and ignore summer time. A stamp that is read and written back
// is therefore the same stamp, though in summer it is an hour off the UTC that the phone shows, and
// a zone with a half hour is off by half an hour both ways.
#pragma once

#include "codecs/Text.h"
#include "codecs/modDate.h"

namespace tessarin::vcard {

// The stamp's date and time as date text (modDate.h). Positions are fixed: year 1-4, month 5-6, day
// 7-8, hour 10-11, minute 12-13, second 14-15. A stamp with a "Z" or "z" anywhere is in UTC and
// moves by the whole hours nearest to -bias / 60; one without is local already.
// Throws ConversionError when a part is no number or the time is beyond a day.
Text StampToLocalText(TextView stamp, const Clock& clock);

// The stamp of a date text that ReadSystemDate reads, moved by the whole hours nearest to bias
// / 60. Always ends in "Z". Throws ConversionError.
Text LocalTextToStamp(TextView text, const Clock& clock);

}  // namespace tessarin::vcard
