#pragma once

#include <QFont>
#include <QObject>
#include <QString>
#include <QTranslator>
#include <QVariantList>

/// Lets a test of the interface speak the product's languages one after the other, as `languages`:
/// what it creates afterwards speaks the last one chosen.
class LanguageSwitch : public QObject
{
    Q_OBJECT
    /// The rows of translations/languages.csv, in its order, each a map by the titles of its
    /// columns; empty when it cannot be read.
    Q_PROPERTY(QVariantList table READ table CONSTANT)

public:
    /// Chooses the language of a row of the table: its compiled translation from the folder that
    /// KTR_TRANSLATIONS names (otherwise the build's), its layout direction, and its font behind
    /// the ordinary one. False when there is no such translation.
    Q_INVOKABLE bool speak(const QVariantMap &row);
    /// Back to the source texts.
    Q_INVOKABLE void speakSource();
    /// The characters of a text for which neither its font nor one behind that has a glyph.
    Q_INVOKABLE QString withoutGlyph(const QString &text, const QFont &font) const;

    QVariantList table() const;

private:
    QTranslator m_translator;
};
