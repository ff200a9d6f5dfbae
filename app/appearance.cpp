#include "app/appearance.h"

#include <QColor>
#include <QGuiApplication>
#include <QPalette>

void ApplyLinkColour()
{
    QPalette palette = QGuiApplication::palette();
    palette.setColor(QPalette::Link, QColor(0x03, 0x7d, 0xff));
    QGuiApplication::setPalette(palette);
}
