#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "controls/Property.h"

namespace tessarin {
namespace {

TEST(Signal, RunsItsSlotsInOrderForAsLongAsTheyAreConnected) {
  Signal<int> signal;
  std::string calls;
  signal.Always([&](int n) { calls += "a" + std::to_string(n); });
  std::optional second = signal.Connect([&](int n) { calls += "b" + std::to_string(n); });
  Connection moved;
  {
    Connection third = signal.Connect([&](int n) { calls += "c" + std::to_string(n); });
    const Connection fourth = signal.Connect([&](int n) { calls += "d" + std::to_string(n); });
    signal(1);
    moved = std::move(third);
  }
  signal(2);
  second.reset();
  signal(3);
  moved = Connection();
  signal(4);
  EXPECT_EQ(calls, "a1b1c1d1a2b2c2a3c3a4");
}

TEST(Signal, LetsASlotConnectAndDisconnectDuringTheCall) {
  Signal<> signal;
  std::string calls;
  Connection first, victim, late;
  first = signal.Connect([&] {
    calls += "1";
    first = Connection();  // itself, while it runs
    victim = Connection();
    late = signal.Connect([&] { calls += "3"; });
  });
  victim = signal.Connect([&] { calls += "2"; });
  signal();
  EXPECT_EQ(calls, "1") << "a slot connected during the call waits for the next";
  signal();
  EXPECT_EQ(calls, "13");
}

TEST(Signal, MayDieInOneOfItsSlotsAndBeforeItsConnections) {
  auto signal = std::make_unique<Signal<>>();
  std::string calls;
  const std::string text(100, 'x');  // on the heap: what a slot holds lives until it returns
  signal->Always([&calls, &signal, text] {
    signal.reset();
    calls += text.substr(99);
  });
  signal->Always([&calls] { calls += "never"; });
  const Connection outlives = signal->Connect([] {});
  (*signal)();
  EXPECT_EQ(calls, "x");
}

TEST(Property, TellsOfRealChangesOnceTheNewValueStands) {
  Signal<> changed;
  Property<std::string> a(changed, "one"), b(changed);
  std::string seen;
  changed.Always([&] { seen += a() + b() + ";"; });
  a = "one";
  EXPECT_EQ(seen, "");
  a = "two";
  b = a;
  b = a;
  a = "";
  EXPECT_EQ(seen, "two;twotwo;two;");
  EXPECT_EQ(b->size(), 3u);
}

}  // namespace
}  // namespace tessarin
