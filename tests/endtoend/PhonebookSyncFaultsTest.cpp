// The contacts' synchronisation when the phone, a file or the line fails: nothing is lost, nothing
// is doubled, and the program goes on.

#include "tests/endtoend/PhonebookSyncBench.h"

namespace tessarin {
namespace {

using phonesim::Books;

using PhonebookSyncFaultsTest = PhonebookSyncBench;

TEST_F(PhonebookSyncFaultsTest, WhatThePhoneRefusesIsTriedAgainByTheNextRun) {
  for (const char* name : {"ann", "bob", "cyd"}) {
    WriteItem(std::string(name) + ".vcf", "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:" + std::string(name) +
                                              "\r\nFN:" + name + "\r\nEND:VCARD\r\n");
  }
  ASSERT_TRUE(OpensPhonebook());
  Behave([](phonesim::Behaviour& b) { b.irmc.contactMaximum = 3; });
  Between(kPhone, kOutlook, [this](frmPhonebookSync& sync) {
    EXPECT_EQ(Run(sync, "cmdSync"),
              Summary(kPhone, "1", "0", "4", "2") + " / " + Summary(kOutlook, "4", "0", "0"));
    EXPECT_EQ(sync.lvwLocation[0].Count(), 5);
    Behave([](phonesim::Behaviour& b) { b.irmc.contactMaximum = 10; });
    EXPECT_EQ(Run(sync, "cmdSync"),
              Summary(kPhone, "2", "0", "5") + " / " + Summary(kOutlook, "0", "0", "5"));
    // A change that the phone refuses stays in the list only until the phone is read.
    Edit("bob.vcf", "FN:bob", "FN:bobby");
    Behave([](phonesim::Behaviour& b) { b.refusedOperations[phonesim::ObexOperation::Put] = {}; });
    EXPECT_EQ(Run(sync, "cmdSync"),
              Summary(kPhone, "0", "0", "6", "1") + " / " + Summary(kOutlook, "0", "0", "7"));
  });
  EXPECT_EQ(Cards().find("bobby"), std::string::npos);
  Behave([](phonesim::Behaviour& b) { b.refusedOperations.clear(); });
  EXPECT_EQ(host.boxes.size(), 3u) << "the three questions";
}

// A file that another program has damaged meanwhile is not written over: the run ends there.
TEST_F(PhonebookSyncFaultsTest, AnItemThatCannotBeSavedEndsTheRunAndNothingElse) {
  ASSERT_TRUE(OpensPhonebook());
  Between(kPhone, kOutlook, [this](frmPhonebookSync& sync) {
    Run(sync, "cmdSync");
    const std::string ben = Holding("FN:Ben Dale\r\n"), anna = Holding("FN:Anna\r\n");
    WriteItem(ben, "BEGIN:VCARD\r\n");
    Edit(anna, "FN:Anna", "FN:Hanna");
    host.boxes.clear();
    AnswerOverwrite("cmdYesToAll");
    Select(sync, 0, {0, 2, 3});
    EXPECT_EQ(Run(sync, "cmdToRight"), " / " + Summary(kOutlook, "0", "2", "0", "1"));
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_NE(host.boxes[0].text.find(FromUtf8(ben)), Text::npos) << ToUtf8(host.boxes[0].text);
    EXPECT_EQ(folder.Read(items_ + ben), "BEGIN:VCARD\r\n");
    EXPECT_EQ(Holding("FN:Anna\r\n"), anna) << "the rows before it stay done";
    EXPECT_TRUE(sync.cmdSync.enabled && sync.cmdCancel.enabled && sync.chkLocation[0].enabled);
    EXPECT_EQ(Run(sync, "cmdSync").find(Summary(kPhone, "0", "0", "4")), 0u)
        << "the window is of use again";
  });
  EXPECT_FALSE(host.IsEnding());
  EXPECT_TRUE(host.RunUntil([this] { return PanelText(panel::kBattery) == u"85%"; }));
}

// A cable pulled between two contacts: what follows fails at once, and is missed by nobody once the
// phone was read again.
TEST_F(PhonebookSyncFaultsTest, ALineLostBetweenTwoContactsLosesNone) {
  for (const char* name : {"ann", "bob", "cyd"}) {
    WriteItem(std::string(name) + ".vcf", "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:" + std::string(name) +
                                              "\r\nFN:" + name + "\r\nEND:VCARD\r\n");
  }
  AtThePhone([](Books& books) { books.sim.Fill({}); });
  ASSERT_TRUE(OpensPhonebook());
  const Items before = ReadItems();
  Between(kOutlook, kPhone, [this](frmPhonebookSync& sync) {
    bool isOut = false;
    const auto watch = sync.prgRows.changed.Connect([&] {
      if (sync.prgRows.value != 2 || std::exchange(isOut, true)) return;
      phone.HangUp();
    });
    Select(sync, 0, {0, 1, 2});
    EXPECT_EQ(Run(sync, "cmdToRight"), " / " + Summary(kPhone, "1", "0", "0", "2"));
    ASSERT_TRUE(host.RunUntil([this] { return session.statusPhase == kNoPhone; }));
    EXPECT_FALSE(sync.cmdSync.enabled);
    EXPECT_TRUE(sync.cmdCancel.enabled);
    phone.Restart();
    ASSERT_TRUE(Connects());
    EXPECT_TRUE(sync.cmdSync.enabled) << "both memories were read again";
    EXPECT_EQ(Run(sync, "cmdSync"),
              Summary(kOutlook, "2", "0", "3") + " / " + Summary(kPhone, "2", "0", "1"));
  });
  EXPECT_EQ(Cards(), "芳 王|+86138|\nBen Dale||2\nann||\nbob||\ncyd||\n");
  for (const auto& [name, bytes] : before) EXPECT_EQ(ReadItems().at(name), bytes);
}

// A phone that falls silent in the middle of an exchange is waited for until the program is ended.
// The next one finds every contact once.
TEST_F(PhonebookSyncFaultsTest, ALineLostWhileTheReplyIsAwaitedLosesNone) {
  WriteItem("carol.vcf", kCarol);
  WriteItem("dora.vcf", "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:dora\r\nFN:Dora\r\nEND:VCARD\r\n");
  ASSERT_TRUE(OpensPhonebook());
  const Items before = ReadItems();
  InWindow<frmPhonebookSync>(program.phonebookSync(), [this](frmPhonebookSync& sync) {
    Choose(sync.cboLocation[0], kOutlook);
    Choose(sync.cboLocation[1], kPhone);
    Select(sync, 0, {0, 1});
    bool isOut = false;
    const auto watch = sync.prgRows.changed.Connect([&, told = false]() mutable {
      if (sync.prgRows.value != 2 || std::exchange(told, true)) return;
      Behave([](phonesim::Behaviour& b) { b.dropAfterRequests = 3; });
      isOut = true;
    });
    int waits = 0;
    host.whileWaiting = [&] {
      if (isOut && !phone.LineUp() && ++waits == 20) host.RequestEnd();
    };
    host.RunEvent([&] { ScriptedHost::Press(sync, "cmdToRight"); });
    host.RunUntil([this] { return host.IsEnding(); });
  });
  ASSERT_TRUE(host.RunUntilQuit());
  EXPECT_EQ(ReadItems(), before);
  const auto saved = Saved("ContactMobile.dat");
  EXPECT_EQ(saved.size(), 5u) << "no half contact";
  EXPECT_EQ(saved.at(u"Carol Diaz").front(), u"carol");
  EXPECT_EQ(saved.count(u"Dora"), 0u);
  EXPECT_EQ(Cards(), "芳 王|+86138|\nBen Dale||2\nCarol Diaz|+34600|\n");
}

}  // namespace
}  // namespace tessarin
