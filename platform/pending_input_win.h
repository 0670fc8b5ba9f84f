#pragma once

/// Takes away the keyboard and mouse input that waits for this thread, posted messages of these
/// kinds included: what was typed or clicked while the thread looked at no messages, and would
/// otherwise go to a window that the user had not seen then. All other messages stay, but for
/// WM_QUIT, which nothing here posts.
void discardInput();
