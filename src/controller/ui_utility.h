#pragma once

#include <QObject>

class CVantorConfigInstance;

/// Process-wide companion of the controller that hands out the shared remote configuration.
class UIUtility : public QObject
{
    Q_OBJECT

public:
    /// The singleton, built at first use (from any thread) and destroyed at process exit.
    static UIUtility *instance();

    /// The shared configuration client; null only when it could not be created. GUI thread.
    CVantorConfigInstance *configInstance();

private:
    UIUtility() = default;
};
