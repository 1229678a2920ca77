// One contact as it stands between the phone's cards and the contact lists: fields of fixed width.
#pragma once

#include "codecs/FixedText.h"

namespace tessarin {

struct PhoneBookRecord {
  FixedText<62> Name;
  FixedText<15> Title;
  FixedText<40> TelHome;
  FixedText<40> TelWork;
  FixedText<40> TelCell;
  FixedText<40> TelFax;
  FixedText<40> TelOther;
  FixedText<50> EmailPref;  // only written to the phone; what is read from it goes to Email1
  FixedText<30> Org;
  FixedText<12> Luid;
  FixedText<25> HomeStreet;
  FixedText<25> HomeCity;
  FixedText<25> HomeState;
  FixedText<25> HomeZip;
  FixedText<25> HomeCountry;
  FixedText<50> Note;
  FixedText<8> Reserved;
  FixedText<120> Url;
  FixedText<50> Email1;
  FixedText<50> Email2;
  FixedText<50> Email3;
  FixedText<25> WorkStreet;
  FixedText<25> WorkCity;
  FixedText<25> WorkState;
  FixedText<25> WorkZip;
  FixedText<25> WorkCountry;

  friend bool operator==(const PhoneBookRecord&, const PhoneBookRecord&) = default;
};

}  // namespace tessarin
