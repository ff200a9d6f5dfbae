import QtQuick 2.12
import "public.js" as Public

// The mark behind a link that has the keyboard focus. A link may stand at the very edge of a
// clipped page, where a frame round it would lose a side. The line is below the item: across the
// underlined text, which has almost the same colour, it would not be seen.
Rectangle {
    objectName: "focusMark"
    z: -1
    color: "#E8F0FF"
    Accessible.ignored: true

    Rectangle {
        anchors.top: parent.bottom
        width: parent.width
        height: 2
        color: Public.accentColor
    }
}
