// Photoshop's notifiers: the 32 events on which Photoshop runs the lesson player's script, which writes the
// event file.
#pragma once

#include <array>
#include <string>

namespace ostrel {

// The events, each by its string id and, where it has one, by its four-character id (the blanks belong to the
// codes), in the order they are added.
// clang-format off: the events in pairs, as they are registered
inline constexpr std::array<const wchar_t*, 32> kNotifierEvents = {
    L"select", L"slct",      L"set", L"setd",          L"subtract", L"Sbtr",
    L"add", L"Add ",         L"interfaceIconFrameDimmed", L"Intr",
    L"exchange", L"Exch",    L"delete", L"Dlt ",       L"duplicate", L"Dplc",
    L"reset", L"Rset",       L"placedLayerEditContents",  L"placedLayerReplaceContents",
    L"make", L"Mk  ",        L"addTo", L"AddT",        L"subtractFrom", L"SbtF",
    L"interfaceWhite", L"IntW",                        L"groupEvent", L"GrpL",
    L"ungroup", L"Ungr"};
// clang-format on

// Deletes the event file, then (connected) enables the notifiers, removes every notifier and adds the events with
// scriptPath and an empty event class: 1 when all were added. A failure ends the work, keeping what was added.
int RegisterNotifiers(const std::wstring& scriptPath);
// What registering gives without a connection: the event file deleted all the same, and 0.
int RegisterNotifiersUnconnected() noexcept;
// Removes every notifier and disables them: 1, or 1 at once when they are disabled already.
int UnregisterNotifiers();

}  // namespace ostrel
