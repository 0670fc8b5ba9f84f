#include "framework/message_box.h"

#include <gtest/gtest.h>

#include "framework/win_app.h"
#include "tests/framework/modal_driver.h"

namespace {

TEST(AfxMessageBox, IsTitledWithTheApplicationAndReturnsTheButton) {
    CWinApp application("Sample Installation");
    EXPECT_EQ(driveModal([] { return AfxMessageBox("Go on?", MB_YESNO | MB_ICONWARNING); },
                         [](HWND box) {
                             char title[32]{};
                             GetWindowTextA(box, title, sizeof title);
                             EXPECT_STREQ(title, "Sample Installation");
                             PostMessageA(box, WM_COMMAND, IDYES, 0);
                         }),
              IDYES);
    EXPECT_EQ(application.Run(), 0) << "without a main window the message loop ends at once";
}

}  // namespace
