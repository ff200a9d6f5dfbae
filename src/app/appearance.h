#pragma once

#include <QString>

/// Gives links in rich text the interface's link colour: Qt draws them in the palette's link
/// colour, whatever their markup says. Needs the application object.
void ApplyLinkColour();

/// Gives all windows the product's icon, "res/install_box.ico" beside the program directory. A
/// missing file leaves them without one. Needs the application object.
void ApplyWindowIcon(const QString &programDir);
