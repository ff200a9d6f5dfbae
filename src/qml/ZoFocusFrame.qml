import QtQuick 2.12
import "public.js" as Public

// The mark round a control that has the keyboard focus. Controls show it only for focus that came
// from the keyboard, so it never appears for someone who uses the mouse.
Rectangle {
    objectName: "focusFrame"
    color: "#00000000"
    radius: 3
    border.width: 1
    border.color: Public.accentColor
    Accessible.ignored: true
}
