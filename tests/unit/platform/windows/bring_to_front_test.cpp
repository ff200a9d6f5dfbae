#include "platform/windows/bring_to_front.h"

#include <gmock/gmock.h>

namespace {

using testing::InSequence;
using testing::Return;
using testing::StrictMock;

struct RecordedCalls
{
    MOCK_METHOD(HWND, GetForegroundWindow, ());
    MOCK_METHOD(DWORD, GetWindowThreadProcessId, (HWND window, DWORD *process));
    MOCK_METHOD(DWORD, GetCurrentThreadId, ());
    MOCK_METHOD(void, AttachThreadInput, (DWORD thread, DWORD to, BOOL attach));
    MOCK_METHOD(void, ShowWindow, (HWND window, int how));
    MOCK_METHOD(void,
                SetWindowPos,
                (HWND window, HWND after, int x, int y, int width, int height, UINT flags));
    MOCK_METHOD(void, SetForegroundWindow, (HWND window));
};

HWND Window(std::uintptr_t value)
{
    return reinterpret_cast<HWND>(value);
}

void ExpectSequence(HWND foreground, DWORD foregroundThread)
{
    constexpr DWORD kOwnThread = 70;
    constexpr int kShowNormal = 1;
    constexpr UINT kNoSizeNoMove = 3;
    const HWND window = Window(0x5005);
    const HWND topMost = Window(static_cast<std::uintptr_t>(-1));
    const HWND notTopMost = Window(static_cast<std::uintptr_t>(-2));

    StrictMock<RecordedCalls> calls;
    const InSequence order;
    EXPECT_CALL(calls, GetForegroundWindow()).WillOnce(Return(foreground));
    EXPECT_CALL(calls, GetWindowThreadProcessId(foreground, nullptr))
        .WillOnce(Return(foregroundThread));
    EXPECT_CALL(calls, GetCurrentThreadId()).WillOnce(Return(kOwnThread));
    EXPECT_CALL(calls, AttachThreadInput(kOwnThread, foregroundThread, TRUE));
    EXPECT_CALL(calls, ShowWindow(window, kShowNormal));
    EXPECT_CALL(calls, SetWindowPos(window, topMost, 0, 0, 0, 0, kNoSizeNoMove));
    EXPECT_CALL(calls, SetWindowPos(window, notTopMost, 0, 0, 0, 0, kNoSizeNoMove));
    EXPECT_CALL(calls, SetForegroundWindow(window));
    EXPECT_CALL(calls, AttachThreadInput(kOwnThread, foregroundThread, FALSE));
    platform::BringToFrontSequence(calls, window);
}

TEST(BringToFrontSequence, IsInThisOrderWithTheseArguments)
{
    ExpectSequence(Window(0x4004), 60);
}

TEST(BringToFrontSequence, IsTheSameWithoutAForegroundWindow)
{
    ExpectSequence(nullptr, 0);
}

} // namespace
