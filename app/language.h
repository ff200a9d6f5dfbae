#pragma once

/// Sets the application's default font: 14 pixels, the system's interface family. Every text of the
/// user interface uses it. Needs the application object.
void ApplyApplicationFont();
