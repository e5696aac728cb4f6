// What prismosbc.dll and the program say to each other: every request and
// every forwarded message travels as WM_COPYDATA with one of these tags, so
// it crosses the process boundary with its data copied for us.
#pragma once

#include <cstdint>

namespace sbc {

// dwData of a WM_COPYDATA: the fixed high half marks it as ours.
constexpr std::uint32_t kTagMask = 0xFFFF0000u;
constexpr std::uint32_t kTag = 0x53420000u;

enum Op : std::uint32_t {
    // program -> hooked window (handled by the DLL's window procedure)
    OpAttach = 1,      // AttachRequest: subclass the window, watch these messages
    OpDetach = 2,      // restore the window's own procedure
    OpResult = 3,      // std::int64_t: the result a swallowed message returns
    OpMenuDump = 4,    // reply: one line per menu item, see below
    OpMenuInsert = 5,  // "position\n" + menu description lines
    OpMenuDelete = 6,  // std::uint32_t position in the menu bar
    OpQuery = 7,       // reply ok when the window is attached and its messages go to its program
    OpMenuState = 8,   // std::uint32_t command id; reply: its state flags as decimal text
    // DLL -> program's host window
    OpReply = 16,      // Reply header + text
    OpMessage = 17,    // HookedMessage; the answer carries the Answer bits
};

constexpr int kMaxMessages = 16;

struct AttachRequest {
    std::uint32_t count;
    std::uint32_t messages[kMaxMessages];
};

struct HookedMessage {
    std::uint64_t window;
    std::uint32_t message;
    std::uint32_t pad;
    std::uint64_t wParam;
    std::int64_t lParam;
};

struct Reply {
    std::int32_t ok;
    // followed by text (not NUL-terminated; the length is the rest of the block)
};

// Bits of the host window's answer to an OpMessage.
enum Answer : std::uint32_t {
    AnswerNoDefault = 1,  // swallow the message; the result was sent by OpResult
    AnswerDelayed = 2,    // events are queued: post the release after the message
};

// The hook waits this long for the program before it lets AOL go on alone.
constexpr unsigned kTimeoutMs = 2000;

// Registered message the program sends to a window (wParam = its host
// window) before any request: the hook subclasses the window, and from then
// on the requests reach our window procedure as ordinary WM_COPYDATA.
constexpr const char* kPrepareMessageName = "PrismoSbcPrepare";

// Registered message the program sends to a window of a hooked thread once
// it holds no window of that thread any more: the window hook lets the DLL go
// out of the process, which only the hook may do (no frame of ours is on the
// stack then).
constexpr const char* kUnloadMessageName = "PrismoSbcUnload";

// Registered message the DLL posts to the host window, wParam = hooked
// window, once that window's procedure has returned from a forwarded message.
constexpr const char* kReleaseMessageName = "PrismoSbcRelease";

// Menu dump lines: "<level>\t<id>\t<caption>\n", level 0 for the bar's own
// entries and 1 for the items of the menu under the last level-0 entry.
// Menu description lines for OpMenuInsert:
//   "P\t<caption>" opens a popup, "E" ends it, "S" is a separator,
//   "I\t<id>\t<caption>" is an item.

}  // namespace sbc
