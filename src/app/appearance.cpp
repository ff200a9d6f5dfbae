#include "app/appearance.h"

#include <QColor>
#include <QDir>
#include <QGuiApplication>
#include <QIcon>
#include <QPalette>

void ApplyLinkColour()
{
    QPalette palette = QGuiApplication::palette();
    palette.setColor(QPalette::Link, QColor(0x03, 0x7d, 0xff));
    QGuiApplication::setPalette(palette);
}

void ApplyWindowIcon(const QString &programDir)
{
    const QString path = QStringLiteral("%1/../res/install_box.ico").arg(programDir);
    QGuiApplication::setWindowIcon(QIcon(QDir::cleanPath(path)));
}
