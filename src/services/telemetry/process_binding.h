#pragma once

class TelemetryBinding;

/// The one binding of the process, built during static initialisation before every other static
/// object of the program, so that the library is loaded in every start.
TelemetryBinding &ProcessTelemetryBinding();
