#pragma once

#include "line_protocol.h"

#include <windows.h>

namespace kestrelmoor::driver {

/// What the driver can do; one function per command, and `main.cpp` binds them to their names. A window is
/// given as the number of its handle, a process by its identifier. Rectangles are left, top, right, bottom in
/// pixels. A command that can't be carried out throws std::runtime_error with a sentence for the tester.

// top_windows.cpp
Answer ListWindows(const Arguments&); ///< () handle, pid, class, title, rectangle on the screen, visible,
                                      ///  enabled, owner, style, extended style
Answer
ListChildren(const Arguments&);      ///< (window) all descendants: handle, parent, class, id, text, rectangle
                                     ///  in the parent's client area, style, extended style, visible,
                                     ///  enabled, password character
Answer ClientArea(const Arguments&); ///< (window) rectangle on the screen
Answer
InputState(const Arguments&); ///< (window) foreground, and of the window's thread: active, focus, capture
Answer ScreenState(const Arguments&); ///< () width, height, dots per inch

// controls.cpp
Answer ReadText(const Arguments&);   ///< (window) its text, read by WM_GETTEXT
Answer SendTo(const Arguments&);     ///< (window, message, wParam, lParam) result
Answer PostTo(const Arguments&);     ///< (window, message, wParam, lParam)
Answer SendTextTo(const Arguments&); ///< (window, message, wParam, text) result
Answer ListItems(const Arguments&);  ///< (list or drop-down list) per row: text, selected, item data
Answer ListState(const Arguments&);  ///< (list or drop-down list) selected row or -1, top row

// input.cpp; the mouse is moved from outside, by the screen
Answer PressKeys(const Arguments&);    ///< (key...) virtual keys: pressed in order, let go in reverse
Answer TypeText(const Arguments&);     ///< (text) with the keys that the layout has, else as Unicode input
Answer BringToFront(const Arguments&); ///< (window)

// processes.cpp
Answer StartProgram(const Arguments&); ///< (command line, folder, file for its output,
                                       ///  NAME=value...) pid
Answer StartAsUser(const Arguments&);  ///< the same, without the rights of an administrator
Answer WaitForExit(const Arguments&);  ///< (pid, milliseconds) exit code, or no record while it runs
Answer EndProcess(const Arguments&);   ///< (pid)
Answer ListModules(const Arguments&);  ///< (pid) name, path
Answer ListLoads(const Arguments&);    ///< (pid) path, how often loaded and not let go; 0: it stays for good
Answer CountObjects(const Arguments&); ///< (pid) windows, GDI objects, kernel handles
Answer CountUser(const Arguments&);    ///< () windows, menus, icons, hooks and the like of the whole session

// heaps.cpp
Answer MeasureHeaps(const Arguments&);  ///< (window of the program) bytes in its own heaps, in the common one
Answer LoadInProgram(const Arguments&); ///< (window of the program, library) its module there

// layout.cpp
Answer FindLayoutFaults(const Arguments&); ///< (window) kind, handle, other handle or 0, explanation

// box.cpp
Answer ReadBoxIcon(const Arguments&); ///< (message box) error, question, warning, information or none

// session_state.cpp
Answer ReadPointer(const Arguments&);    ///< (window of the program that shows it) arrow, text, wait or other
Answer CallInProgram(const Arguments&);  ///< (window of the program, library, function, up to four numbers)
                                         ///  what the function returns there
Answer ReadWindowIcon(const Arguments&); ///< (window, 0 small or 1 large) handle, width, height; no record
                                         ///  when there is none
Answer PutOnClipboard(const Arguments&); ///< (text)

// registry.cpp; root is HKCU, HKLM or HKCR, bytes are hexadecimal
Answer ReadValue(const Arguments&);   ///< (root, key, name) type, bytes; no record when absent
Answer WriteValue(const Arguments&);  ///< (root, key, name, type, bytes)
Answer DeleteValue(const Arguments&); ///< (root, key, name)
Answer DeleteKey(const Arguments&);   ///< (root, key) with all below it
Answer ListKey(const Arguments&);     ///< (root, key) "key" or "value", name; no record when absent

// session_guard.cpp
Answer GuardSession(const Arguments&);   ///< () from now on the end of the session is refused and counted
Answer SessionEndings(const Arguments&); ///< () how often it was asked for

HWND WindowArgument(const Arguments& arguments, std::size_t index);

/// SendMessage that gives up after five seconds with an exception.
LRESULT Ask(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
std::wstring TextOf(HWND window);
std::wstring ClassOf(HWND window);
long long Number(const void* handle);

/// "WHAT failed with code N", of the last error.
[[noreturn]] void FailWithLastError(const std::string& what);

} // namespace kestrelmoor::driver
