// Registering the notifier script with the simulated Photoshop: exactly the 32 events, in order, with the
// script's path and an empty class; the notifiers of others are gone; and what unregistering leaves.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "event_test_support.h"
#include "ostrel/OstrelCore.h"

namespace ostrel {
namespace {

using test::EventFileTest;

constexpr wchar_t kScript[] = L"C:\\Program Files\\Lessons\\通知.jsx";

// The events as Photoshop's documentation and the public event lists name them, written out again here rather
// than taken from the library's table.
// clang-format off: the events in pairs, as they are registered
const std::vector<std::wstring> kExpectedEvents = {
    L"select", L"slct",      L"set", L"setd",          L"subtract", L"Sbtr",
    L"add", L"Add ",         L"interfaceIconFrameDimmed", L"Intr",
    L"exchange", L"Exch",    L"delete", L"Dlt ",       L"duplicate", L"Dplc",
    L"reset", L"Rset",       L"placedLayerEditContents",  L"placedLayerReplaceContents",
    L"make", L"Mk  ",        L"addTo", L"AddT",        L"subtractFrom", L"SbtF",
    L"interfaceWhite", L"IntW",                        L"groupEvent", L"GrpL",
    L"ungroup", L"Ungr"};
// clang-format on

constexpr char kOthersRegistered[] = R"({"notifiersEnabled": false,
    "notifiers": [{"event": "Opn ", "file": "C:\\other.jsx"}, {"event": "save", "file": "C:\\other.jsx"}]})";

class NotifiersTest : public EventFileTest {
 protected:
  std::vector<sim::Notifier>& Notifiers() { return m_photoshop->state().app.notifiers; }
};

TEST_F(NotifiersTest, RegistersTheEventsInOrderAndReplacesOthers) {
  ConnectToText(kOthersRegistered);
  WriteEventFile(L"[Color]\r\nColorState=1\r\n");
  EXPECT_EQ(Ostrel_InitNotifiers(kScript), 1);
  EXPECT_FALSE(std::filesystem::exists(TempFile()));  // an event of an earlier session isn't reported
  EXPECT_TRUE(m_photoshop->state().app.notifiersEnabled);
  std::vector<std::wstring> events;
  for (const sim::Notifier& notifier : Notifiers()) {
    events.push_back(notifier.event);
    EXPECT_EQ(notifier.file, kScript);
    EXPECT_EQ(notifier.eventClass, L"");
  }
  EXPECT_EQ(events, kExpectedEvents);

  // Again: removed first, so nothing is registered twice.
  EXPECT_EQ(Ostrel_InitNotifiers(L"C:\\second.jsx"), 1);
  ASSERT_EQ(Notifiers().size(), kExpectedEvents.size());
  EXPECT_EQ(Notifiers().front().file, L"C:\\second.jsx");

  EXPECT_EQ(Ostrel_UninitNotifiers(), 1);
  EXPECT_TRUE(Notifiers().empty());
  EXPECT_FALSE(m_photoshop->state().app.notifiersEnabled);
}

// Enabled notifiers are enabled once, not set again; disabled ones are left to those who registered them.
TEST_F(NotifiersTest, TheEnabledFlagIsWrittenOnlyWhenItChanges) {
  ConnectToText(R"({"notifiersEnabled": true})");
  m_photoshop->ResetCalls();
  EXPECT_EQ(Ostrel_InitNotifiers(kScript), 1);
  EXPECT_EQ(Notifiers().size(), 32u);
  int flagWrites = 0;
  for (const sim::JournalEntry& entry : m_photoshop->Journal()) flagWrites += entry.member == "notifiersEnabled";
  EXPECT_EQ(flagWrites, 0);

  ConnectToText(kOthersRegistered);
  EXPECT_EQ(Ostrel_UninitNotifiers(), 1);  // disabled already: nothing to do
  EXPECT_EQ(Notifiers().size(), 2u);
  EXPECT_TRUE(m_photoshop->Journal().empty());
}

TEST_F(NotifiersTest, UnconnectedTheFileIsDeletedAllTheSame) {
  WriteEventFile(L"[Color]\r\nColorState=1\r\n");
  EXPECT_EQ(Ostrel_InitNotifiers(kScript), 0);
  EXPECT_FALSE(std::filesystem::exists(TempFile()));
  EXPECT_EQ(Ostrel_UninitNotifiers(), 0);
}

// A failure on the n-th add ends the work with 0, and the adds before it stay.
TEST_F(NotifiersTest, AFailureKeepsWhatWasAdded) {
  // A first run counts the calls; the adds are its last 32.
  ConnectToText(kOthersRegistered);
  m_photoshop->ResetCalls();
  ASSERT_EQ(Ostrel_InitNotifiers(kScript), 1);
  const int64_t callsBeforeAdds = m_photoshop->Calls() - 32;
  for (int failAt : {1, 5, 32}) {
    SCOPED_TRACE(failAt);
    ConnectToText(kOthersRegistered);
    m_photoshop->FailCall(callsBeforeAdds + failAt);
    EXPECT_EQ(Ostrel_InitNotifiers(kScript), 0);
    EXPECT_TRUE(m_photoshop->FaultFired());
    EXPECT_EQ(Notifiers().size(), static_cast<size_t>(failAt - 1));
  }
}

}  // namespace
}  // namespace ostrel
