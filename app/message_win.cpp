#include "app/message_win.h"

#include "framework/application_win.h"

bool showMessage(const Message& message) {
    const UINT icon = message.icon == MessageIcon::Error ? MB_ICONERROR : MB_ICONEXCLAMATION;
    const UINT buttons = message.buttons == MessageButtons::YesNo ? MB_YESNO : MB_OK;
    return AfxMessageBox(message.text, icon | buttons) == IDYES;
}
