#pragma once

class QQmlApplicationEngine;
class QTranslator;

/// Sets the application's default font: 14 pixels, the family by the product's language. Every text
/// of the user interface uses it. Needs the application object.
void ApplyApplicationFont();

/// Sets the layout direction by the product's language and installs the translation of that
/// language, if there is one beside the program. Does nothing if `translator` is null. The
/// caller owns both and keeps them alive. GUI thread, before the interface is loaded.
void LoadTranslation(QTranslator *translator, QQmlApplicationEngine *engine);
