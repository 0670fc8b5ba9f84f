#pragma once

#include "framework/window.h"

class CButton : public CWnd {
  public:
    /// BST_CHECKED (1) or BST_UNCHECKED (0).
    int GetCheck() const;
    void SetCheck(int check);
};
