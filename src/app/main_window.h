#pragma once

class QQmlApplicationEngine;

/// Loads the one window of the program into `engine`. If that fails, the event loop ends as
/// soon as it runs. Needs the application object.
void LoadMainWindow(QQmlApplicationEngine *engine);
