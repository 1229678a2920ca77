#pragma once

#include <vector>

#include "phonesim/Deck.h"

namespace phonesim {

/// A hundred and fifty calendar entries from the year before `year` to the one behind it, of every
/// category, some with alarms, some to-dos, texts of one line and of many. Among them are the first
/// and last day of a month that takes six weeks of a sheet that begins on Sunday, and a 29
/// February, of the last leap year if need be.
std::vector<Fields> MakeSampleCalendar(int year);

}  // namespace phonesim
