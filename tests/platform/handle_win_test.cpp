#include "platform/handle_win.h"

#include <gtest/gtest.h>

namespace {

int closed = 0;

BOOL countClose(HANDLE) {
    return SetLastError(static_cast<DWORD>(++closed)), TRUE;
}
using CountedHandle = UniqueHandle<HANDLE, countClose>;

TEST(UniqueHandle, IsClosedOnceByItsLastOwnerAndKeepsTheLastError) {
    SetLastError(ERROR_FILE_NOT_FOUND);
    {
        const auto held = reinterpret_cast<HANDLE>(4);
        CountedHandle first(held);
        CountedHandle second(std::move(first));
        CountedHandle third(reinterpret_cast<HANDLE>(8));
        third = std::move(second);
        EXPECT_EQ(closed, 1) << "what the third held before";
        EXPECT_EQ(third.get(), held);
    }
    EXPECT_EQ(closed, 2);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_FILE_NOT_FOUND});
}

}  // namespace
