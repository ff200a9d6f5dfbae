#pragma once

/// Gives links in rich text the interface's link colour: the toolkit draws them in the palette's
/// one, whatever their markup says. Needs the application object.
void ApplyLinkColour();
