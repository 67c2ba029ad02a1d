// The message pump, which only Windows has.

#include "platform/message_pump.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <vector>

namespace quillkit {
namespace {

using testing::ElementsAre;

constexpr const char* kWindowClass = "QuillkitPumpTest";
constexpr UINT kMark = WM_APP + 1;
constexpr UINT kRepeat = WM_APP + 2;

std::vector<WPARAM> seen;

// Records kMark and dialog commands, posts kRepeat again each time, and never paints its window.
LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
  if (message == kMark || message == WM_COMMAND) {
    seen.push_back(first);
  } else if (message == WM_PAINT) {
    seen.push_back(WM_PAINT);
  } else if (message == kRepeat) {
    PostMessageA(window, kRepeat, 0, 0);
  } else {
    return DefWindowProcA(window, message, first, second);
  }
  return 0;
}

HWND CreateTestWindow() {
  WNDCLASSA type{};
  type.lpfnWndProc = OnMessage;
  type.lpszClassName = kWindowClass;
  RegisterClassA(&type);
  return CreateWindowA(kWindowClass, "", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100, nullptr, nullptr,
                       nullptr, nullptr);
}

class MessagePumpTest : public testing::Test {
 protected:
  MessagePumpTest() {
    PumpThreadMessages(window);
    seen.clear();
  }
  ~MessagePumpTest() override { DestroyWindow(window); }

  const HWND window = CreateTestWindow();
};

TEST_F(MessagePumpTest, DispatchesAllPendingMessagesInOrderExceptQuit) {
  PostQuitMessage(7);
  for (WPARAM i = 1; i <= 4; ++i) PostMessageA(window, kMark, i, 0);
  PostThreadMessageA(GetCurrentThreadId(), kMark, 9, 0);  // belongs to no window: dropped
  PumpThreadMessages(window);
  EXPECT_THAT(seen, ElementsAre(1, 2, 3, 4));
  MSG message{};
  ASSERT_NE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE), 0);
  EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT))
      << "WM_QUIT must stay in the queue for the application";
  EXPECT_EQ(message.wParam, 7U);
  EXPECT_EQ(PeekMessageA(&message, nullptr, kMark, kMark, PM_NOREMOVE), 0);
  EXPECT_EQ(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE), 0);
}

TEST_F(MessagePumpTest, OnlyKeysOfTheDialogGoToTheDialog) {
  const HWND other = CreateTestWindow();
  PostMessageA(other, WM_KEYDOWN, VK_ESCAPE, 0);
  PostMessageA(other, kMark, 5, 0);
  PumpThreadMessages(window);
  EXPECT_THAT(seen, ElementsAre(5));
  PostMessageA(window, WM_KEYDOWN, VK_ESCAPE, 0);
  PumpThreadMessages(window);
  EXPECT_THAT(seen, ElementsAre(5, IDCANCEL));
  DestroyWindow(other);
}

TEST_F(MessagePumpTest, ReturnsEvenIfAMessageIsPostedRepeatedly) {
  PostMessageA(window, kRepeat, 0, 0);
  PostMessageA(window, kMark, 1, 0);
  PumpThreadMessages(window);
  EXPECT_THAT(seen, ElementsAre(1));
}

TEST_F(MessagePumpTest, ReturnsEvenIfAWindowIsNeverPainted) {
  ShowWindow(window, SW_SHOWNOACTIVATE);
  InvalidateRect(window, nullptr, FALSE);
  seen.clear();
  PumpThreadMessages(window);
  EXPECT_THAT(seen, testing::Contains(static_cast<WPARAM>(WM_PAINT)));
}

TEST_F(MessagePumpTest, WaitCursorsNestAndTheLastEndRestoresTheOriginal) {
  const HCURSOR wait = LoadCursorA(nullptr, IDC_WAIT);
  const HCURSOR cross = LoadCursorA(nullptr, IDC_CROSS);
  SetCursor(cross);
  RestoreWaitCursor();
  EndWaitCursor();
  EXPECT_EQ(GetCursor(), cross) << "the cursor must not change before a wait cursor begins";
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
