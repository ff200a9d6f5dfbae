#pragma once

#include <QAccessible>
#include <QCursor>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QKeyEvent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>
#include <QSignalSpy>
#include <QStyleHints>
#include <QTouchDevice>
#include <QtTest>

/// What QML itself cannot access, as `probe`: cursor shapes, the accessibility tree, other windows
/// of the program, and closing one as the system does.
class UiProbe : public QObject
{
    Q_OBJECT

public:
    /// The current cursor of a window, or of the window of an item.
    Q_INVOKABLE int cursorShape(QObject *itemOrWindow) const
    {
        const QWindow *window = WindowOf(itemOrWindow);
        return window != nullptr ? window->cursor().shape() : -1;
    }

    /// role (QAccessible::Role), name, description, focusable and checked of an item in the
    /// accessibility tree; empty when it is not in there.
    Q_INVOKABLE QVariantMap accessible(QObject *item) const
    {
        QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(item);
        if (seen == nullptr) {
            return {};
        }
        return {{QStringLiteral("role"), static_cast<int>(seen->role())},
                {QStringLiteral("name"), seen->text(QAccessible::Name)},
                {QStringLiteral("description"), seen->text(QAccessible::Description)},
                {QStringLiteral("focusable"), bool(seen->state().focusable)},
                {QStringLiteral("checked"), bool(seen->state().checked)}};
    }

    /// Performs the accessibility action "Press"; false when the item has none.
    Q_INVOKABLE bool pressAccessible(QObject *item) const
    {
        QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(item);
        QAccessibleActionInterface *actions = seen != nullptr ? seen->actionInterface() : nullptr;
        if (actions == nullptr ||
            !actions->actionNames().contains(QAccessibleActionInterface::pressAction())) {
            return false;
        }
        actions->doAction(QAccessibleActionInterface::pressAction());
        return true;
    }

    /// The pop-ups: visible application-modal windows of the program.
    Q_INVOKABLE QVariantList popups() const
    {
        QVariantList found;
        const auto windows = QGuiApplication::topLevelWindows();
        for (QWindow *window : windows) {
            if (window->isVisible() && window->modality() == Qt::ApplicationModal) {
                found.append(QVariant::fromValue<QObject *>(window));
            }
        }
        return found;
    }

    /// Makes screenshots reproducible: stops the blinking of the text cursor, and moves the pointer
    /// to the corner of the display, outside all windows.
    Q_INVOKABLE void holdStill() const
    {
        QGuiApplication::styleHints()->setCursorFlashTime(0);
        QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    }

    /// Saves a screenshot of a window, or of an item with a few pixels around it; false when that
    /// fails.
    Q_INVOKABLE bool save(QObject *itemOrWindow, const QString &path) const
    {
        auto *window = qobject_cast<QQuickWindow *>(WindowOf(itemOrWindow));
        if (window == nullptr) {
            return false;
        }
        // Twice, since an item in a layer is drawn one frame late.
        for (int frames = 0; frames < 2; ++frames) {
            QSignalSpy frame(window, &QQuickWindow::frameSwapped);
            window->update();
            if (!frame.wait()) {
                return false;
            }
        }
        // From the screen: Qt Quick's software renderer cannot grab a window here.
        QImage image = window->screen()->grabWindow(window->winId()).toImage();
        if (auto *item = qobject_cast<QQuickItem *>(itemOrWindow)) {
            constexpr qreal kAround = 8;
            const qreal scale = window->effectiveDevicePixelRatio();
            const QRectF place = item->mapRectToScene(item->boundingRect())
                                     .adjusted(-kAround, -kAround, kAround, kAround);
            image = image.copy(QRectF(place.topLeft() * scale, place.size() * scale)
                                   .toAlignedRect()
                                   .intersected(image.rect()));
        }
        return QDir().mkpath(QFileInfo(path).path()) && image.save(path);
    }

    /// An environment variable; empty when it is not set.
    Q_INVOKABLE QString environment(const QString &name) const
    {
        return qEnvironmentVariable(name.toUtf8().constData());
    }

    /// All descendants whose class name begins with `className`, including objects that are no
    /// items, such as animations.
    Q_INVOKABLE QVariantList below(QObject *object, const QString &className) const
    {
        QVariantList found;
        const auto children = object->findChildren<QObject *>();
        for (QObject *child : children) {
            if (QLatin1String(child->metaObject()->className()).startsWith(className)) {
                found.append(QVariant::fromValue(child));
            }
        }
        return found;
    }

    /// The QObject parent, which need not be an item; null when there is none.
    Q_INVOKABLE QObject *ownerOf(QObject *object) const
    {
        return object != nullptr ? object->parent() : nullptr;
    }

    /// Closes a window as the window manager does.
    Q_INVOKABLE void closeBySystem(QObject *window) const
    {
        WindowOf(window)->QWindow::close();
    }

    /// Sends an auto-repeat key event.
    Q_INVOKABLE void repeatKey(QObject *itemOrWindow, int key) const
    {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(WindowOf(itemOrWindow), &press);
    }

    /// Clicks in a window by way of the window system, so that a modal window blocks the click.
    Q_INVOKABLE void click(QObject *window, int x, int y) const
    {
        QTest::mouseClick(WindowOf(window), Qt::LeftButton, Qt::NoModifier, QPoint(x, y));
    }

    /// Taps at a place in the window: a touch press and release.
    Q_INVOKABLE void tap(QObject *itemOrWindow, qreal x, qreal y) const
    {
        static QTouchDevice *const device = QTest::createTouchDevice();
        const QPoint place(qRound(x), qRound(y));
        QWindow *target = WindowOf(itemOrWindow);
        QTest::touchEvent(target, device).press(0, place, target);
        QTest::touchEvent(target, device).release(0, place, target);
    }

private:
    static QWindow *WindowOf(QObject *itemOrWindow)
    {
        auto *item = qobject_cast<QQuickItem *>(itemOrWindow);
        return item != nullptr ? item->window() : qobject_cast<QWindow *>(itemOrWindow);
    }
};
