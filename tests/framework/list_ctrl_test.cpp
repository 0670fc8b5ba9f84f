#include "framework/list_ctrl.h"

#include <gtest/gtest.h>

#include <functional>

#include "framework/dialog.h"
#include "tests/framework/empty_template.h"
#include "tests/framework/modal_driver.h"

namespace {

const EmptyTemplate emptyTemplate;

class ListDialog : public CDialog {
  public:
    explicit ListDialog(std::function<void(CListCtrl&)> use)
        : CDialog(&emptyTemplate.header), use(std::move(use)) {}

  protected:
    bool OnInitDialog() override {
        InitCommonControls();
        CListCtrl list;
        list.m_hWnd = CreateWindowExA(0, WC_LISTVIEWA, "", WS_CHILD | WS_VISIBLE | LVS_REPORT, 0, 0,
                                      100, 50, m_hWnd, nullptr, nullptr, nullptr);
        SendMessageA(list.m_hWnd, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_CHECKBOXES);
        use(list);
        EndDialog(IDOK);
        return true;
    }

  private:
    std::function<void(CListCtrl&)> use;
};

int CALLBACK descending(LPARAM left, LPARAM right, LPARAM sign) {
    return static_cast<int>((right - left) * sign);
}

TEST(ListCtrl, KeepsTextsTicksAndDataThroughASort) {
    // Around the size of the first reading buffer, and far beyond it.
    const std::string texts[] = {"",
                                 "short",
                                 std::string(254, 'a'),
                                 std::string(255, 'b'),
                                 std::string(256, 'c'),
                                 std::string(3000, 'd')};
    ListDialog dialog([&](CListCtrl& list) {
        list.InsertColumn(0, "", LVCFMT_LEFT, 20);
        list.InsertColumn(1, "", LVCFMT_LEFT, 40);
        EXPECT_EQ(SendMessageA(list.m_hWnd, LVM_GETCOLUMNWIDTH, 1, 0), 40);
        for (int item = 0; item < 6; ++item) {
            EXPECT_EQ(list.InsertItem(item, ""), item);
            list.SetItemText(item, 1, texts[item]);
            list.SetItemData(item, item);
            list.SetCheck(item, item != 1);
        }
        list.SetCheck(2, false);
        list.SortItems(descending, 1);
        ASSERT_EQ(list.GetItemCount(), 6);
        for (int item = 0; item < 6; ++item) {
            const int inserted = 5 - item;
            EXPECT_EQ(list.GetItemData(item), inserted);
            EXPECT_EQ(list.GetItemText(item, 0), "");
            EXPECT_EQ(list.GetItemText(item, 1), texts[inserted]);
            EXPECT_EQ(list.GetCheck(item), inserted != 1 && inserted != 2);
        }
    });
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

}  // namespace
