#pragma once

#include <QString>

/// Gives links in rich text the interface's link colour: the toolkit draws them in the palette's
/// one, whatever their markup says. Needs the application object.
void ApplyLinkColour();

/// Gives all windows the product's icon, "res/install_box.ico" beside the program directory. A
/// missing file leaves them without one. Needs the application object.
void ApplyWindowIcon(const QString &programDir);
