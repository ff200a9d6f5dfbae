#pragma once

/// Makes the process's surroundings what Qt and the controller rely on: the working directory is
/// the program directory, no foreign plug-ins or QML modules, fractional scale factors, the
/// software renderer. To be called once, before any Qt application object exists.
void PrepareEnvironment();
