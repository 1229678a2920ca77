#pragma once

// The questions by which a phone tells who it is (3GPP TS 27.007, clause 5; AT+GMM: ITU-T V.250).

#include "codecs/ATLine.h"

namespace tessarin {

// Every query gives the first line of the phone's answer, untrimmed, or empty text when the command
// failed. With echo off the reply starts with CR LF, with echo on the command's echo stands before
// it, so that line is element 1 in both. A refused or unanswered query costs ten seconds.
class AT {
 public:
  // `line` must outlive this object.
  explicit AT(ATLine& line) : line_(line) {}

  Text GetManufacturer() { return Query(u"AT+CGMI"); }
  Text GetModelCode() { return Query(u"AT+CGMM"); }
  Text GetModelName() { return Query(u"AT+GMM"); }
  Text GetSerialNumber() { return Query(u"AT+CGSN"); }
  Text GetFirmware() { return Query(u"AT+CGMR"); }

  // `name` comes with its double quotes: "UTF-8" in quotes is seven characters.
  [[nodiscard]] bool SetCharacterSet(TextView name);

 private:
  Text Query(TextView command);

  ATLine& line_;
};

}  // namespace tessarin
