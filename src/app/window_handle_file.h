#pragma once

#include "platform/window.h"

#include <iosfwd>
#include <string>

class QQmlApplicationEngine;

/// Full path (ANSI encoding) of the file through which a second start finds the running window:
/// "hwndFile.ini" beside the executable, eight bytes, the native handle in little-endian order.
/// Empty when the ANSI path of the executable's folder would be cut or inexact.
std::string GetHwndFilePath();

/// The same for any executable's path; a path without a separator is taken for the directory.
std::string HwndFilePathOf(const std::string &executable);

/// Writes the native handle of the engine's first window to the file; no file without a window.
void PublishWindowHandle(const QQmlApplicationEngine &engine);

/// The handle in the first eight bytes of what `file` still has; 0 when there are fewer.
platform::WindowHandle ReadWindowHandle(std::istream &file);

/// Brings the window that the file names to the front. No effect when the file is missing or names
/// no existing window; a file of fewer than eight bytes names none. Works without a Qt application.
void ActivateRunningInstance();

/// Deletes the file.
void RemoveWindowHandleFile();
