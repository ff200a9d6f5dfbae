#include "ui_probe.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QCoreApplication>
#include <QCursor>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QKeyEvent>
#include <QQuickItem>
#include <QQuickItemGrabResult>
#include <QQuickWindow>
#include <QScreen>
#include <QSignalSpy>
#include <QStyleHints>
#include <QTouchDevice>
#include <QtTest>

namespace {

QWindow *WindowOf(QObject *itemOrWindow)
{
    if (auto *item = qobject_cast<QQuickItem *>(itemOrWindow)) {
        return item->window();
    }
    return qobject_cast<QWindow *>(itemOrWindow);
}

} // namespace

int UiProbe::cursorShape(QObject *itemOrWindow) const
{
    const QWindow *window = WindowOf(itemOrWindow);
    return window != nullptr ? window->cursor().shape() : -1;
}

QVariantMap UiProbe::accessible(QObject *item) const
{
    QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(item);
    if (seen == nullptr) {
        return {};
    }
    QVariantMap facts{{QStringLiteral("role"), static_cast<int>(seen->role())},
                      {QStringLiteral("name"), seen->text(QAccessible::Name)},
                      {QStringLiteral("description"), seen->text(QAccessible::Description)},
                      {QStringLiteral("focusable"), bool(seen->state().focusable)},
                      {QStringLiteral("disabled"), bool(seen->state().disabled)},
                      {QStringLiteral("checked"), bool(seen->state().checked)}};
    if (QAccessibleValueInterface *value = seen->valueInterface()) {
        facts.insert(QStringLiteral("value"), value->currentValue());
    }
    return facts;
}

bool UiProbe::pressAccessible(QObject *item) const
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

QVariantList UiProbe::popups() const
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

QString UiProbe::pixel(QObject *item, int x, int y) const
{
    auto *drawn = qobject_cast<QQuickItem *>(item);
    const auto result = drawn != nullptr ? drawn->grabToImage() : nullptr;
    if (!result || !QTest::qWaitFor([&result]() { return !result->image().isNull(); })) {
        return {};
    }
    const QColor colour = result->image().pixelColor(x, y);
    return colour.alpha() != 0 ? colour.name() : QString();
}

void UiProbe::holdStill() const
{
    QGuiApplication::styleHints()->setCursorFlashTime(0);
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
}

bool UiProbe::save(QObject *itemOrWindow, const QString &path) const
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
    // From the screen: this toolkit's windows without a display cannot grab themselves.
    QImage picture = window->screen()->grabWindow(window->winId()).toImage();
    if (auto *item = qobject_cast<QQuickItem *>(itemOrWindow)) {
        constexpr qreal kAround = 8;
        const qreal scale = window->effectiveDevicePixelRatio();
        const QRectF place = item->mapRectToScene(item->boundingRect())
                                 .adjusted(-kAround, -kAround, kAround, kAround);
        picture = picture.copy(QRectF(place.topLeft() * scale, place.size() * scale)
                                   .toAlignedRect()
                                   .intersected(picture.rect()));
    }
    return QDir().mkpath(QFileInfo(path).path()) && picture.save(path);
}

QString UiProbe::environment(const QString &name) const
{
    return qEnvironmentVariable(name.toUtf8().constData());
}

QVariantList UiProbe::below(QObject *object, const QString &className) const
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

QObject *UiProbe::ownerOf(QObject *object) const
{
    return object != nullptr ? object->parent() : nullptr;
}

void UiProbe::closeBySystem(QObject *window) const
{
    if (QWindow *target = WindowOf(window)) {
        target->QWindow::close();
    }
}

void UiProbe::repeatKey(QObject *window, int key) const
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(WindowOf(window), &press);
}

void UiProbe::click(QObject *window, int x, int y) const
{
    QTest::mouseClick(WindowOf(window), Qt::LeftButton, Qt::NoModifier, QPoint(x, y));
}

void UiProbe::tap(QObject *window, qreal x, qreal y) const
{
    static QTouchDevice *const device = QTest::createTouchDevice();
    const QPoint place(qRound(x), qRound(y));
    QWindow *target = WindowOf(window);
    QTest::touchEvent(target, device).press(0, place, target);
    QTest::touchEvent(target, device).release(0, place, target);
}
