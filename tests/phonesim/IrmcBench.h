#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/phonesim/Bench.h"

namespace phonesim {

/// A test that synchronises with the phone.
class IrmcBench : public testing::Test, protected Bench {
 protected:
  void ConnectSync();

  std::string Get(const std::string& name) { return Send("83", Name(name)); }

  /// The bytes of an object as they come, in packets whose Body stands right behind their head.
  std::string Download(const std::string& name);

  std::string Put(const std::string& name, const std::string& object);
  std::string Delete(const std::string& name) {
    return Send("82", Name(name) + "4C 0008 4C00051200");
  }

  /// A request whose length is reckoned.
  std::string Send(const std::string& opcode, const std::string& headers) {
    return Talk(opcode + Digits16(Wire(headers).size() + 3) + headers);
  }
  static std::string Name(const std::string& name) {
    return "01" + Digits16(name.size() * 2 + 5) + NameDigits(name);
  }
  static std::string TextOf(ByteView bytes) { return {bytes.begin(), bytes.end()}; }
  void ExpectNoReports() { EXPECT_EQ(reports.All(), std::vector<std::string>()); }
};

}  // namespace phonesim
