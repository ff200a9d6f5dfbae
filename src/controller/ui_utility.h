#pragma once

#include <QObject>

class CVantorConfigInstance;

/// Gives the controller access to the process-wide configuration client.
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
