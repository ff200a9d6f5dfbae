#pragma once

/// Prepares the process environment for Qt and the controller: the working directory is the
/// program directory, no foreign plug-ins or QML modules, fractional scale factors, the
/// software renderer. To be called once, before any Qt application object exists.
void PrepareEnvironment();
