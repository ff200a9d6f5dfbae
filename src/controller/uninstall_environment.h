#pragma once

#include "controller/offers.h"

#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>

/// System services that the controller uses. The program takes `System()`; a test replaces what it
/// wants to watch.
struct UninstallEnvironment
{
    /// Whether a process with this image name runs.
    std::function<bool(const QString &imageName)> isProcessRunning;
    /// Starts a detached process; a failure is not reported.
    std::function<void(const QString &program, const QStringList &arguments)> startDetached;
    /// Sleeps on the calling thread without processing events.
    std::function<void(unsigned long milliseconds)> sleep;
    /// Lets the application process its pending events once.
    std::function<void()> processEvents;
    std::function<QString()> kernelVersion;
    std::function<bool()> dropShadowEnabled;
    /// Hands a link to the user's default handler.
    std::function<void(const QUrl &url)> openUrl;
    /// Sends one usage event.
    std::function<void(const QString &window,
                       const QString &activity,
                       const QString &attribute,
                       const QString &source)>
        sendUsageEvent;
    OfferSources offers;

    /// The production implementation.
    static UninstallEnvironment System();
};
