#pragma once

#include <QObject>
#include <QString>
#include <QVariantMap>

/// What QML itself cannot see, for tests as `probe`: cursor shapes, the accessible tree, other
/// windows of the program, and the system's way of closing one.
class UiProbe : public QObject
{
    Q_OBJECT

public:
    /// The cursor that the window of `item` shows at present.
    Q_INVOKABLE int cursorShape(QObject *itemOrWindow) const;
    /// role (QAccessible::Role), name, description, focusable, disabled, checked and value of an
    /// item as assistive tools see it; empty when they do not see it at all.
    Q_INVOKABLE QVariantMap accessible(QObject *item) const;
    /// Carries out the "Press" action as an assistive tool does; false when there is none.
    Q_INVOKABLE bool pressAccessible(QObject *item) const;
    /// The visible windows of the program that are application-modal: pop-ups.
    Q_INVOKABLE QVariantList popups() const;
    /// The colour, as "#rrggbb", that an item draws at a place of its own; empty when it draws none
    /// there or could not be drawn within five seconds.
    Q_INVOKABLE QString pixel(QObject *item, int x, int y) const;
    /// Keeps what is not the interface's out of its pictures, for good: the text cursor stops
    /// blinking, and the pointer of the display goes to the corner, where no window of ours
    /// reaches.
    Q_INVOKABLE void holdStill() const;
    /// Saves what a window, or a part of it with some pixels round it, shows at present; false when
    /// it cannot be written.
    Q_INVOKABLE bool save(QObject *itemOrWindow, const QString &path) const;
    /// A variable of the environment; empty when it is not set.
    Q_INVOKABLE QString environment(const QString &name) const;
    /// Objects below another one that need be no items, such as animations and windows, by the
    /// beginning of their class name.
    Q_INVOKABLE QVariantList below(QObject *object, const QString &className) const;
    /// The object that owns another one, which need not be an item; null when there is none.
    Q_INVOKABLE QObject *ownerOf(QObject *object) const;
    /// Closes a window as a window manager does.
    Q_INVOKABLE void closeBySystem(QObject *window) const;
    /// Sends a key event that says it is a repetition of a held key.
    Q_INVOKABLE void repeatKey(QObject *window, int key) const;
    /// A click at a place in the window that passes through the window system's doors, so that it
    /// does not reach a window which another one blocks.
    Q_INVOKABLE void click(QObject *window, int x, int y) const;
    /// A touch at a place in the window: begin, and end at the same place.
    Q_INVOKABLE void tap(QObject *window, qreal x, qreal y) const;
};
