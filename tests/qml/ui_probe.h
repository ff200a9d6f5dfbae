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

/// What QML itself cannot see, for tests as `probe`: cursor shapes, the accessible tree, other
/// windows of the program, and the system's way of closing one.
class UiProbe : public QObject
{
    Q_OBJECT

public:
    /// The cursor that the window of `item` shows at present.
    Q_INVOKABLE int cursorShape(QObject *itemOrWindow) const
    {
        const QWindow *window = WindowOf(itemOrWindow);
        return window != nullptr ? window->cursor().shape() : -1;
    }

    /// role (QAccessible::Role), name, description, focusable and checked of an item as assistive
    /// tools see it; empty when they do not see it at all.
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

    /// Carries out the "Press" action as an assistive tool does; false when there is none.
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

    /// The visible windows of the program that are application-modal: pop-ups.
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

    /// Keeps what is not the interface's out of its images, for good: the text cursor stops
    /// blinking, and the pointer goes to the corner of the display, where no window of ours
    /// reaches.
    Q_INVOKABLE void holdStill() const
    {
        QGuiApplication::styleHints()->setCursorFlashTime(0);
        QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    }

    /// Saves what a window, or an item with some pixels round it, shows at present; false when it
    /// cannot be written.
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

    /// A variable of the environment; empty when it is not set.
    Q_INVOKABLE QString environment(const QString &name) const
    {
        return qEnvironmentVariable(name.toUtf8().constData());
    }

    /// Objects below another one that need not be items, such as animations, by the beginning of
    /// their class name.
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

    /// The object that owns another one, which need not be an item; null when there is none.
    Q_INVOKABLE QObject *ownerOf(QObject *object) const
    {
        return object != nullptr ? object->parent() : nullptr;
    }

    /// Closes a window as a window manager does.
    Q_INVOKABLE void closeBySystem(QObject *window) const
    {
        WindowOf(window)->QWindow::close();
    }

    /// Sends a key event that says it is a repetition of a held key.
    Q_INVOKABLE void repeatKey(QObject *itemOrWindow, int key) const
    {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(WindowOf(itemOrWindow), &press);
    }

    /// A click at a place in the window that passes through the window system, so that it does not
    /// reach a window which another one blocks.
    Q_INVOKABLE void click(QObject *window, int x, int y) const
    {
        QTest::mouseClick(WindowOf(window), Qt::LeftButton, Qt::NoModifier, QPoint(x, y));
    }

    /// A touch at a place in the window: begin, and end at the same place.
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
