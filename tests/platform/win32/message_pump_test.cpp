// What the pump does with messages, which only Windows has.

#include "platform/message_pump.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <vector>

namespace quillkit {
namespace {

using testing::ElementsAre;

constexpr UINT kMark = WM_APP + 1;
constexpr UINT kRepeat = WM_APP + 2;

std::vector<WPARAM> seen;

// Notes kMark and dialog commands; posts kRepeat again whenever it comes; leaves its window to be
// painted for ever.
LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case kMark:
    case WM_COMMAND:
      seen.push_back(first);
      return 0;
    case kRepeat:
      PostMessageA(window, kRepeat, 0, 0);
      return 0;
    case WM_PAINT:
      seen.push_back(WM_PAINT);
      return 0;
    default:
      return DefWindowProcA(window, message, first, second);
  }
}

class MessagePumpTest : public testing::Test {
 protected:
  MessagePumpTest() {
    seen.clear();
    WNDCLASSA type{};
    type.lpfnWndProc = OnMessage;
    type.lpszClassName = "QuillkitPumpTest";
    RegisterClassA(&type);
    window = CreateWindowA(type.lpszClassName, "", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100, nullptr,
                           nullptr, nullptr, nullptr);
    PumpThreadMessages(window);
    seen.clear();
  }
  ~MessagePumpTest() override {
    DestroyWindow(window);
    MSG message{};
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
    }
  }

  HWND window = nullptr;
};

TEST_F(MessagePumpTest, DispatchesAllThatIsPendingInOrder) {
  ASSERT_NE(window, nullptr);
  for (WPARAM i = 1; i <= 4; ++i) PostMessageA(window, kMark, i, 0);
  PostThreadMessageA(GetCurrentThreadId(), kMark, 9, 0);  // belongs to no window: dropped
  PumpThreadMessages(window);
  EXPECT_THAT(seen, ElementsAre(1, 2, 3, 4));
  MSG message{};
  EXPECT_EQ(PeekMessageA(&message, nullptr, kMark, kMark, PM_NOREMOVE), 0);
}

TEST_F(MessagePumpTest, KeysOfADialogGoToTheDialog) {
  PostMessageA(window, WM_KEYDOWN, VK_ESCAPE, 0);
  PumpThreadMessages(window);
  EXPECT_THAT(seen, ElementsAre(IDCANCEL));
}

TEST_F(MessagePumpTest, KeysOfOtherWindowsDoNot) {
  HWND other = CreateWindowA("QuillkitPumpTest", "", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100, nullptr,
                             nullptr, nullptr, nullptr);
  PostMessageA(other, WM_KEYDOWN, VK_ESCAPE, 0);
  PostMessageA(other, kMark, 5, 0);
  PumpThreadMessages(window);
  EXPECT_THAT(seen, ElementsAre(5));
  DestroyWindow(other);
}

TEST_F(MessagePumpTest, RequestToQuitStaysForTheApplicationsLoop) {
  PostQuitMessage(7);
  PostMessageA(window, kMark, 1, 0);
  PumpThreadMessages(window);
  EXPECT_THAT(seen, ElementsAre(1));
  MSG message{};
  ASSERT_NE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE), 0);
  EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
  EXPECT_EQ(message.wParam, 7U);
  EXPECT_EQ(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE), 0);
}

// The pump returns though there is always a message left.
TEST_F(MessagePumpTest, IsNotHeldByAMessageThatIsPostedAnew) {
  PostMessageA(window, kRepeat, 0, 0);
  PostMessageA(window, kMark, 1, 0);
  PumpThreadMessages(window);
  EXPECT_THAT(seen, ElementsAre(1));
}

TEST_F(MessagePumpTest, IsNotHeldByAWindowThatIsNeverPainted) {
  ShowWindow(window, SW_SHOWNOACTIVATE);
  InvalidateRect(window, nullptr, FALSE);
  seen.clear();
  PumpThreadMessages(window);
  EXPECT_THAT(seen, testing::Contains(static_cast<WPARAM>(WM_PAINT)));
}

TEST_F(MessagePumpTest, WaitCursorsNestAndTheLastEndRestoresTheFirst) {
  const HCURSOR wait = LoadCursorA(nullptr, IDC_WAIT);
  const HCURSOR cross = LoadCursorA(nullptr, IDC_CROSS);
  SetCursor(cross);
  RestoreWaitCursor();
  EndWaitCursor();
  EXPECT_EQ(GetCursor(), cross);  // none was begun
  BeginWaitCursor();
  BeginWaitCursor();
  EXPECT_EQ(GetCursor(), wait);
  EndWaitCursor();
  EXPECT_EQ(GetCursor(), wait);
  SetCursor(nullptr);
  RestoreWaitCursor();
  EXPECT_EQ(GetCursor(), wait);
  EndWaitCursor();
  EXPECT_EQ(GetCursor(), cross);
}

}  // namespace
}  // namespace quillkit
