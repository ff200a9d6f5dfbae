#include "app/language.h"

#include <QFont>
#include <QGuiApplication>

void ApplyApplicationFont()
{
    constexpr int kPixelSize = 14;
    QFont font = QGuiApplication::font();
    font.setPixelSize(kPixelSize);
    font.setFamily(QStringLiteral("Segoe UI"));
    QGuiApplication::setFont(font);
}
